#include "Catalogues.h"

#include "ChildProcess.h"
#include "EngineCalls.h"

namespace sectionbench {
namespace {

std::vector<std::string> ReadStatements(const std::string& path, const std::string& key) {
    std::vector<std::string> statements;
    const EngineDatabase database(path, key.c_str());
    const EngineStatement names(database, "Select [VessaName] From [W Shape]");
    while (sqlite3_step(names.Get()) == SQLITE_ROW)
        statements.push_back(
            StatementByName(reinterpret_cast<const char*>(sqlite3_column_text(names.Get(), 0))));
    return statements;
}

} // namespace

Catalogues::Catalogues() {
    const std::string sources = SECTIONDB_DATA_DIR "/AISCSections";
    RunProgram({SECTIONDB_PROGRAM, "build", sources, "--output", m_folder.File("plain")});
    RunProgram({SECTIONDB_PROGRAM, "build", sources, "--output", ProtectedFolder(), "--password",
                Password});
    m_keyStatement = DeriveKeyStatement(Protected(), Password);
    m_statementsByName = ReadStatements(Protected(), m_keyStatement);
}

std::string StatementByName(const std::string& name) {
    return "Select * From [W Shape] WHERE UPPER([VessaName]) = UPPER('" + name + "')";
}

} // namespace sectionbench
