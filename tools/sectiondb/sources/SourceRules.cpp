#include "sources/SourceRules.h"

#include <fmt/format.h>

namespace dbsection {

SourceRules::List::List(CsvTable itsCsv, std::string itsKind, const std::vector<std::string>& keys)
    : csv(std::move(itsCsv)),
      kind(std::move(itsKind)) {
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
    : m_tolerances(folder.Read("_tolerances.csv"), "tolerance", {"Family", "Column"}),
      m_exceptions(folder.Read("_exceptions.csv"), "exception", {"Family", "Name", "Column"}) {}

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

template <class Needed, class Key>
void SourceRules::List::RequireNeeded(const CsvTable::Record& record, const Needed& needed,
                                      const Key& key) const {
    constexpr double Widest = 3; // times the greatest deviation
    const auto deviation = needed.find(key);
    if (deviation == needed.end())
        throw csv.LineError(record.line, "no figure needs this " + kind + "; correct or remove it");
    if (BoundIn(record).share > Widest * deviation->second)
        throw csv.Error(record, "Percent",
                        fmt::format("no figure is further away than {:.2g} %; lower the bound",
                                    100 * deviation->second));
}

void SourceRules::RequireNeeded(const std::string& family, const NeededRules& needed) const {
    for (const auto* record : m_tolerances.Of(family))
        m_tolerances.RequireNeeded(*record, needed.tolerances,
                                   m_tolerances.csv.Text(*record, "Column"));
    for (const auto* record : m_exceptions.Of(family))
        m_exceptions.RequireNeeded(*record, needed.exceptions,
                                   std::pair(m_exceptions.csv.Text(*record, "Name"),
                                             m_exceptions.csv.Text(*record, "Column")));
}

void SourceRules::RequireFamilies(const std::set<std::string, std::less<>>& families) const {
    for (const List* list : {&m_tolerances, &m_exceptions})
        for (const auto& [family, records] : list->byFamily)
            if (!families.contains(family))
                throw list->csv.Error(*records.front(), "Family",
                                      "_families.csv does not name this family");
}

} // namespace dbsection
