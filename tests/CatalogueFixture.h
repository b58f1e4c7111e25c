// Small catalogues for the tests, made through the data-access functions.
//
//     CatalogueFile file(folder.File("AISCSections.db3"));
//     file.AddTable("Rod", LayoutId::RoundBar, {{"R1", "R1", {1.0, 0.785, 0.0491}}});
#pragma once

#include "DataAccessSupport.h"
#include "records/SectionLayout.h"

#include <array>
#include <vector>

namespace testsupport {

/// A row of a section table. Properties that are left out at the end stay null.
struct Section {
    const char* name;
    const char* vessaName;
    std::vector<COleVariant> properties;
};

/// The W12X26 of the American standard, in inches, in the order of the I shape's columns.
inline const Section W12X26{
    "W12X26", "W12x26", {7.65, 12.2, 6.49, 0.38, 0.23, 204.0, 0.3, 607.0, 17.3, 37.2, 8.17}};

/// The five fields of "DBInfo" in column order.
inline constexpr std::array InfoFields{"title", "standard", "source", "2", "hash"};

struct Column {
    Column(const char* columnName, SectionField::Type columnType = SectionField::Text,
           int columnAttributes = 0)
        : name(columnName),
          type(columnType),
          attributes(columnAttributes) {}

    CString name;
    SectionField::Type type;
    int attributes;
};

/// A new catalogue file with "Field Units" and "DBInfo", open until the end of its scope.
class CatalogueFile {
public:
    explicit CatalogueFile(const std::string& path, const char* connect = "") {
        EXPECT_EQ(createDatabase(m_db.Address(), path.c_str(), connect, 0, nullptr), 1);
        CreateTable("Field Units", Numbered("Unit", MostColumns, {{"TableName"}}));
        CreateTable("DBInfo", Numbered("Info", InfoFields.size()));
        AddRow("DBInfo", 0, Texts(InfoFields));
    }

    CSectionDatabase* Database() const { return m_db.Get(); }

    /// Adds a section table of a layout, its rows, and its units (inches and kips).
    void AddTable(const char* table, LayoutId layout, const std::vector<Section>& sections = {}) {
        std::vector<Column> columns{
            {"RECNO", SectionField::Long, SectionField::AutoIncrement}, {"Name"}, {"VessaName"}};
        std::vector<const char*> units{"NUMBER", "TEXT", "TEXT"};
        for (const LayoutColumn& column : GetSectionLayout(layout).columns) {
            const bool isText = column.quantity == Quantity::Text;
            columns.push_back({column.name, isText ? SectionField::Text : SectionField::Double});
            units.push_back(UnitOf(column.quantity));
        }
        CreateTable(table, columns);
        for (const Section& section : sections) {
            std::vector<COleVariant> values = section.properties;
            values.insert(values.begin(),
                          {COleVariant(section.name), COleVariant(section.vessaName)});
            AddRow(table, 1, values);
        }
        AddUnits(table, units);
    }

    /// Adds a table of these columns alone with its rows, and no units.
    void AddPlainTable(const char* table, const std::vector<Column>& columns,
                       const std::vector<std::vector<COleVariant>>& rows = {}) {
        CreateTable(table, columns);
        for (const auto& row : rows)
            AddRow(table, 0, row);
    }

    /// The same of text columns.
    void AddTextTable(const char* table, const std::vector<const char*>& columns,
                      const std::vector<std::vector<const char*>>& rows = {}) {
        std::vector<std::vector<COleVariant>> values;
        for (const auto& row : rows)
            values.push_back(Texts(row));
        AddPlainTable(table, {columns.begin(), columns.end()}, values);
    }

    void AddUnits(const char* table, const std::vector<const char*>& units) {
        std::vector<COleVariant> values = Texts(units);
        values.insert(values.begin(), COleVariant(table));
        AddRow("Field Units", 0, values);
    }

    void RemoveTable(const char* table) { EXPECT_EQ(deleteTable(m_db.Get(), table), 1); }

private:
    /// Bookkeeping columns and as many property columns as a layout may have.
    static constexpr std::size_t MostColumns = BookkeepingColumns + 16;

    static const char* UnitOf(Quantity quantity) {
        constexpr std::array units{"TEXT",          "NUMBER",   "DEGREE",   "INCHES",
                                   "INCHES^2",      "INCHES^3", "INCHES^4", "INCHES^6",
                                   "KIPS/INCHES^2", "KIPS/FEET"};
        return units[static_cast<std::size_t>(quantity)];
    }

    template <class Range>
    static std::vector<COleVariant> Texts(const Range& texts) {
        std::vector<COleVariant> values;
        for (const char* text : texts)
            values.emplace_back(text);
        return values;
    }

    static std::vector<Column> Numbered(const char* name, std::size_t count,
                                        std::vector<Column> columns = {}) {
        for (std::size_t i = 0; i < count; ++i)
            columns.push_back({name + CString(std::to_string(i))});
        return columns;
    }

    void CreateTable(const char* name, const std::vector<Column>& columns) {
        TableDefHandle table;
        EXPECT_EQ(createNewTableDef(m_db.Get(), table.Address(), name), 1);
        for (const Column& column : columns)
            EXPECT_EQ(AddField(table.Get(), column.name, column.type, 0, column.attributes), 1);
        EXPECT_EQ(appendTableDef(m_db.Get(), table.Get()), 1) << name;
    }

    void AddRow(const char* table, int firstColumn, const std::vector<COleVariant>& values) {
        CSectionRecordset rows(m_db.Get());
        rows.Open(CSectionRecordset::Table, table);
        rows.AddNew();
        for (const COleVariant& value : values)
            rows.SetFieldValue(firstColumn++, value);
        rows.Update();
    }

    DatabaseHandle m_db;
};

/// Makes a catalogue one of user tables, by its title.
inline void MakeUserTables(const CatalogueFile& file) {
    CSectionRecordset info(file.Database());
    info.Open(CSectionRecordset::Table, "DBInfo");
    SetValue(info, 0, "User tables");
}

} // namespace testsupport
