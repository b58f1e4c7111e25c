#include "sections/ProvenanceReader.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "records/ProvenanceTables.h"
#include "records/RowMark.h"
#include "sections/TableRows.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

namespace sections {
namespace {

/// The next item of a list that is separated by blanks, which is taken off it.
std::string_view takeItem(std::string_view& list, char separator = ' ') {
    const std::size_t end = std::min(list.find(separator), list.size());
    const std::string_view item = list.substr(0, end);
    list.remove_prefix(std::min(end + 1, list.size()));
    return item;
}

double markOf(const FamilyData& family, std::size_t row) {
    dbsection::RowMark mark;
    mark.Add(family.names[row]);
    mark.Add(family.programNames[row]);
    for (std::size_t i = 0; i < family.layoutColumns; ++i) {
        const FamilyColumn& column = family.data[i];
        const bool isText = !column.texts.empty();
        if (isText ? !column.texts[row].has_value() : std::isnan(column.figures[row]))
            mark.AddNothing();
        else if (isText)
            mark.Add(*column.texts[row]);
        else
            mark.Add(column.figures[row]);
    }
    return mark.Value();
}

class Reader {
public:
    Reader(CSectionDatabase& database, CatalogueData& data) : m_database(database), m_data(data) {}

    void read(Wanted wanted) {
        namespace tables = dbsection::provenance;
        if (!hasTable(tables::Families))
            return;
        const bool isAll = wanted == Wanted::All;
        const std::string ofRows = isAll ? "1" : conditionOnRows();
        const std::string ofFamilies = isAll ? "1" : conditionOnFamilies(ofRows);
        const auto read = [&](const char* table, const std::string& condition, auto readRow) {
            forEachRow(
                m_database, table, [&](const Row& row) { (this->*readRow)(row); }, condition);
        };
        read(tables::Families, ofFamilies, &Reader::readOrigin);
        read(tables::Columns, ofFamilies, &Reader::readRule);
        read(tables::Exceptions, ofFamilies, &Reader::readException);
        read(tables::Sections, ofRows, &Reader::readSection);
        read(tables::Aliases, ofRows, &Reader::readAlias);
    }

private:
    using Row = CSectionRecordset; ///< the current one, of a hidden table

    /// Of hidden rows that tell of the sections that were read.
    std::string conditionOnRows() const {
        std::string condition = "0";
        for (const FamilyData& family : m_data.families)
            for (const std::int64_t record : family.recordNumbers)
                condition += " Or ([TableName] = " + inQuotes(family.table) +
                             " And [Record] = " + std::to_string(record) + ")";
        return condition;
    }

    /// Of hidden rows that tell of these sections' families.
    std::string conditionOnFamilies(const std::string& ofRows) {
        std::set<std::string> families;
        forEachRow(
            m_database, dbsection::provenance::Sections,
            [&](const Row& row) { families.insert(textAt(row, 2)); }, ofRows);
        std::string condition = "0";
        for (const std::string& family : families)
            condition += " Or [Family] = " + inQuotes(family);
        return condition;
    }

    bool hasTable(std::string_view name) const {
        for (int index = 0; index < m_database.GetTableDefCount(); ++index) {
            CSectionTableDefInfo info;
            m_database.GetTableDefInfo(index, info);
            if (dbsection::EqualNoCase(info.m_strName.View(), name))
                return true;
        }
        return false;
    }

    /// The origin of a name, or null.
    Origin* find(const std::string& name) {
        const auto place = std::ranges::find(m_data.origins, name, &Origin::name);
        return place == m_data.origins.end() ? nullptr : &*place;
    }

    void readOrigin(const Row& row) {
        Origin& origin = m_data.origins.emplace_back();
        origin.name = textAt(row, 0);
        origin.standard = textAt(row, 1);
        origin.remark = textAt(row, 2);
        origin.leftOut = textAt(row, 3);
        origin.model = dbsection::FindGeometryModel(textAt(row, 4));
        origin.parameters = parametersIn(textAt(row, 5));
        const std::string sizes = textAt(row, 6);
        for (std::string_view list = sizes; !list.empty();)
            origin.nameSizes.emplace_back(takeItem(list));
        constexpr int Production = 7;
        if (row.GetFieldCount() > Production)
            origin.production = textAt(row, Production);
    }

    void readRule(const Row& row) {
        Origin* const origin = find(textAt(row, 0));
        if (origin == nullptr)
            return;
        const std::string column = textAt(row, 1);
        origin->units[column] = textAt(row, 2);
        origin->rules.columns[column] = {dbsection::PrintingSteps::FromText(textAt(row, 3)),
                                         {numberAt(row, 4) / 100, textAt(row, 5)}};
    }

    void readException(const Row& row) {
        if (Origin* const origin = find(textAt(row, 0)))
            origin->rules.exceptions[{textAt(row, 1), textAt(row, 2)}] = {numberAt(row, 3) / 100,
                                                                          textAt(row, 4)};
    }

    /// The section that a row of a hidden table tells of, or nothing.
    struct Found {
        FamilyData* family = nullptr;
        std::size_t row = 0;
    };
    Found findSection(const Row& row) {
        const std::string table = textAt(row, 0);
        const auto record = dbsection::WholeNumber<std::int64_t>(numberAt(row, 1));
        const auto family = std::ranges::find(m_data.families, table, &FamilyData::table);
        if (family == m_data.families.end())
            return {};
        const std::vector<std::int64_t>& records = family->recordNumbers; // in their order
        const auto place = std::ranges::lower_bound(records, record);
        if (place == records.end() || *place != record)
            return {};
        return {&*family, static_cast<std::size_t>(place - records.begin())};
    }

    void readSection(const Row& row) {
        const auto [family, place] = findSection(row);
        const Origin* const origin = find(textAt(row, 2));
        if (family == nullptr || origin == nullptr)
            return;
        family->origins.resize(family->names.size());
        family->origins[place] =
            RowOrigin{static_cast<std::size_t>(origin - m_data.origins.data()), textAt(row, 3),
                      textAt(row, 4), textAt(row, 5), numberAt(row, 6) != markOf(*family, place)};
    }

    void readAlias(const Row& row) {
        if (const auto [family, place] = findSection(row); family != nullptr)
            family->aliases[place].push_back({textAt(row, 2), numberAt(row, 3) != 0});
    }

    CSectionDatabase& m_database;
    CatalogueData& m_data;
};

} // namespace

void readProvenance(CSectionDatabase& database, CatalogueData& data, Wanted wanted) {
    Reader(database, data).read(wanted);
}

dbsection::Figures parametersIn(std::string_view text) {
    dbsection::Figures parameters;
    while (!text.empty()) {
        std::string_view figure = takeItem(text);
        const std::string_view name = takeItem(figure, '=');
        parameters[std::string(name)] = dbsection::LeadingNumber<double>(figure);
    }
    return parameters;
}

bool isListed(std::string_view list, std::string_view item) {
    while (!list.empty())
        if (takeItem(list) == item)
            return true;
    return false;
}

} // namespace sections
