#include "sections/CatalogueData.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionException.h"
#include "dataaccess/CSectionRecordset.h"
#include "dataaccess/DatabaseTransaction.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "sections/Failures.h"
#include "sections/ProvenanceReader.h"
#include "sections/TableRows.h"
#include "units/UnitText.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <utility>

namespace sections {
namespace {

using Units = std::vector<std::string>; ///< by column

[[noreturn]] void fail(const std::string& path, SectionError::Number number,
                       const std::string& fault) {
    throw Error(number, path + ": " + fault);
}

/// The tables of joists keep what their own look-ups need, at places of their own.
bool isOfJoists(const SectionFamily& family) {
    return family.layout == LayoutId::Joist || family.layout == LayoutId::JoistGirder;
}

bool isText(const CSectionFieldInfo& field) {
    return field.m_nType == SectionField::Text || field.m_nType == SectionField::Memo;
}

/// Reads the tables of an open file.
class CatalogueReader {
public:
    CatalogueReader(CSectionDatabase& database, CatalogueData& data,
                    const std::optional<std::string>& name)
        : m_database(database),
          m_tables(database.GetUserTableNames()),
          m_data(data),
          m_name(name) {}

    void read() {
        readInformation();
        if (m_data.catalogue == nullptr)
            m_data.catalogue = &personalCatalogue();
        readUnits();
        for (const SectionFamily& family : m_data.catalogue->families)
            if (hasTable(family.table))
                readFamily(family);
        readProvenance(m_database, m_data, m_name ? Wanted::RowsRead : Wanted::All);
        indexNames();
    }

private:
    bool hasTable(std::string_view name) const {
        return std::ranges::any_of(m_tables, [name](const CString& table) {
            return dbsection::EqualNoCase(table.View(), name);
        });
    }

    void readInformation() {
        constexpr int Fields = 5;
        bool isKnown = false;
        if (hasTable("DBInfo"))
            forEachRow(m_database, "DBInfo", [&](const CSectionRecordset& rows) {
                if (rows.GetFieldCount() < Fields)
                    return;
                isKnown = true;
                m_data.title = textAt(rows, 0);
                m_data.standard = textAt(rows, 1);
                m_data.layoutVersion = knownLayoutVersion(textAt(rows, 3));
            });
        if (!isKnown)
            fail(m_data.path, SectionError::NotADatabase,
                 "this is no catalogue, but maybe another program's database: it has no catalogue "
                 "information (table \"DBInfo\"); name another file.");
    }

    const SectionCatalogue& personalCatalogue() const {
        for (const SectionCatalogue& catalogue : GetCatalogues())
            if (*catalogue.stem == '\0' && m_data.title == catalogue.name)
                return catalogue;
        fail(m_data.path, SectionError::NotADatabase,
             "this is the catalogue \"" + m_data.title +
                 "\", not a file of user tables or generic shapes.");
    }

    int knownLayoutVersion(const std::string& version) const {
        for (int known = OldestCatalogueLayoutVersion; known <= CatalogueLayoutVersion; ++known)
            if (version == std::to_string(known))
                return known;
        fail(m_data.path, SectionError::NotADatabase,
             "its layout version is " + version + ", expected " +
                 std::to_string(CatalogueLayoutVersion) +
                 "; use the version of this library that made it.");
    }

    /// Of two rows for one table neither counts.
    void readUnits() {
        if (!hasTable("Field Units"))
            return;
        forEachRow(m_database, "Field Units", [&](const CSectionRecordset& rows) {
            Units units;
            for (int column = 1; column < rows.GetFieldCount(); ++column)
                units.push_back(textAt(rows, column));
            const auto [place, isFirst] =
                m_units.try_emplace(dbsection::UpperCase(textAt(rows, 0)));
            place->second = isFirst ? std::move(units) : Units();
        });
    }

    void readFamily(const SectionFamily& family) {
        FamilyData& data = m_data.families.emplace_back();
        data.family = &family;
        data.table = family.table;
        try {
            translated(m_data.path, [&] { readTable(data); });
        } catch (const Error& error) {
            throw Error(error.number(),
                        "Table \"" + data.table + "\" cannot be read: " + error.what());
        }
    }

    void readTable(FamilyData& data) {
        CSectionRecordset rows(&m_database);
        rows.Open(
            CSectionRecordset::Snapshot,
            ("Select * From [" + data.table + "]" + conditionOn(data) + " ORDER BY 1").c_str());
        readColumns(rows, data);
        for (; !rows.IsEOF(); rows.MoveNext())
            readRow(rows, data);
    }

    /// Those of the layout, which stand at its places, and then whatever the table has besides.
    void readColumns(const CSectionRecordset& rows, FamilyData& data) const {
        std::vector<CSectionFieldInfo> fields(static_cast<std::size_t>(rows.GetFieldCount()));
        for (std::size_t i = 0; i < fields.size(); ++i)
            rows.GetFieldInfo(static_cast<int>(i), fields[i]);
        if (fields.size() < BookkeepingColumns)
            fail(m_data.path, SectionError::NoSuchItem,
                 "table \"" + data.table + "\" has " + std::to_string(fields.size()) +
                     " columns; a table of sections begins with RECNO, Name and VessaName.");
        const SectionLayout& layout = GetSectionLayout(data.family->layout);
        if (!isOfJoists(*data.family))
            data.layoutColumns = countLayoutColumns(fields, layout, data.table);
        for (std::size_t place = BookkeepingColumns; place < fields.size(); ++place) {
            const std::size_t i = place - BookkeepingColumns;
            const LayoutColumn* known =
                i < data.layoutColumns ? &layout.columns[i] : findColumn(layout, fields[place]);
            data.data.push_back(columnOf(fields[place], known, unitOf(data.table, place)));
            data.columns.push_back(data.data.back().column);
        }
    }

    /// Of the rows of a family that are wanted. Names are searched where indexes hold them.
    std::string conditionOn(const FamilyData& data) const {
        std::string condition;
        if (data.family->layout == LayoutId::Joist)
            condition = " WHERE [SeriesID] = " + std::to_string(data.family->sectionType);
        if (m_name) {
            const std::string rows = "Select [RECNO] From [" + data.table + "] Where UPPER([";
            const std::string isName = "]) = " + inQuotes(dbsection::UpperCase(*m_name));
            condition += (condition.empty() ? " WHERE" : " AND") +
                         (" [RECNO] In (" + rows + "Name" + isName) + " Union " + rows +
                         "VessaName" + isName + ")";
        }
        return condition;
    }

    /// How many of a layout's columns a table has; it may lack those that were added since.
    std::size_t countLayoutColumns(std::span<const CSectionFieldInfo> fields,
                                   const SectionLayout& layout, const std::string& table) const {
        for (std::size_t i = 0; i < layout.columns.size(); ++i) {
            const LayoutColumn& column = layout.columns[i];
            const std::size_t place = BookkeepingColumns + i;
            if (place < fields.size() &&
                dbsection::EqualNoCase(fields[place].m_strName.View(), tableName(column.name)))
                continue;
            if (column.isAdded)
                return i;
            failForColumns(fields, layout, table);
        }
        return layout.columns.size();
    }

    [[noreturn]] void failForColumns(std::span<const CSectionFieldInfo> fields,
                                     const SectionLayout& layout, const std::string& table) const {
        std::string fault = "table \"" + table + "\": its columns are ";
        const char* separator = "";
        for (const CSectionFieldInfo& field : fields) {
            fault.append(separator).append(field.m_strName.View());
            separator = ", ";
        }
        fault += "; expected RECNO, Name, VessaName";
        for (const LayoutColumn& column : layout.columns)
            fault.append(separator).append(tableName(column.name));
        fail(m_data.path, SectionError::NoSuchItem, fault + ".");
    }

    /// How the catalogue's tables name a column of a layout.
    const char* tableName(const char* column) const {
        return m_data.catalogue->index == AmericanColdFormedIndex &&
                       std::string_view("AX") == column
                   ? "Area"
                   : column;
    }

    static const LayoutColumn* findColumn(const SectionLayout& layout,
                                          const CSectionFieldInfo& field) {
        const auto place = std::ranges::find_if(layout.columns, [&](const LayoutColumn& column) {
            return dbsection::EqualNoCase(column.name, field.m_strName.View());
        });
        return place == layout.columns.end() ? nullptr : &*place;
    }

    /// `known`: what the layout says of the column, or null.
    static FamilyColumn columnOf(const CSectionFieldInfo& field, const LayoutColumn* known,
                                 const std::string& unit) {
        const ::Quantity quantity = known != nullptr ? known->quantity
                                    : isText(field)  ? ::Quantity::Text
                                                     : ::Quantity::Number;
        const bool isMeasured = quantity != ::Quantity::Number && quantity != ::Quantity::Angle &&
                                quantity != ::Quantity::Text;
        const auto dimension = dbsection::DimensionOf(unit);
        const std::string name(field.m_strName.View());
        return {{name, unit, quantity, known == nullptr ? "" : known->meaning},
                known == nullptr ? name : known->name,
                isMeasured && dimension ? dbsection::SizeOf(unit) : 0,
                dimension,
                {},
                {}};
    }

    std::string unitOf(const std::string& table, std::size_t place) const {
        const auto units = m_units.find(dbsection::UpperCase(table));
        return units != m_units.end() && place < units->second.size() ? units->second[place]
                                                                      : std::string();
    }

    static void readRow(const CSectionRecordset& rows, FamilyData& data) {
        data.recordNumbers.push_back(
            dbsection::WholeNumber<std::int64_t>(numberAt(rows, IdentifierColumn)));
        data.names.push_back(textAt(rows, NameColumn));
        data.programNames.push_back(textAt(rows, VessaNameColumn));
        int place = BookkeepingColumns;
        for (FamilyColumn& column : data.data) {
            if (column.column.quantity == ::Quantity::Text) {
                column.texts.push_back(rows.GetFieldText(place++));
                continue;
            }
            column.figures.push_back(
                rows.GetFieldNumber(place++).value_or(std::numeric_limits<double>::quiet_NaN()));
        }
    }

    void indexNames() {
        std::vector<PlacesByName::Entry> entries;
        for (std::uint32_t family = 0; family < m_data.families.size(); ++family) {
            const FamilyData& data = m_data.families[family];
            entries.reserve(entries.size() + 2 * data.names.size());
            for (std::uint32_t row = 0; row < data.names.size(); ++row) {
                entries.push_back({data.programNames[row], {family, row}});
                if (!dbsection::EqualNoCase(data.names[row], data.programNames[row]))
                    entries.push_back({data.names[row], {family, row}});
            }
        }
        m_data.index = PlacesByName(entries);
    }

    CSectionDatabase& m_database;
    std::vector<CString> m_tables;
    std::unordered_map<std::string, Units> m_units; ///< by table in upper case
    CatalogueData& m_data;
    const std::optional<std::string>& m_name; ///< nothing: all sections are wanted
};

} // namespace

const FamilyColumn* FamilyData::find(std::string_view name) const {
    const auto place = std::ranges::find_if(data, [name](const FamilyColumn& column) {
        return dbsection::EqualNoCase(column.column.name, name) ||
               dbsection::EqualNoCase(column.layoutName, name);
    });
    return place == data.end() ? nullptr : &*place;
}

CatalogueData readCatalogue(CSectionDatabase& database, int number,
                            const std::optional<std::string>& name) {
    CatalogueData data;
    data.catalogue = FindCatalogue(number);
    data.path = database.GetName().View();
    if (data.catalogue == nullptr && number != PersonalFile)
        fail(data.path, SectionError::NoSuchItem,
             "there is no catalogue " + std::to_string(number) + ".");
    const dbsection::DatabaseTransaction oneMoment(database, dbsection::Purpose::Reading);
    CatalogueReader(database, data, name).read();
    return data;
}

CatalogueData readCatalogue(const std::string& path, int number, std::string_view password,
                            const std::optional<std::string>& name) {
    return translated(path, [&] {
        CSectionDatabase database;
        database.Open(path.c_str(), 0, 1, CSectionDatabase::ConnectText(password));
        return readCatalogue(database, number, name);
    });
}

} // namespace sections
