#include "sections/Draft.h"

#include "geometry/RowJudgement.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "sections/Failures.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace sections {
namespace {

using dbsection::Figures;
using dbsection::GeometryParameter;
using dbsection::RefusedFigure;
using dbsection::UnitNames;

/// More digits tell nothing: no figure is published with more.
constexpr int ComputedDigits = 5;

std::string shown(double figure, const std::string& unit) {
    return dbsection::TextOfDigits(figure, ComputedDigits) + (unit.empty() ? "" : " " + unit);
}

/// The column of figures that has the name, or null.
const Column* findColumn(const Family& family, std::string_view name) {
    const auto& columns = family.columns();
    const auto place = std::ranges::find_if(columns, [&](const Column& column) {
        return column.quantity != ::Quantity::Text && dbsection::EqualNoCase(column.name, name);
    });
    return place == columns.end() ? nullptr : &*place;
}

/// The same of a layout.
const LayoutColumn* findColumn(std::span<const LayoutColumn> columns, std::string_view name) {
    const auto place = std::ranges::find_if(columns, [&](const LayoutColumn& column) {
        return dbsection::EqualNoCase(column.name, name);
    });
    return place == columns.end() ? nullptr : &*place;
}

/// What no unit of length or force measures counts as it is.
double sizeOf(::Quantity quantity, const std::string& unit, UnitNames names = UnitNames::Kept) {
    const bool isPlain = quantity == ::Quantity::Number || quantity == ::Quantity::Angle;
    return isPlain ? 1 : dbsection::SizeOf(unit, names);
}

/// The unit in which a model takes a parameter.
const char* unitOf(const GeometryParameter& parameter) {
    switch (parameter.quantity) {
    case ::Quantity::Length:
        return "MM";
    case ::Quantity::WeightPerLength:
        return "N/MM";
    default:
        return "NUMBER";
    }
}

/// The unit in which a figure would be right that is refused, e.g. because its column was labelled
/// with another one; empty where there is none.
std::string rightUnit(const RefusedFigure& refused, ::Quantity quantity, const std::string& unit) {
    constexpr std::array lengths{"MM", "CM", "M", "INCHES", "FEET"};
    const auto dimension = dbsection::DimensionOf(unit, UnitNames::Printed);
    if (!dimension || dimension->force != 0 || dimension->length < 1)
        return "";
    for (const char* length : lengths) {
        std::string other =
            length + (dimension->length == 1 ? "" : "^" + std::to_string(dimension->length));
        const double figure = refused.judged.figure * sizeOf(quantity, other) /
                              dbsection::SizeOf(unit, UnitNames::Printed);
        dbsection::FigureVerdict verdict = refused.verdict;
        verdict.deviation =
            dbsection::JudgedFigure{"", figure, refused.judged.computed}.Deviation();
        if (verdict.IsAccepted())
            return other;
    }
    return "";
}

class Completer {
public:
    Completer(const Family& family, const Draft& draft)
        : m_family(family),
          m_layout(GetSectionLayout(family.layout())),
          m_draft(draft) {}

    Completion of(const Section* changed) {
        for (const auto& [name, figure] : m_draft.figures)
            take(name, figure);
        if (changed != nullptr) {
            const Figures kept = changed->figures();
            m_row.insert(kept.begin(), kept.end());
        }
        return m_draft.figures.empty() ? Completion{.draft = m_draft} : judged();
    }

private:
    [[noreturn]] void fail(SectionError::Number number, const std::string& fault) const {
        failInTable(number, m_family.catalogue().path(), m_family.name(), fault);
    }
    [[noreturn]] void refuse(const std::string& fault) const {
        const std::string name = m_draft.name.empty() ? "" : "\"" + m_draft.name + "\": ";
        fail(SectionError::RuleBroken, name + fault);
    }

    void take(const std::string& name, const Quantity& figure) {
        if (const Column* column = findColumn(m_family, name))
            takeColumn(*column, figure);
        else if (const auto* parameter = dbsection::FindParameter(m_layout.id, name))
            m_parameters[parameter->name] =
                representable(name, figure, figure.in(unitOf(*parameter)));
        else
            fail(SectionError::NoSuchItem, "it has no figure " + name + ".");
    }

    void takeColumn(const Column& column, const Quantity& figure) {
        const LayoutColumn* known = findColumn(m_layout.columns, column.name);
        const double value = figure.in(column.unit);
        if (known == nullptr)
            return; // a column of the person's own
        if (!known->Allows(value))
            refuse("the " + column.meaning + " (" + column.name + ") is " +
                   shown(figure.figure(), figure.unit()) + "; it must be a number " +
                   (known->mayBeZero ? "from zero on." : "above zero."));
        m_row[known->name] =
            representable(known->name, figure, value * sizeOf(column.quantity, column.unit));
    }

    /// The figure in mm and N.
    double representable(const std::string& name, const Quantity& figure, double value) const {
        if (!std::isfinite(value))
            refuse(name + " is " + shown(figure.figure(), figure.unit()) +
                   "; this is too large to compute with.");
        return value;
    }

    void requireFinite(const Figures& computed) const {
        for (const auto& [name, figure] : computed)
            if (!std::isfinite(figure))
                refuse("its dimensions give no finite " + name +
                       ": one of them is too large or too small; correct it.");
    }

    Completion judged() const {
        try {
            const auto judgement =
                dbsection::JudgeRow(m_layout.id, m_row, m_parameters, m_draft.asPublished);
            if (judgement.geometry)
                requireFinite(judgement.geometry->figures);
            if (!judgement.refused.empty())
                refuse(describe(judgement));
            return {withFiguresOf(judgement.row), judgement.model, judgement.parameters};
        } catch (const dbsection::GeometryError& error) {
            refuse(std::string("its dimensions contradict each other: ") + error.what() + ".");
        }
    }

    std::string describe(const dbsection::RowJudgement& judgement) const {
        std::string text;
        for (const RefusedFigure& refused : judgement.refused)
            text += describe(refused) + "; ";
        return text + "correct the row, leave out what geometry is to give (" +
               judgement.model->name + "), or keep it as published.";
    }

    std::string describe(const RefusedFigure& refused) const {
        const std::string& column = refused.judged.column;
        const auto given = std::ranges::find_if(m_draft.figures, [&](const auto& entry) {
            return dbsection::EqualNoCase(entry.first, column);
        });
        const Column* kept = findColumn(m_family, column);
        std::string unit = kept == nullptr ? std::string() : kept->unit;
        if (given != m_draft.figures.end())
            unit = given->second.unit();
        const ::Quantity quantity = findColumn(m_layout.columns, column)->quantity;
        const double size = sizeOf(quantity, unit, UnitNames::Printed);
        const double allowed = refused.verdict.printing + refused.verdict.tolerance;
        const std::string right = rightUnit(refused, quantity, unit);
        return column + " is " + shown(refused.judged.figure / size, unit) +
               ", its dimensions give " + shown(refused.judged.computed / size, unit) + " (up to " +
               dbsection::TextOfDigits(100 * allowed, 2) + " % apart is accepted)" +
               (right.empty() ? "" : ", as if it were in " + right);
    }

    Draft withFiguresOf(const Figures& row) const {
        Draft whole = m_draft;
        for (const auto& [name, figure] : row) {
            const Column* const column = findColumn(m_family, name);
            if (column == nullptr || m_row.contains(name))
                continue;
            const double value = figure / sizeOf(column->quantity, column->unit);
            whole.figures.try_emplace(column->name, dbsection::RoundedTo(value, ComputedDigits),
                                      column->unit);
        }
        return whole;
    }

    const Family& m_family;
    const SectionLayout& m_layout;
    const Draft& m_draft;
    Figures m_row; ///< in mm and N
    Figures m_parameters;
};

} // namespace

Completion completed(const Family& family, const Draft& draft, const Section* changed) {
    return translated(family.catalogue().path(),
                      [&] { return Completer(family, draft).of(changed); });
}

} // namespace sections
