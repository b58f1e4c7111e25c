#include "sources/Provenance.h"

#include "records/ProvenanceTables.h"
#include "records/RowMark.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace dbsection {
namespace {

SourceColumn Text(const char* name) { return {name, SectionField::Text, {}, false, false}; }
SourceColumn LongText(const char* name) { return {name, SectionField::Memo, {}, false, false}; }
SourceColumn Number(const char* name) { return {name, SectionField::Double, {}, false, false}; }

/// Nothing for an empty text.
SourceValue TextOrNothing(std::string text) {
    return text.empty() ? SourceValue() : SourceValue(std::move(text));
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// "radius=15 toe=0.6".
std::string ParameterText(const Figures& parameters) {
    constexpr int Digits = 12;
    std::vector<std::string> words;
    for (const auto& [name, value] : parameters) {
        std::array<char, 32> number{};
        const auto end = std::to_chars(number.data(), number.data() + number.size(), value,
                                       std::chars_format::general, Digits);
        words.push_back(name + "=" + std::string(number.data(), end.ptr));
    }
    return Joined(words);
}

/// The columns of a row whose printed figures are mended.
std::vector<std::string> MendedColumns(const SourceFamily& family, const FamilyRow& row) {
    std::vector<std::string> columns;
    for (const Correction& correction : family.corrections)
        if (correction.name == row.name && correction.IsMended() &&
            std::ranges::find(family.layout->columns, correction.column, &LayoutColumn::name) !=
                family.layout->columns.end())
            columns.push_back(correction.column);
    return columns;
}

double MarkOf(const SourceRow& values) {
    RowMark mark;
    for (const SourceValue& value : values)
        if (const auto* number = std::get_if<double>(&value))
            mark.Add(*number);
        else if (const auto* text = std::get_if<std::string>(&value))
            mark.Add(*text);
        else
            mark.AddNothing();
    return mark.Value();
}

} // namespace

Provenance::Provenance()
    : m_families{provenance::Families,
                 {Text("Family"), LongText("Standard"), LongText("Remark"), LongText("LeftOut"),
                  Text("Geometry"), Text("Parameters"), Text("NameSizes"), Text("Production")},
                 {},
                 {}},
      m_columns{provenance::Columns,
                {Text("Family"), Text("Column"), Text("Unit"), Text("Steps"), Number("Percent"),
                 LongText("Reason")},
                {},
                {}},
      m_exceptions{
          provenance::Exceptions,
          {Text("Family"), Text("Name"), Text("Column"), Number("Percent"), LongText("Reason")},
          {},
          {}},
      m_sections{provenance::Sections,
                 {Text("TableName"), Number("Record"), Text("Family"), Text("Computed"),
                  Text("Corrected"), Text("Parameters"), Number("Mark")},
                 {},
                 {}},
      m_aliases{provenance::Aliases,
                {Text("TableName"), Number("Record"), Text("Alias"), Number("Superseded")},
                {{"UPPER([Alias])"}},
                {}} {}

void Provenance::AddFamily(const SourceFamily& family) {
    if (!m_known.insert(family.name).second)
        return;
    m_families.rows.push_back({family.name, family.standard, family.remark,
                               TextOrNothing(LeftOutInShort(family.corrections)),
                               TextOrNothing(family.model == nullptr ? "" : family.model->name),
                               TextOrNothing(ParameterText(family.parameters)),
                               TextOrNothing(Joined(family.nameSizes)),
                               TextOrNothing(family.production)});
    for (std::size_t i = 0; i < family.units.size(); ++i) {
        const std::string column = family.layout->columns[i].name;
        if (const auto rule = family.rules.columns.find(column); rule != family.rules.columns.end())
            m_columns.rows.push_back({family.name, column, family.units[i],
                                      rule->second.steps.Text(), 100 * rule->second.tolerance.share,
                                      TextOrNothing(rule->second.tolerance.reason)});
    }
}

void Provenance::Add(const PlacedRow& row, const SourceRow& values) {
    AddFamily(row.family);
    const auto record = static_cast<double>(row.record);
    m_sections.rows.push_back(
        {row.table, record, row.family.name, TextOrNothing(Joined(row.computed)),
         TextOrNothing(Joined(MendedColumns(row.family, row.source))),
         TextOrNothing(ParameterText(row.source.parameters)), MarkOf(values)});
    for (const SourceAlias& alias : row.aliases)
        m_aliases.rows.push_back({row.table, record, alias.name, alias.isSuperseded ? 1.0 : 0.0});
    const auto& exceptions = row.family.rules.exceptions;
    for (auto rule = exceptions.lower_bound({row.source.name, ""});
         rule != exceptions.end() && rule->first.first == row.source.name; ++rule)
        m_exceptions.rows.push_back({row.family.name, values.front(), rule->first.second,
                                     100 * rule->second.share, rule->second.reason});
}

std::vector<SourceTable> Provenance::Tables() && {
    std::vector<SourceTable> tables;
    if (!m_sections.rows.empty())
        for (SourceTable* table : {&m_families, &m_columns, &m_exceptions, &m_sections, &m_aliases})
            tables.push_back(std::move(*table));
    return tables;
}

std::string DescribeFigures(const SourceFamily& family) {
    std::vector<std::string> published;
    std::vector<std::string> computed;
    std::vector<std::string> partly;
    for (std::size_t i = 0; i < family.units.size(); ++i) {
        const LayoutColumn& column = family.layout->columns[i];
        const auto count = std::ranges::count_if(
            family.rows, [i](const FamilyRow& row) { return !row.printed[i].empty(); });
        const bool isComputed = family.model != nullptr && family.model->Computes(column.name);
        if (count == std::ssize(family.rows))
            published.emplace_back(column.name);
        else if (count > 0)
            partly.emplace_back(column.name);
        else if (isComputed)
            computed.emplace_back(column.name);
    }
    const auto list = [](const char* title, const std::vector<std::string>& columns) {
        return columns.empty() ? std::string() : std::string(title) + Joined(columns) + ".";
    };
    const std::string leftOut = LeftOutInShort(family.corrections);
    return family.standard + ", " + std::to_string(family.rows.size()) + " rows." +
           list(" Published: ", published) + list(" Published of some rows: ", partly) +
           list(" Computed: ", computed) + " " + family.remark +
           (family.remark.ends_with('.') ? "" : ".") +
           (leftOut.empty() ? "" : " Left out: " + leftOut + ".");
}

} // namespace dbsection
