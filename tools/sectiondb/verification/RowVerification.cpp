#include "verification/RowVerification.h"

#include "geometry/RowJudgement.h"
#include "records/SectionLayout.h"
#include "sections/Error.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <optional>

namespace dbsection {
namespace {

using sections::Section;

/// Looks at one section.
class RowVerification {
public:
    RowVerification(const Section& section, RowsVerdict& verdict)
        : m_section(section),
          m_verdict(verdict) {}

    void Run() {
        if (m_section.isChanged())
            Add("", "it is not what the catalogue was built with");
        RequireSoundFigures();
        RequireGeometry();
        RequireAgreement();
    }

private:
    void Add(std::string column, std::string fault) {
        m_verdict.findings.push_back({m_section.name(), std::move(column), std::move(fault)});
    }

    /// In the unit of the catalogue.
    std::string Printed(const std::string& column, double inBaseUnits) const {
        const sections::Quantity figure = m_section[column];
        const double size = SizeOf(figure.unit());
        return fmt::format("{:.6g} {}", inBaseUnits / size, LabelOf(figure.unit()));
    }

    void RequireSoundFigures() {
        for (const LayoutColumn& column : GetSectionLayout(m_section.family().layout()).columns) {
            const auto figure = m_section.find(column.name);
            if (!figure)
                continue;
            const bool isSize = DimensionOf(figure->unit()).value_or(UnitDimension{}).length > 0;
            if (!std::isfinite(figure->figure()))
                Add(column.name, "it is no number");
            else if (isSize && figure->figure() < 0 && !column.mayBeZero)
                Add(column.name, fmt::format("it is negative: {}", figure->figure()));
            else if (isSize && figure->figure() == 0 && !column.mayBeZero)
                Add(column.name, "it is 0");
        }
    }

    void RequireGeometry() {
        const sections::Origin* const origin = m_section.origin();
        if (origin != nullptr && origin->model == nullptr)
            return;
        std::optional<SectionGeometry> shape;
        try {
            shape = m_section.shape();
        } catch (const sections::Error& error) {
            if (origin != nullptr)
                Add("", error.what());
            return; // of a person's own section the figures need not tell the shape
        }
        for (const JudgedFigure& judged : JudgeFigures(*shape, m_section.figures())) {
            ++m_verdict.figures;
            Judge(judged, origin == nullptr ? JudgeWithoutRules(m_section.family().layout(), judged)
                                            : JudgeByRules(judged, *origin));
        }
    }

    /// What the family computes is kept with five digits.
    FigureVerdict JudgeByRules(const JudgedFigure& judged, const sections::Origin& origin) const {
        constexpr double FiveDigits = 5.1e-5;
        const auto unit = origin.units.find(judged.column);
        const double size = unit == origin.units.end() ? 1 : SizeOf(unit->second);
        FigureVerdict verdict = origin.rules.Judge(m_section.name(), judged.column,
                                                   judged.figure / size, judged.Deviation());
        verdict.tolerance += FiveDigits;
        return verdict;
    }

    void Judge(const JudgedFigure& judged, const FigureVerdict& verdict) {
        if (verdict.exception != nullptr)
            ++m_verdict.exceptions;
        if (verdict.IsAccepted())
            return;
        const double allowed = verdict.exception != nullptr ? verdict.exception->share
                                                            : verdict.printing + verdict.tolerance;
        Add(judged.column,
            fmt::format(
                "it is {}, geometry gives {}: {:.3g} % apart, at most {:.2g} % are accepted",
                Printed(judged.column, judged.figure), Printed(judged.column, judged.computed),
                100 * std::abs(verdict.deviation), 100 * allowed));
    }

    /// What the section tells of a property, in mm; nothing where it does not.
    template <int L>
    std::optional<double> Told(sections::Measure<L> (Section::*property)() const) const {
        try {
            return (m_section.*property)().in(sections::Unit<L>{1});
        } catch (const sections::Error&) {
            return std::nullopt;
        }
    }

    /// Whatever its shape: a radius of gyration is smaller than the section, and a plastic modulus
    /// at least the elastic one and, but for thin crosses, less than three times as large.
    void RequireAgreement() {
        struct Axis {
            const char* name;
            sections::Length (Section::*size)() const;
            sections::Length (Section::*radius)() const;
            sections::Modulus (Section::*elastic)() const;
            sections::Modulus (Section::*plastic)() const;
        };
        constexpr std::array axes{
            Axis{"major", &Section::depth, &Section::majorRadius, &Section::majorElasticModulus,
                 &Section::majorPlasticModulus},
            Axis{"minor", &Section::width, &Section::minorRadius, &Section::minorElasticModulus,
                 &Section::minorPlasticModulus}};
        for (const Axis& axis : axes) {
            const auto size = Told<1>(axis.size);
            const auto radius = Told<1>(axis.radius);
            if (size && radius && *radius > *size)
                Add("", fmt::format("its radius of gyration about the {} axis, {:.4g} mm, is "
                                    "larger than the section, {:.4g} mm",
                                    axis.name, *radius, *size));
            const auto elastic = Told<3>(axis.elastic);
            const auto plastic = Told<3>(axis.plastic);
            constexpr double Rounding = 0.985;
            constexpr double Largest = 3;
            if (elastic && plastic &&
                (*plastic < Rounding * *elastic || *plastic > Largest * *elastic))
                Add("", fmt::format("its plastic modulus about the {} axis, {:.4g} mm^3, does not "
                                    "go with the elastic one, {:.4g} mm^3",
                                    axis.name, *plastic, *elastic));
        }
    }

    const Section& m_section;
    RowsVerdict& m_verdict;
};

} // namespace

void VerifySection(const sections::Section& section, RowsVerdict& verdict) {
    RowVerification(section, verdict).Run();
}

} // namespace dbsection
