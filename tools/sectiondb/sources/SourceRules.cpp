#include "sources/SourceRules.h"

namespace dbsection {

SourceRules::List::List(CsvTable itsCsv, const std::vector<std::string>& keys)
    : csv(std::move(itsCsv)) {
    std::set<std::vector<std::string>> known;
    for (const CsvTable::Record& record : csv.Records()) {
        std::vector<std::string> key;
        key.reserve(keys.size());
        for (const std::string& column : keys)
            key.push_back(csv.RequiredText(record, column));
        if (!known.insert(std::move(key)).second)
            throw csv.LineError(record.line, "a rule for the same figures stands further up");
        BoundIn(record);
        byFamily[csv.Text(record, "Family")].push_back(&record);
    }
}

std::vector<const CsvTable::Record*> SourceRules::List::Of(const std::string& family) const {
    const auto place = byFamily.find(family);
    return place == byFamily.end() ? std::vector<const CsvTable::Record*>() : place->second;
}

DeviationBound SourceRules::List::BoundIn(const CsvTable::Record& record) const {
    const double percent = csv.Number(record, "Percent");
    if (!(percent > 0 && percent < 100))
        throw csv.Error(record, "Percent", "not a bound: above 0 and below 100");
    return {percent / 100, csv.RequiredText(record, "Reason")};
}

SourceRules::SourceRules(SourceFolder& folder)
    : m_tolerances(folder.Read("_tolerances.csv"), {"Family", "Column"}),
      m_exceptions(folder.Read("_exceptions.csv"), {"Family", "Name", "Column"}) {}

FigureRules SourceRules::Of(const std::string& family) const {
    FigureRules rules;
    for (const auto* record : m_tolerances.Of(family))
        rules.columns[m_tolerances.csv.Text(*record, "Column")].tolerance =
            m_tolerances.BoundIn(*record);
    for (const auto* record : m_exceptions.Of(family))
        rules.exceptions[{m_exceptions.csv.Text(*record, "Name"),
                          m_exceptions.csv.Text(*record, "Column")}] =
            m_exceptions.BoundIn(*record);
    return rules;
}

std::string SourceRules::TextOf(const std::string& family) const {
    std::string text;
    for (const List* list : {&m_tolerances, &m_exceptions})
        for (const auto* record : list->Of(family))
            for (const std::string& field : record->fields)
                text += field + "\n";
    return text;
}

void SourceRules::RequireNeeded(const std::string& family, const NeededRules& needed) const {
    for (const auto* record : m_tolerances.Of(family))
        if (!needed.tolerances.contains(m_tolerances.csv.Text(*record, "Column")))
            throw m_tolerances.csv.LineError(
                record->line, "no figure needs this tolerance; correct or remove it");
    for (const auto* record : m_exceptions.Of(family))
        if (!needed.exceptions.contains(
                {m_exceptions.csv.Text(*record, "Name"), m_exceptions.csv.Text(*record, "Column")}))
            throw m_exceptions.csv.LineError(
                record->line, "no figure needs this exception; correct or remove it");
}

void SourceRules::RequireFamilies(const std::set<std::string, std::less<>>& families) const {
    for (const List* list : {&m_tolerances, &m_exceptions})
        for (const auto& [family, records] : list->byFamily)
            if (!families.contains(family))
                throw list->csv.Error(*records.front(), "Family",
                                      "_families.csv does not name this family");
}

} // namespace dbsection
