#include "sources/FamilyReader.h"

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "records/SectionNames.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <utility>

namespace dbsection {
namespace {

constexpr const char* NameColumn = "Name";
constexpr const char* VessaNameColumn = "VessaName";
constexpr const char* AliasColumn = "Alias";

std::string Percent(double share) {
    std::array<char, 400> text{}; // room for the largest double
    const auto end = std::to_chars(text.data(), text.data() + text.size(), share * 100,
                                   std::chars_format::fixed, 2);
    return std::string(text.data(), end.ptr) + " %";
}

class Reader {
public:
    Reader(const CsvTable& csv, SourceFamily& family)
        : m_csv(csv),
          m_family(family),
          m_layout(family.layout->columns) {}

    NeededRules Read() {
        CheckColumns();
        if (m_csv.Records().empty())
            throw m_csv.LineError(2, "the line of units is missing");
        CheckUnits();
        FindUnits();
        const auto records = m_csv.Records().subspan(1);
        if (records.empty())
            throw m_csv.LineError(0, "there are no sections below the line of units");
        for (const CsvTable::Record& record : records)
            m_family.rows.push_back(ReadRow(record));
        LearnPrinting();
        auto record = records.begin();
        for (FamilyRow& row : m_family.rows)
            CheckRow(*record++, row);
        return std::move(m_needed);
    }

private:
    std::span<const GeometryParameter> Parameters() const {
        return m_family.model == nullptr ? std::span<const GeometryParameter>()
                                         : m_family.model->parameters;
    }

    bool IsComputed(const char* column) const {
        return m_family.model != nullptr && m_family.model->Computes(column);
    }

    /// What a column is; of one that the family cannot have, an error.
    Quantity QuantityOf(const std::string& column) const {
        if (column == NameColumn || column == VessaNameColumn || column == AliasColumn)
            return Quantity::Text;
        for (const GeometryParameter& parameter : Parameters())
            if (column == parameter.name)
                return parameter.quantity;
        const auto place = std::ranges::find(m_layout, column, &LayoutColumn::name);
        if (place == m_layout.end())
            throw m_csv.ColumnError(column, "not a column of the layout \"" +
                                                std::string(m_family.layout->name) +
                                                "\", nor a parameter of the geometry");
        return place->quantity;
    }

    void CheckColumns() const {
        for (const std::string& column : m_csv.Columns())
            QuantityOf(column);
        for (const char* column : {NameColumn, VessaNameColumn})
            if (!m_csv.Has(column))
                throw m_csv.ColumnError(column, "the column is missing");
        for (const LayoutColumn& column : m_layout)
            if (!m_csv.Has(column.name) && !MayBeEmpty(column))
                throw m_csv.ColumnError(column.name,
                                        "the column is missing, and geometry cannot give it");
    }

    bool MayBeEmpty(const LayoutColumn& column) const {
        return column.MayBeNull() || IsComputed(column.name);
    }

    const CsvTable::Record& Units() const { return m_csv.Records().front(); }

    void CheckUnits() const {
        for (const std::string& column : m_csv.Columns()) {
            const std::string fault =
                UnitFault(m_csv.RequiredText(Units(), column), QuantityOf(column));
            if (!fault.empty())
                throw m_csv.Error(Units(), column, fault);
        }
    }

    /// The unit of every layout column. Those that are left out are in the system of units that the
    /// family's lengths are in.
    void FindUnits() {
        const auto length = std::ranges::find_if(m_layout, [this](const LayoutColumn& column) {
            return column.quantity == Quantity::Length && m_csv.Has(column.name);
        });
        const std::string unit =
            length == m_layout.end() ? std::string() : m_csv.Text(Units(), length->name);
        m_family.system = FindUnitSystemOfLength(unit);
        if (m_family.system == nullptr)
            throw m_csv.LineError(2, "no system of units has its lengths in \"" + unit + "\"");
        for (const LayoutColumn& column : m_layout)
            m_family.units.push_back(m_csv.Has(column.name)
                                         ? m_csv.Text(Units(), column.name)
                                         : UnitOf(column.quantity, *m_family.system));
    }

    FamilyRow ReadRow(const CsvTable::Record& record) {
        FamilyRow row{m_csv.RequiredText(record, NameColumn),
                      m_csv.RequiredText(record, VessaNameColumn),
                      Aliases(record),
                      {},
                      {}};
        CheckName(record, NameColumn, row.name, NameFault);
        CheckName(record, VessaNameColumn, row.vessaName, VessaNameFault);
        for (const LayoutColumn& column : m_layout)
            row.printed.push_back(Printed(record, column));
        for (const GeometryParameter& parameter : Parameters())
            if (m_csv.Has(parameter.name) && !m_csv.Text(record, parameter.name).empty())
                row.parameters[parameter.name] = m_csv.Number(record, parameter.name) *
                                                 SizeOf(m_csv.Text(Units(), parameter.name));
        return row;
    }

    /// No other section of the family has the name, whatever its case. Alloys are told apart by
    /// their product and thickness.
    void CheckName(const CsvTable::Record& record, const char* column, const std::string& name,
                   std::string (*faultOf)(const std::string&)) {
        if (const std::string fault = faultOf(name); !fault.empty())
            throw m_csv.Error(record, column, "not a name: " + fault);
        if (m_family.layout->id == LayoutId::AluminiumAlloy)
            return;
        const auto [place, isNew] = m_lines.try_emplace({column, UpperCase(name)}, record.line);
        if (!isNew)
            throw m_csv.Error(record, column,
                              "also the name in line " + std::to_string(place->second));
    }

    std::vector<SourceAlias> Aliases(const CsvTable::Record& record) const {
        std::vector<SourceAlias> aliases;
        if (!m_csv.Has(AliasColumn))
            return aliases;
        std::string_view rest = m_csv.Text(record, AliasColumn);
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            const bool isSuperseded = rest.starts_with('~');
            const std::size_t begin = isSuperseded ? 1 : 0;
            const std::string name(rest.substr(begin, end - begin));
            if (const std::string fault = NameFault(name); !fault.empty())
                throw m_csv.Error(record, AliasColumn,
                                  std::string("\"").append(name).append("\": not a name: ") +
                                      fault);
            aliases.push_back({name, isSuperseded});
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return aliases;
    }

    /// The figure or text of a cell, checked.
    std::string Printed(const CsvTable::Record& record, const LayoutColumn& column) const {
        if (!m_csv.Has(column.name) ||
            (m_csv.Text(record, column.name).empty() && MayBeEmpty(column)))
            return "";
        if (column.quantity == Quantity::Text)
            return m_csv.RequiredText(record, column.name);
        const double figure = m_csv.Number(record, column.name);
        if (!column.Allows(figure))
            throw m_csv.Error(record, column.name, "not above zero");
        const std::string& printed = m_csv.Text(record, column.name);
        if (printed.find_first_of("eE") != std::string::npos) // its last digit would tell nothing
            throw m_csv.Error(record, column.name, "not a decimal, as figures are printed");
        return printed;
    }

    void LearnPrinting() {
        for (std::size_t i = 0; i < m_layout.size(); ++i)
            if (m_layout[i].quantity != Quantity::Text)
                for (const FamilyRow& row : m_family.rows)
                    if (!row.printed[i].empty())
                        m_family.rules.columns[m_layout[i].name].steps.Learn(row.printed[i]);
    }

    void CheckRow(const CsvTable::Record& record, FamilyRow& row) {
        const Figures published = m_family.PublishedFigures(row);
        try {
            const auto geometry = m_family.GeometryOf(row, published);
            for (const SourceFamily::Judged& judged : m_family.Judge(row, geometry, published))
                CheckFigure(record, row, judged);
            if (geometry)
                row.computed = geometry->figures;
        } catch (const GeometryError& error) {
            throw m_csv.LineError(record.line, error.what());
        }
    }

    void CheckFigure(const CsvTable::Record& record, const FamilyRow& row,
                     const SourceFamily::Judged& judged) {
        const FigureVerdict& verdict = judged.verdict;
        const char* const column = m_layout[judged.column].name;
        const double deviation = std::abs(verdict.deviation);
        if (verdict.exception != nullptr && !verdict.IsWithinTolerance())
            m_needed.exceptions[{row.name, column}] = deviation;
        else if (deviation > verdict.printing)
            m_needed.tolerances[column] = std::max(m_needed.tolerances[column], deviation);
        if (verdict.IsAccepted())
            return;
        const double allowed = verdict.exception != nullptr ? verdict.exception->share
                                                            : verdict.printing + verdict.tolerance;
        throw m_csv.Error(
            record, column,
            Percent(deviation) + (verdict.deviation > 0 ? " too small" : " too large") + ", " +
                Percent(allowed) + " is allowed; the section's geometry gives " +
                TextOfDigits(m_csv.Number(record, column) * (1 + verdict.deviation), 5));
    }

    const CsvTable& m_csv;
    SourceFamily& m_family;
    std::span<const LayoutColumn> m_layout;
    std::map<std::pair<std::string, std::string>, int> m_lines; ///< by column and name
    NeededRules m_needed;
};

} // namespace

void ReadFamily(const CsvTable& csv, const SourceRules& rules, SourceFamily& family) {
    family.rules = rules.Of(family.name);
    rules.RequireNeeded(family.name, Reader(csv, family).Read());
}

} // namespace dbsection
