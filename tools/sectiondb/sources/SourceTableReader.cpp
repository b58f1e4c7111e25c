#include "sources/SourceTableReader.h"

#include "platform/Text.h"
#include "records/SectionNames.h"
#include "sources/SourceUnits.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

namespace dbsection {

namespace {

constexpr const char* NameColumn = "Name";
constexpr const char* VessaNameColumn = "VessaName";

/// Computed figures carry as many digits as published ones at most do.
std::string Digits(double value) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 5);
    return {text.data(), end.ptr};
}

bool MayBeZeroOrLess(Quantity quantity) {
    return quantity == Quantity::Number || quantity == Quantity::Angle;
}

class Reader {
public:
    Reader(const TablePlan& plan, const CsvTable& csv, SourceRules& rules)
        : m_plan(plan),
          m_csv(csv),
          m_rules(rules) {}

    SourceTable Read() {
        CheckColumns();
        if (m_csv.Records().empty())
            throw m_csv.LineError(2, "the line of units is missing");
        const CsvTable::Record& units = m_csv.Records().front();
        CheckUnits(units);
        FindUnits(units);
        SourceTable table =
            MakeSectionTable(m_plan.name, *m_plan.layout, m_plan.areaColumn, m_units);
        for (const CsvTable::Record& record : m_csv.Records().subspan(1))
            table.rows.push_back(ReadRow(record));
        return table;
    }

private:
    std::span<const GeometryParameter> Parameters() const { return m_plan.model->parameters; }

    /// What the figures of a column are; of a column that the table cannot have, an error.
    Quantity QuantityOf(const std::string& column) const {
        if (column == NameColumn || column == VessaNameColumn)
            return Quantity::Text;
        for (const GeometryParameter& parameter : Parameters())
            if (column == parameter.name)
                return parameter.quantity;
        const auto& columns = m_plan.layout->columns;
        const auto place = std::ranges::find(columns, column, &LayoutColumn::name);
        if (place == columns.end())
            throw m_csv.ColumnError(column, "not a column of the layout \"" +
                                                std::string(m_plan.layout->name) + "\"");
        return place->quantity;
    }

    void CheckColumns() const {
        for (const std::string& column : m_csv.Columns())
            QuantityOf(column);
        for (const char* column : {NameColumn, VessaNameColumn})
            if (!m_csv.Has(column))
                throw m_csv.ColumnError(column, "the column is missing");
        for (const LayoutColumn& column : m_plan.layout->columns)
            if (!m_csv.Has(column.name) && !m_plan.model->Computes(column.name))
                throw m_csv.ColumnError(column.name,
                                        "the column is missing, and geometry cannot give it");
        for (const GeometryParameter& parameter : Parameters()) {
            const bool isHere = m_csv.Has(parameter.name);
            const bool isShared = m_plan.parameters.contains(parameter.name);
            if ((isHere && isShared) || (parameter.isRequired && !isHere && !isShared))
                throw m_csv.ColumnError(parameter.name, "the geometry needs this parameter either "
                                                        "here or in _tables.csv");
        }
    }

    void CheckUnits(const CsvTable::Record& units) const {
        for (const std::string& column : m_csv.Columns()) {
            const std::string fault =
                UnitFault(m_csv.RequiredText(units, column), QuantityOf(column));
            if (!fault.empty())
                throw m_csv.Error(units, column, fault);
        }
    }

    /// The unit of every layout column. Columns that are left out follow the table's others: one
    /// that is an area or the like the first such column, a length the first length.
    void FindUnits(const CsvTable::Record& units) {
        std::string length;
        std::string other;
        for (const LayoutColumn& column : m_plan.layout->columns) {
            if (!m_csv.Has(column.name) || !IsPowerOfLength(column.quantity))
                continue;
            std::string& base = column.quantity == Quantity::Length ? length : other;
            const std::string& unit = m_csv.Text(units, column.name);
            if (base.empty())
                base = unit.substr(0, unit.find('^'));
        }
        for (const LayoutColumn& column : m_plan.layout->columns) {
            const bool asLength = column.quantity == Quantity::Length || other.empty();
            m_units.push_back(m_csv.Has(column.name)
                                  ? m_csv.Text(units, column.name)
                                  : UnitOf(column.quantity, asLength ? length : other));
        }
    }

    SourceRow ReadRow(const CsvTable::Record& record) {
        SourceRow row{UniqueName(record, NameColumn, NameFault),
                      UniqueName(record, VessaNameColumn, VessaNameFault),
                      {}};
        const Figures published = Published(record);
        const SectionGeometry geometry = Geometry(record, published);
        for (const JudgedFigure& figure : JudgeFigures(geometry, published))
            CheckFigure(record, row.name, figure);
        const Figures whole = CompleteFigures(geometry, published);
        for (std::size_t i = 0; i < m_units.size(); ++i) {
            const LayoutColumn& column = m_plan.layout->columns[i];
            if (column.quantity == Quantity::Text)
                row.values.emplace_back(m_csv.RequiredText(record, column.name));
            else if (published.contains(column.name))
                row.values.emplace_back(m_csv.Number(record, column.name));
            else
                row.values.emplace_back(
                    *ParseNumber(Digits(whole.at(column.name) / SizeOf(m_units[i]))));
        }
        return row;
    }

    /// A name that no earlier section of the table has, whatever its case.
    std::string UniqueName(const CsvTable::Record& record, const char* column,
                           std::string (*faultOf)(const std::string&)) {
        std::string name = m_csv.RequiredText(record, column);
        if (const std::string fault = faultOf(name); !fault.empty())
            throw m_csv.Error(record, column, "not a name: " + fault);
        const auto [place, isNew] = m_lines.try_emplace({column, UpperCase(name)}, record.line);
        if (!isNew)
            throw m_csv.Error(record, column,
                              "also the name in line " + std::to_string(place->second));
        return name;
    }

    /// The figures of the row, in millimetres.
    Figures Published(const CsvTable::Record& record) const {
        Figures figures;
        for (std::size_t i = 0; i < m_units.size(); ++i) {
            const LayoutColumn& column = m_plan.layout->columns[i];
            if (!m_csv.Has(column.name) || column.quantity == Quantity::Text)
                continue;
            const double figure = m_csv.Number(record, column.name);
            if (figure <= 0 && !MayBeZeroOrLess(column.quantity))
                throw m_csv.Error(record, column.name, "not above zero");
            figures[column.name] = figure * SizeOf(m_units[i]);
        }
        return figures;
    }

    SectionGeometry Geometry(const CsvTable::Record& record, const Figures& published) const {
        Figures parameters = m_plan.parameters;
        for (const GeometryParameter& parameter : Parameters())
            if (m_csv.Has(parameter.name)) {
                const std::string& unit = m_csv.Text(m_csv.Records().front(), parameter.name);
                parameters[parameter.name] = m_csv.Number(record, parameter.name) * SizeOf(unit);
            }
        try {
            return m_plan.model->make(published, parameters);
        } catch (const GeometryError& error) {
            throw m_csv.LineError(record.line, error.what());
        }
    }

    void CheckFigure(const CsvTable::Record& record, const std::string& name,
                     const JudgedFigure& judged) {
        const double deviation = judged.Deviation();
        const std::string fault = m_rules.Fault(m_plan.name, name, judged.column, deviation * 100);
        if (!fault.empty())
            throw m_csv.Error(record, judged.column,
                              fault + "; the section's geometry gives " +
                                  Digits(m_csv.Number(record, judged.column) * (1 + deviation)));
    }

    const TablePlan& m_plan;
    const CsvTable& m_csv;
    SourceRules& m_rules;
    std::vector<std::string> m_units;                           ///< of the layout's columns
    std::map<std::pair<std::string, std::string>, int> m_lines; ///< by column and name
};

} // namespace

SourceTable ReadSourceTable(const TablePlan& plan, const CsvTable& csv, SourceRules& rules) {
    return Reader(plan, csv, rules).Read();
}

} // namespace dbsection
