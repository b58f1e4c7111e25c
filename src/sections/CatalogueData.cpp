#include "sections/CatalogueData.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionException.h"
#include "dataaccess/CSectionRecordset.h"
#include "dataaccess/DatabaseTransaction.h"
#include "platform/Text.h"
#include "sections/Failures.h"
#include "units/UnitText.h"

#include <algorithm>
#include <limits>

namespace sections {
namespace {

using Units = std::vector<std::string>; ///< by column

[[noreturn]] void fail(const std::string& path, SectionError::Number number,
                       const std::string& fault) {
    throw Error(number, path + ": " + fault);
}

std::string textAt(const CSectionRecordset& rows, int column) {
    return std::string(CCrack::strVARIANT(rows.GetFieldValue(column)).View());
}

/// Reads the tables of an open file.
class CatalogueReader {
public:
    CatalogueReader(CSectionDatabase& database, CatalogueData& data)
        : m_database(database),
          m_tables(database.GetUserTableNames()),
          m_data(data) {}

    void read() {
        readInformation();
        if (m_data.catalogue == nullptr)
            m_data.catalogue = &personalCatalogue();
        readUnits();
        for (const SectionFamily& family : m_data.catalogue->families)
            if (isSectionTable(family) && hasTable(family.table))
                readFamily(family);
        indexNames();
    }

private:
    bool hasTable(std::string_view name) const {
        return std::ranges::any_of(m_tables, [name](const CString& table) {
            return dbsection::EqualNoCase(table.View(), name);
        });
    }

    /// The tables of joists are of another kind.
    static bool isSectionTable(const SectionFamily& family) {
        return family.layout != LayoutId::Joist && family.layout != LayoutId::JoistGirder;
    }

    /// Calls `visit` on each row of a table.
    template <class Visit>
    void forEachRow(const char* table, Visit visit) {
        CSectionRecordset rows(&m_database);
        rows.Open(CSectionRecordset::Snapshot,
                  ("Select * From [" + std::string(table) + "]").c_str());
        for (; !rows.IsEOF(); rows.MoveNext())
            visit(rows);
    }

    void readInformation() {
        constexpr int Fields = 5;
        bool isKnown = false;
        if (hasTable("DBInfo"))
            forEachRow("DBInfo", [&](const CSectionRecordset& rows) {
                if (rows.GetFieldCount() < Fields)
                    return;
                isKnown = true;
                m_data.title = textAt(rows, 0);
                m_data.standard = textAt(rows, 1);
                requireLayoutVersion(textAt(rows, 3));
            });
        if (!isKnown)
            fail(m_data.path, SectionError::NotADatabase,
                 "this is no catalogue: it has no catalogue information (table \"DBInfo\"); name "
                 "another file.");
    }

    const SectionCatalogue& personalCatalogue() const {
        for (const SectionCatalogue& catalogue : GetCatalogues())
            if (*catalogue.stem == '\0' && m_data.title == catalogue.name)
                return catalogue;
        fail(m_data.path, SectionError::NotADatabase,
             "this is the catalogue \"" + m_data.title +
                 "\", not a file of a person's own sections.");
    }

    void requireLayoutVersion(const std::string& version) const {
        for (int known = OldestCatalogueLayoutVersion; known <= CatalogueLayoutVersion; ++known)
            if (version == std::to_string(known))
                return;
        fail(m_data.path, SectionError::NotADatabase,
             "its layout version is " + version + ", expected " +
                 std::to_string(CatalogueLayoutVersion) +
                 "; use the version of this library that made it.");
    }

    void readUnits() {
        if (!hasTable("Field Units"))
            return;
        forEachRow("Field Units", [&](const CSectionRecordset& rows) {
            Units& units = m_units[dbsection::UpperCase(textAt(rows, 0))];
            for (int column = 1; column < rows.GetFieldCount(); ++column)
                units.push_back(textAt(rows, column));
        });
    }

    void readFamily(const SectionFamily& family) {
        CSectionRecordset rows(&m_database);
        rows.Open(CSectionRecordset::Snapshot,
                  ("Select * From [" + std::string(family.table) + "]").c_str());
        FamilyData& data = m_data.families.emplace_back();
        data.family = &family;
        data.table = family.table;
        const std::vector<int> places = findColumns(rows, data);
        for (; !rows.IsEOF(); rows.MoveNext())
            readRow(rows, places, data);
    }

    /// Which columns of the table are those of the layout, and fills in what they are.
    std::vector<int> findColumns(const CSectionRecordset& rows, FamilyData& data) const {
        std::vector<int> places;
        const auto& columns = GetSectionLayout(data.family->layout).columns;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const LayoutColumn& column = columns[i];
            const int place = BookkeepingColumns + static_cast<int>(i);
            if (!isColumn(rows, place, column.name)) {
                if (column.isAdded)
                    break;
                fail(m_data.path, SectionError::NoSuchItem,
                     "table \"" + data.table + "\" has no column " + column.name + " at place " +
                         std::to_string(place + 1) + "; it is no table of its layout.");
            }
            places.push_back(place);
            data.columns.push_back(
                {column.name, unitOf(data.table, place), column.quantity, column.meaning});
            data.data.push_back(columnOf(data.columns.back(), i));
        }
        return places;
    }

    static bool isColumn(const CSectionRecordset& rows, int place, std::string_view name) {
        if (place >= rows.GetFieldCount())
            return false;
        CSectionFieldInfo field;
        rows.GetFieldInfo(place, field);
        return dbsection::EqualNoCase(field.m_strName.View(), name);
    }

    std::string unitOf(const std::string& table, int place) const {
        const auto units = m_units.find(dbsection::UpperCase(table));
        const auto column = static_cast<std::size_t>(place);
        return units != m_units.end() && column < units->second.size() ? units->second[column]
                                                                       : std::string();
    }

    static FamilyColumn columnOf(const Column& column, std::size_t place) {
        const bool isMeasured = column.quantity != ::Quantity::Number &&
                                column.quantity != ::Quantity::Angle &&
                                column.quantity != ::Quantity::Text;
        const bool isKnown = dbsection::DimensionOf(column.unit).has_value();
        return {column, place, isMeasured && isKnown ? dbsection::SizeOf(column.unit) : 0, {}, {}};
    }

    void readRow(const CSectionRecordset& rows, const std::vector<int>& places, FamilyData& data) {
        data.recordNumbers.push_back(
            static_cast<std::int64_t>(dbsection::AsNumber(rows.GetFieldValue(IdentifierColumn))));
        data.names.push_back(textAt(rows, NameColumn));
        data.programNames.push_back(textAt(rows, VessaNameColumn));
        for (std::size_t i = 0; i < places.size(); ++i) {
            FamilyColumn& column = data.data[i];
            if (column.column.quantity == ::Quantity::Text) {
                column.texts.push_back(textAt(rows, places[i]));
                continue;
            }
            const COleVariant value = rows.GetFieldValue(places[i]);
            column.figures.push_back(value.vt == VT_NULL ? std::numeric_limits<double>::quiet_NaN()
                                                         : dbsection::AsNumber(value));
        }
    }

    void indexNames() {
        for (std::size_t family = 0; family < m_data.families.size(); ++family) {
            const FamilyData& data = m_data.families[family];
            for (std::size_t row = 0; row < data.names.size(); ++row) {
                m_data.index.emplace(data.programNames[row], Place{family, row});
                if (!dbsection::EqualNoCase(data.names[row], data.programNames[row]))
                    m_data.index.emplace(data.names[row], Place{family, row});
            }
        }
    }

    CSectionDatabase& m_database;
    std::vector<CString> m_tables;
    std::unordered_map<std::string, Units> m_units; ///< by table in upper case
    CatalogueData& m_data;
};

} // namespace

const FamilyColumn* FamilyData::find(std::string_view name) const {
    const auto place = std::ranges::find_if(data, [name](const FamilyColumn& column) {
        return dbsection::EqualNoCase(column.column.name, name);
    });
    return place == data.end() ? nullptr : &*place;
}

std::size_t NameHash::operator()(std::string_view name) const {
    std::size_t hash = 14695981039346656037ULL; // FNV-1a
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(dbsection::ToUpper(c))) * 1099511628211ULL;
    return hash;
}

bool SameName::operator()(std::string_view left, std::string_view right) const {
    return dbsection::EqualNoCase(left, right);
}

CatalogueData readCatalogue(CSectionDatabase& database, int number) {
    CatalogueData data{
        FindCatalogue(number), std::string(database.GetName().View()), {}, {}, {}, {}};
    if (data.catalogue == nullptr && number != PersonalFile)
        fail(data.path, SectionError::NoSuchItem,
             "there is no catalogue " + std::to_string(number) + ".");
    const dbsection::DatabaseTransaction oneMoment(database, dbsection::Purpose::Reading);
    CatalogueReader(database, data).read();
    return data;
}

CatalogueData readCatalogue(const std::string& path, int number, std::string_view password) {
    return translated(path, [&] {
        CSectionDatabase database;
        database.Open(path.c_str(), 0, 1, (";PWD=" + std::string(password)).c_str());
        return readCatalogue(database, number);
    });
}

} // namespace sections
