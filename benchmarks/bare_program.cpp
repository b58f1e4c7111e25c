// Prints one row of a catalogue with nothing but the engine: sectiondb_bare FILE PASSWORD NAME. The
// password of a plain one is empty.
#include <cstdio>
#include <sqlcipher/sqlite3.h>
#include <string>

namespace {

int PrintRow(sqlite3* database, const char* password, const char* name) {
    const std::string key = "PRAGMA key = '" + std::string(password) + "'";
    if (*password != '\0' &&
        sqlite3_exec(database, key.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        return 1;
    const std::string sql =
        "Select * From [W Shape] WHERE UPPER([VessaName]) = UPPER('" + std::string(name) + "')";
    sqlite3_stmt* row = nullptr;
    if (sqlite3_prepare_v2(database, sql.c_str(), -1, &row, nullptr) != SQLITE_OK)
        return 1;
    const bool found = sqlite3_step(row) == SQLITE_ROW;
    for (int column = 0; found && column < sqlite3_column_count(row); ++column)
        std::printf("%s %s\n", sqlite3_column_name(row, column),
                    reinterpret_cast<const char*>(sqlite3_column_text(row, column)));
    sqlite3_finalize(row);
    return found ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return 2;
    sqlite3* database = nullptr;
    int status = 1;
    if (sqlite3_open_v2(argv[1], &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK)
        status = PrintRow(database, argv[2], argv[3]);
    if (status != 0)
        std::fprintf(stderr, "sectiondb_bare: %s\n", sqlite3_errmsg(database));
    sqlite3_close(database);
    return status;
}
