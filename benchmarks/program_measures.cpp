// The whole program against a bare one: process start, key derivation, one row, end.
#include "ChildProcess.h"
#include "EngineCalls.h"
#include "Measure.h"

#include <filesystem>
#include <fstream>
#include <memory>

namespace sectionbench {
namespace {

using Command = std::vector<std::string>;

Command WithFolder(Command command, const std::string& folder, const std::string& password) {
    command.insert(command.begin(), SECTIONDB_PROGRAM);
    for (const std::string& word : {std::string("--folder"), folder})
        command.push_back(word);
    if (!password.empty())
        for (const std::string& word : {std::string("--password"), password})
            command.push_back(word);
    return command;
}

Command ShowCommand(const Catalogues& catalogues) {
    return WithFolder({"show", "American", "W12X26"}, catalogues.ProtectedFolder(),
                      Catalogues::Password);
}

Command FindCommand(const Catalogues& catalogues) {
    return WithFolder({"find", "W12X26"}, catalogues.Built().Folder(), Catalogues::Password);
}

Action Run(const Command& command) {
    return [command] { RunProgram(command); };
}

Action Show(const Catalogues& catalogues) { return Run(ShowCommand(catalogues)); }

Action ShowPlain(const Catalogues& catalogues) {
    return Run(WithFolder({"show", "American", "W12X26"}, catalogues.PlainFolder(), ""));
}

Action List(const Catalogues& catalogues) {
    return Run(WithFolder({"list"}, catalogues.Built().Folder(), Catalogues::Password));
}

Action Find(const Catalogues& catalogues) { return Run(FindCommand(catalogues)); }

Action ShowBare(const Catalogues& catalogues) {
    return Run({SECTIONDB_BARE_PROGRAM, catalogues.Protected(), Catalogues::Password, "W12X26"});
}

Action ShowBarePlain(const Catalogues& catalogues) {
    return Run({SECTIONDB_BARE_PROGRAM, catalogues.Plain(), "", "W12X26"});
}

// Many rectangles of different sizes.

constexpr int ImportedRows = 100'000;
constexpr int Depths = 400;

double DepthOf(int row) { return 100 + row % Depths; }
double WidthOf(int row) {
    const int step = row / Depths;
    return 50 + step;
}

Action Import(const Catalogues& /*catalogues*/) {
    const auto folder = std::make_shared<testsupport::TempFolder>();
    const std::string list = folder->File("list.csv");
    std::ofstream text(list);
    text << "Name,D,B\nTEXT,MM,MM\n";
    for (int row = 0; row < ImportedRows; ++row)
        text << 'P' << row << ',' << DepthOf(row) << ',' << WidthOf(row) << '\n';
    return [folder, list, file = folder->File("own.db3")] {
        std::filesystem::remove(file);
        RunProgram({SECTIONDB_PROGRAM, "user", "create", file});
        RunProgram({SECTIONDB_PROGRAM, "user", "import", file, "Prismatic", list});
    };
}

void InsertRectangles(const EngineDatabase& database) {
    const EngineStatement insert(database, "INSERT INTO Own VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int row = 0; row < ImportedRows; ++row) {
        const std::string name = "P" + std::to_string(row);
        const double depth = DepthOf(row);
        const double width = WidthOf(row);
        sqlite3_bind_int(insert.Get(), 1, row + 1);
        for (const int column : {2, 3})
            sqlite3_bind_text(insert.Get(), column, name.c_str(), -1, SQLITE_STATIC);
        int column = 3;
        for (const double value : {depth, width, depth * width, width * depth * depth * depth / 12,
                                   depth * width * width * width / 12, 0.0})
            sqlite3_bind_double(insert.Get(), ++column, value);
        Require(sqlite3_step(insert.Get()) == SQLITE_DONE, "add a rectangle");
        sqlite3_reset(insert.Get());
    }
}

/// The rows alone, with the same columns and indexes: nothing is read from a text or judged.
Action ImportRaw(const Catalogues& /*catalogues*/) {
    const auto folder = std::make_shared<testsupport::TempFolder>();
    return [folder, file = folder->File("own.db3")] {
        std::filesystem::remove(file);
        std::ofstream(file).close();
        const EngineDatabase database(file, nullptr);
        database.Execute("CREATE TABLE Own (RECNO INTEGER PRIMARY KEY, Name TEXT NOT NULL, "
                         "VessaName TEXT NOT NULL, D DOUBLE, B DOUBLE, AX DOUBLE, IZ DOUBLE, "
                         "IY DOUBLE, IX DOUBLE);CREATE INDEX ByVessaName ON Own "
                         "(UPPER([VessaName]));CREATE INDEX ByName ON Own (Name);CREATE INDEX "
                         "ByArea ON Own (AX);BEGIN");
        InsertRectangles(database);
        database.Execute("COMMIT");
    };
}

} // namespace

std::vector<Measure> ProgramMeasures() {
    constexpr double OneDerivationAndAll = 150'000;
    return {
        {"sectiondb show American W12X26", Show, ShowBare, {.ratio = 2.0}},
        {"sectiondb show American W12X26, plain", ShowPlain, ShowBarePlain, {.ratio = 1.3}},
        {"sectiondb list; one row", List, ShowBare, {.microseconds = OneDerivationAndAll}},
        {"sectiondb find W12X26; one row", Find, ShowBare, {.microseconds = OneDerivationAndAll}},
        {"sectiondb user import, 100000 rows", Import, ImportRaw, {}},
    };
}

std::vector<Amount> ProgramAmounts() {
    return {
        {"peak memory of sectiondb show", " MiB", 15,
         [](const Catalogues& catalogues) { return RunProgram(ShowCommand(catalogues)); }},
        {"peak memory of sectiondb find", " MiB", 60,
         [](const Catalogues& catalogues) { return RunProgram(FindCommand(catalogues)); }},
        {"peak memory of sectiondb build, all", " MiB", 100,
         [](const Catalogues& catalogues) { return catalogues.Built().PeakMebibytes(); }},
        {"sectiondb build, all, protected", " s", 5,
         [](const Catalogues& catalogues) { return catalogues.Built().Seconds(); }},
    };
}

} // namespace sectionbench
