#include "Catalogues.h"

#include "ChildProcess.h"
#include "EngineCalls.h"

namespace sectionbench {
Catalogues::Catalogues() {
    const std::string sources = SECTIONDB_DATA_DIR "/AISCSections";
    RunProgram({SECTIONDB_PROGRAM, "build", sources, "--output", m_folder.File("plain")});
    RunProgram({SECTIONDB_PROGRAM, "build", sources, "--output", ProtectedFolder(), "--password",
                Password});
    m_keyStatement = DeriveKeyStatement(Protected(), Password);
    const EngineDatabase database(Plain(), nullptr);
    const EngineStatement rows(database, "Select [VessaName], [AX] From [W Shape]");
    while (sqlite3_step(rows.Get()) == SQLITE_ROW) {
        m_names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(rows.Get(), 0)));
        m_areas.push_back(sqlite3_column_double(rows.Get(), 1));
        m_statementsByName.push_back(StatementByName(m_names.back()));
    }
}

std::string StatementByName(const std::string& name) {
    return "Select * From [W Shape] WHERE UPPER([VessaName]) = UPPER('" + name + "')";
}

} // namespace sectionbench
