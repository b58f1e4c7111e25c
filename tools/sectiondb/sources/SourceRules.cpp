#include "sources/SourceRules.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace dbsection {

namespace {

std::string Percent(double value) {
    std::array<char, 400> text{}; // room for the largest double
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 2);
    return std::string(text.data(), end.ptr) + " %";
}

} // namespace

SourceRules::List::List(CsvTable csv, const std::vector<std::string>& keys)
    : m_csv(std::move(csv)) {
    for (const CsvTable::Record& record : m_csv.Records()) {
        std::vector<std::string> key;
        key.reserve(keys.size());
        for (const std::string& column : keys)
            key.push_back(m_csv.RequiredText(record, column));
        if (!m_records.try_emplace(std::move(key), &record).second)
            throw m_csv.LineError(record.line, "a rule for the same figures stands further up");
    }
}

const CsvTable::Record* SourceRules::List::Use(const std::vector<std::string>& key) {
    const auto place = m_records.find(key);
    if (place == m_records.end())
        return nullptr;
    m_used.insert(place->second);
    return place->second;
}

void SourceRules::List::RequireAllUsed() const {
    for (const CsvTable::Record& record : m_csv.Records())
        if (!m_used.contains(&record))
            throw m_csv.LineError(record.line,
                                  "no figure is checked by this rule; correct or remove it");
}

SourceRules::SourceRules(CsvTable tolerances, CsvTable exceptions)
    : m_tolerances(std::move(tolerances), {"Table", "Column"}),
      m_exceptions(std::move(exceptions), {"Table", "Name", "Column"}) {
    for (const CsvTable::Record& record : m_exceptions.Csv().Records())
        m_exceptions.Csv().RequiredText(record, "Reason");
}

std::string SourceRules::Fault(const std::string& table, const std::string& name,
                               const std::string& column, double percent) {
    const CsvTable::Record* const rule = m_tolerances.Use({table, column});
    if (rule == nullptr)
        throw m_tolerances.Csv().LineError(0, "no tolerance for table " + table + ", column " +
                                                  column + "; add one");
    const double allowed = m_tolerances.Csv().Number(*rule, "Percent");
    const bool deviates = !(std::abs(percent) <= allowed);
    const CsvTable::Record* const exception = m_exceptions.Use({table, name, column});
    if (exception != nullptr && !deviates)
        throw m_exceptions.Csv().LineError(exception->line,
                                           "this figure is within its tolerance of " +
                                               Percent(allowed) + "; remove the exception");
    if (exception != nullptr || !deviates)
        return "";
    return Percent(std::abs(percent)) + (percent > 0 ? " too small" : " too large") + ", " +
           Percent(allowed) + " is allowed";
}

void SourceRules::RequireAllUsed() const {
    m_tolerances.RequireAllUsed();
    m_exceptions.RequireAllUsed();
}

} // namespace dbsection
