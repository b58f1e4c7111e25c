#include "EngineWork.h"

#include "Measure.h"

#include "dataaccess/Handles.h"

#include <cstring>
#include <span>

namespace sectionbench {
namespace {

constexpr int Additions = 200;
constexpr int FirstNewId = 20000;
constexpr std::array<double, ValueCount> NewValues{7.65, 12.2, 6.49, 0.38, 0.23, 204,
                                                   0.3,  607,  17.3, 37.2, 8.17};
constexpr std::size_t Deletions = 280;

std::string NewName(int i) { return "New " + std::to_string(i); }

} // namespace

void OpenEngine(const std::string& folder, const char* password) {
    SectionDBInterface::ExitSectionDBInterface();
    SectionDBInterface::SetProfileDBFolder(folder.c_str());
    SectionDBInterface::SetDBIFileName((folder + "/index.dbi").c_str());
    SectionDBInterface::SetSectionDBPassword(password);
    std::int32_t err = 0;
    OPENSECTIONDATABASE(&American, &err);
}

void GetSection(const std::string& name) {
    Values values{};
    std::int32_t count = 0;
    std::int32_t valueCount = 0;
    std::int32_t err = 0;
    GETSECTION(&American, &WShape, name.c_str(), static_cast<std::int32_t>(name.size()),
               &Millimetre, values.data(), &count, &valueCount, &err);
    Require(count == 1 && values[0] > 0, "get a section");
    Keep(values);
}

std::size_t WalkSorted() {
    std::int32_t count = 0;
    std::int32_t valueCount = 0;
    std::int32_t err = 0;
    GETSORTEDSECTIONS(&American, &WShape, ByArea.data(), &KeyCount, &Millimetre, &count,
                      &valueCount, &err);
    return Walk(1);
}

std::size_t Walk(std::int32_t slot) {
    Name name{};
    Values values{};
    std::int32_t status = 0;
    std::int32_t err = 0;
    std::size_t rows = 0;
    const auto size = static_cast<std::int32_t>(name.size());
    for (GETFIRSTSECTION(&slot, name.data(), size, values.data(), &status, &err); status != 0;
         GETNEXTSECTION(&slot, name.data(), size, values.data(), &status, &err))
        ++rows;
    return rows;
}

void AddSections() {
    Require(SectionDBInterface::BeginTransaction(American) == 1, "begin a transaction");
    SectionDBBase* catalogue = SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(American);
    catalogue->SetDatabase(SectionDBInterface::GetDatabasePtr(American));
    catalogue->SetWorkingTable("W Shape");
    SECTIONINFO section;
    section.Values.assign(NewValues.begin(), NewValues.end());
    for (int i = 0; i < Additions; ++i) {
        section.PublicName = section.VessaName = NewName(i).c_str();
        Require(catalogue->AddSectionData(static_cast<WORD>(FirstNewId + i), &section) == 1,
                "add a section");
    }
    Require(SectionDBInterface::RollbackTransaction() == 1, "undo the additions");
}

void DeleteSections(const std::vector<std::string>& names) {
    Require(SectionDBInterface::BeginTransaction(American) == 1, "begin a transaction");
    CSectionDatabase* database = SectionDBInterface::GetDatabasePtr(American);
    RecordsetHandle rows;
    openRecordset(&database, rows.Address(), "SELECT * FROM [W Shape]", CSectionRecordset::Dynaset,
                  1);
    for (const std::string& name : std::span(names).first(Deletions))
        Require(deleteRecord(rows.Address(), ("[VessaName] = '" + name + "'").c_str()) == 1,
                "delete a section");
    closeRecordset(rows.Address());
    Require(SectionDBInterface::RollbackTransaction() == 1, "undo the deletions");
}

void ReadValues(sqlite3_stmt* row, Values& values) {
    constexpr double Inch = 25.4;
    for (int i = 0; i < ValueCount; ++i)
        values[static_cast<std::size_t>(i)] =
            static_cast<float>(sqlite3_column_double(row, FirstValue + i) * Inch);
    Keep(values);
}

std::size_t WalkRaw(sqlite3_stmt* rows) {
    Values values{};
    Name name{};
    std::size_t count = 0;
    for (; sqlite3_step(rows) == SQLITE_ROW; ++count) {
        std::strncpy(name.data(),
                     reinterpret_cast<const char*>(sqlite3_column_text(rows, NameColumn)),
                     name.size() - 1);
        Keep(name);
        ReadValues(rows, values);
    }
    sqlite3_reset(rows);
    return count;
}

void AddSectionsRaw(const EngineDatabase& database) {
    database.Execute("BEGIN IMMEDIATE");
    {
        const EngineStatement insert(
            database, "INSERT INTO [W Shape] VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (int i = 0; i < Additions; ++i) {
            const std::string name = NewName(i);
            sqlite3_bind_int(insert.Get(), 1, FirstNewId + i);
            for (const int column : {2, 3})
                sqlite3_bind_text(insert.Get(), column, name.c_str(), -1, SQLITE_STATIC);
            int column = FirstValue;
            for (const double value : NewValues)
                sqlite3_bind_double(insert.Get(), ++column, value);
            Require(sqlite3_step(insert.Get()) == SQLITE_DONE, "add a section");
            sqlite3_reset(insert.Get());
        }
    }
    database.Execute("ROLLBACK");
}

void DeleteSectionsRaw(const EngineDatabase& database, const std::vector<std::string>& names) {
    database.Execute("BEGIN IMMEDIATE");
    {
        const EngineStatement remove(database,
                                     "DELETE FROM [W Shape] WHERE UPPER([VessaName]) = UPPER(?)");
        for (const std::string& name : std::span(names).first(Deletions)) {
            sqlite3_bind_text(remove.Get(), 1, name.c_str(), -1, SQLITE_STATIC);
            Require(sqlite3_step(remove.Get()) == SQLITE_DONE &&
                        sqlite3_changes(database.Get()) == 1,
                    "delete a section");
            sqlite3_reset(remove.Get());
        }
    }
    database.Execute("ROLLBACK");
}

void GetSectionRaw(sqlite3_stmt* search, const std::string& name) {
    Values values{};
    sqlite3_bind_text(search, 1, name.c_str(), static_cast<int>(name.size()), SQLITE_STATIC);
    Require(sqlite3_step(search) == SQLITE_ROW, "get a section");
    ReadValues(search, values);
    sqlite3_reset(search);
}

} // namespace sectionbench
