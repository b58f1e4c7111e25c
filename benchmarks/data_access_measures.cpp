// The data-access functions against the engine that they stand on.
#include "EngineCalls.h"
#include "Measure.h"

#include "dataaccess/Handles.h"

#include <memory>
#include <stdexcept>

namespace sectionbench {
namespace {

constexpr int FirstValue = 3; // behind the record identifier and the two names
constexpr int Columns = 14;
constexpr const char* AllRows = "Select * From [W Shape]";

// Our side.

void Open(DatabaseHandle& database, const std::string& path) {
    const int opened =
        openDatabase(database.Address(), path.c_str(), 1, 0, 0, Catalogues::Password, nullptr);
    Require(opened == 1, "open a catalogue");
}

std::shared_ptr<DatabaseHandle> OpenOurs(const Catalogues& catalogues) {
    auto database = std::make_shared<DatabaseHandle>();
    Open(*database, catalogues.Protected());
    return database;
}

void Query(DatabaseHandle& database, RecordsetHandle& rows, const char* sql) {
    Require(
        openRecordset(database.Address(), rows.Address(), sql, CSectionRecordset::Snapshot, 1) == 1,
        "query a table");
}

void ReadRow(DatabaseHandle& database, const std::string& sql) {
    RecordsetHandle rows;
    Query(database, rows, sql.c_str());
    Require(!rows->IsEOF() && rows->GetFieldCount() == Columns, "find a row");
    for (int column = 0; column < Columns; ++column)
        Keep(rows->GetFieldValue(column));
}

void Walk(DatabaseHandle& database, std::size_t expected) {
    RecordsetHandle rows;
    Query(database, rows, AllRows);
    std::size_t count = 0;
    for (; !rows->IsEOF(); rows->MoveNext(), ++count)
        for (int column = FirstValue; column < Columns; ++column)
            Keep(rows->GetFieldValue(column).dblVal);
    Require(count == expected, "read all rows");
}

void Reopen(const std::string& path) {
    DatabaseHandle database;
    Open(database, path);
    ReadRow(database, StatementByName("W12X26"));
}

// The engine's side.

std::shared_ptr<EngineDatabase> OpenEngine(const Catalogues& catalogues) {
    return std::make_shared<EngineDatabase>(catalogues.Protected(),
                                            catalogues.KeyStatement().c_str());
}

void ReadRow(const EngineDatabase& database, const std::string& sql) {
    const EngineStatement statement(database, sql);
    sqlite3_stmt* row = statement.Get();
    Require(sqlite3_step(row) == SQLITE_ROW && sqlite3_column_count(row) == Columns, "find a row");
    Keep(sqlite3_column_int64(row, 0));
    Keep(sqlite3_column_text(row, 1));
    Keep(sqlite3_column_text(row, 2));
    for (int column = FirstValue; column < Columns; ++column)
        Keep(sqlite3_column_double(row, column));
}

void Walk(const EngineDatabase& database, std::size_t expected) {
    const EngineStatement rows(database, AllRows);
    std::size_t count = 0;
    for (; sqlite3_step(rows.Get()) == SQLITE_ROW; ++count)
        for (int column = FirstValue; column < Columns; ++column)
            Keep(sqlite3_column_double(rows.Get(), column));
    Require(count == expected, "read all rows");
}

void ReopenEngine(const std::string& path, const char* key) {
    ReadRow(EngineDatabase(path, key), StatementByName("W12X26"));
}

/// Reads the row of one statement after the other from an open database.
template <class Database>
Action ReadInTurn(std::shared_ptr<Database> database, std::vector<std::string> statements) {
    return [database, statements = std::move(statements), next = std::size_t{0}]() mutable {
        ReadRow(*database, statements[next++ % statements.size()]);
    };
}

template <class Database>
Action WalkRows(std::shared_ptr<Database> database, std::size_t expected) {
    return [database, expected] { Walk(*database, expected); };
}

Action CountRows(const Catalogues& catalogues) {
    const auto database = OpenOurs(catalogues);
    auto rows = std::make_shared<RecordsetHandle>();
    Query(*database, *rows, AllRows);
    const auto expected = static_cast<int>(catalogues.Names().size());
    return [database, rows, expected] {
        Require(getRecordCount(rows->Address()) == expected, "count the rows");
    };
}

} // namespace

std::vector<Measure> DataAccessMeasures() {
    using Files = const Catalogues&;
    return {
        {"open the protected file and read a row",
         [](Files files) -> Action {
             return [&files] {
                 terminateDAOEngine();
                 Reopen(files.Protected());
             };
         },
         [](Files files) -> Action {
             return [&files] { ReopenEngine(files.Protected(), files.KeyStatement().c_str()); };
         },
         {.ratio = 1.5}},
        {"reopen the protected file and read a row",
         [](Files files) -> Action { return [&files] { Reopen(files.Protected()); }; },
         [](Files files) -> Action {
             return [&files] { ReopenEngine(files.Protected(), files.KeyStatement().c_str()); };
         },
         {.ratio = 1.5}},
        {"reopen the plain file and read a row",
         [](Files files) -> Action { return [&files] { Reopen(files.Plain()); }; },
         [](Files files) -> Action { return [&files] { ReopenEngine(files.Plain(), nullptr); }; },
         {}},
        {"read a row, always the same",
         [](Files files) { return ReadInTurn(OpenOurs(files), {StatementByName("W12X26")}); },
         [](Files files) { return ReadInTurn(OpenEngine(files), {StatementByName("W12X26")}); },
         {.ratio = 1.5}},
        {"read a row, another every time",
         [](Files files) { return ReadInTurn(OpenOurs(files), files.StatementsByName()); },
         [](Files files) { return ReadInTurn(OpenEngine(files), files.StatementsByName()); },
         {.ratio = 1.5}},
        {"read every value of all W shapes",
         [](Files files) { return WalkRows(OpenOurs(files), files.Names().size()); },
         [](Files files) { return WalkRows(OpenEngine(files), files.Names().size()); },
         {.ratio = 2.0}},
        {"count the rows of an open recordset", CountRows, nullptr, {}},
    };
}

} // namespace sectionbench
