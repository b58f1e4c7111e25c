#include "EveryCatalogue.h"

#include "EngineCalls.h"

#include "catalogues/CatalogueSectionDB.h"
#include "dataaccess/Handles.h"
#include "interface/SectionDBInterface.h"

#include <algorithm>
#include <stdexcept>

namespace sectionbench {
namespace {

using Table = EveryCatalogue::Table;

/// The statements that make a table as the program builds it, with its rows.
std::string TableStatements(const SectionFamily& family, int catalogue) {
    const std::string table = family.table;
    std::string columns = "RECNO INTEGER PRIMARY KEY, Name TEXT NOT NULL, VessaName TEXT NOT NULL";
    std::string values = "i, 'N' || i || ' of ' || t, 'V' || i || ' of ' || t";
    std::string indexes;
    const auto addIndex = [&](const std::string& key) {
        indexes +=
            ";CREATE INDEX \"" + table + " by " + key + "\" ON [" + table + "] (" + key + ")";
    };
    addIndex("UPPER([VessaName])");
    addIndex("[Name]");
    for (const LayoutColumn& column : GetSectionLayout(family.layout).columns) {
        const bool isText = column.quantity == Quantity::Text;
        columns += std::string(", [") + column.name + "]" + (isText ? " TEXT" : " DOUBLE");
        values += isText ? ", 'text'" : ", i * 1.5";
        if (std::string_view(column.name) == "AX")
            addIndex("[AX]");
    }
    return "CREATE TABLE [" + table + "] (" + columns + ")" + indexes +
           ";WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 100), n(t) "
           "AS (SELECT '" +
           std::to_string(catalogue) + "." + std::to_string(family.sectionType) +
           "') INSERT INTO [" + table + "] SELECT " + values + " FROM c, n;";
}

std::vector<Table> MakeTables(const EngineDatabase& database, int catalogue) {
    std::vector<Table> tables;
    const auto* object = dynamic_cast<CatalogueSectionDB*>(
        SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(catalogue)));
    std::string statements = "BEGIN;";
    for (const SectionFamily& family : object->Families()) {
        const auto isSame = [&](const Table& table) { return table.name == family.table; };
        if (std::ranges::any_of(tables, isSame))
            continue; // one table for several section types
        statements += TableStatements(family, catalogue);
        tables.push_back({family.table, family.sectionType});
    }
    statements += "UPDATE [" + tables.back().name + "] SET Name = '" + EveryCatalogue::LastName +
                  "', VessaName = '" + EveryCatalogue::LastName +
                  "' WHERE RECNO = 50;CREATE TABLE [Field Units] (TableName TEXT);CREATE TABLE "
                  "[DBInfo] (Title TEXT);COMMIT";
    database.Execute(statements);
    return tables;
}

EveryCatalogue::File MakeFile(const std::string& path, const char* password, int catalogue) {
    {
        DatabaseHandle created;
        if (createDatabase(created.Address(), path.c_str(), password, 0, nullptr) != 1)
            throw std::runtime_error(path + ": cannot be created");
    }
    EveryCatalogue::File file{path, DeriveKeyStatement(path, password), {}};
    file.tables = MakeTables(EngineDatabase(path, file.keyStatement.c_str()), catalogue);
    return file;
}

} // namespace

EveryCatalogue::EveryCatalogue(const char* password) {
    SectionDBInterface::InitSectionDBInterface();
    for (int i = 1; i <= LastCatalogueIndex; ++i)
        m_files.push_back(
            MakeFile(m_folder.File(SectionDBInterface::m_saSectionFile[i] + std::string(".db3")),
                     password, i));
}

} // namespace sectionbench
