#include "catalogues/SectionSummary.h"

#include "units/UNIT.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace dbsection {
namespace {

constexpr const char* DensityUnit = "KG/M^3";

/// A row's properties by column name, in the units of the caller. All layouts name alike what is
/// alike, so that one rule summarises them all.
class Properties {
public:
    Properties(const SectionRecord& row, LayoutId layout, const CStringArray& units,
               unsigned int forceUnit, unsigned int lengthUnit)
        : m_row(row),
          m_columns(GetSectionLayout(layout).columns),
          m_units(units),
          m_forceUnit(forceUnit),
          m_lengthUnit(lengthUnit) {}

    bool Has(std::string_view name) const { return Column(name) >= 0; }

    /// The value of the first of these columns that the layout has; 0 without any.
    double Value(std::initializer_list<std::string_view> names) const {
        for (const std::string_view name : names)
            if (const int column = Column(name); column >= 0)
                return UNIT::ConvertUnitTo(m_row.Number(column), m_units.GetAt(column), m_forceUnit,
                                           m_lengthUnit);
        return 0;
    }

private:
    int Column(std::string_view name) const {
        const auto place = std::ranges::find(m_columns, name, &LayoutColumn::name);
        return place == m_columns.end()
                   ? -1
                   : BookkeepingColumns + static_cast<int>(place - m_columns.begin());
    }

    const SectionRecord& m_row;
    std::span<const LayoutColumn> m_columns;
    const CStringArray& m_units;
    unsigned int m_forceUnit;
    unsigned int m_lengthUnit;
};

/// Elastic modulus at the fibre that is furthest from the axis. The centroid lies amidst the
/// dimension across the axis, or as far from one end as its column says.
double ElasticModulus(double inertia, double dimension, double centroid) {
    if (inertia == 0)
        return 0;
    return inertia / (centroid == 0 ? dimension / 2 : std::max(centroid, dimension - centroid));
}

void SummariseAxes(const Properties& row, SECTIONINFO& info) {
    info.MajorInertia = row.Value({"IZ", "I"});
    info.MinorInertia = row.Value({"IY", "I"});
    info.MajorModulus = row.Has("SZ") ? row.Value({"SZ"})
                                      : ElasticModulus(info.MajorInertia, row.Value({"D", "OD"}),
                                                       row.Value({"CY"}));
    info.MinorModulus = row.Has("SY")
                            ? row.Value({"SY"})
                            : ElasticModulus(info.MinorInertia, row.Value({"BF", "B", "OD", "D"}),
                                             row.Value({"CZ"}));
    info.MajorRadius = std::sqrt(info.MajorInertia / info.Area);
    info.MinorRadius = std::sqrt(info.MinorInertia / info.Area);
}

} // namespace

std::unique_ptr<SECTIONINFO> SummariseSection(const SectionRecord& row, LayoutId layout,
                                              double density, const CStringArray& units,
                                              unsigned int forceUnit, unsigned int lengthUnit) {
    const Properties properties(row, layout, units, forceUnit, lengthUnit);
    auto info = std::make_unique<SECTIONINFO>();
    info->RecordNumber = row.RecordNumber;
    info->PublicName = row.PublicName;
    info->VessaName = row.VessaName;
    info->Area = properties.Value({"AX"});
    info->WeightPerLength =
        UNIT::ConvertUnitTo(density, DensityUnit, forceUnit, lengthUnit) * info->Area;
    SummariseAxes(properties, *info);
    info->Further = {properties.Value({"ZZ", "Z", "RV"}), properties.Value({"ZY", "Z", "ALPHA"})};
    // The torsion constant of a round section is twice its moment of inertia.
    info->Last = properties.Has("IX") ? properties.Value({"IX"}) : 2 * properties.Value({"I"});
    info->Values.reserve(static_cast<std::size_t>(row.ColumnCount()));
    for (int column = 0; column < row.ColumnCount(); ++column)
        info->Values.push_back(row.Number(BookkeepingColumns + column));
    return info;
}

} // namespace dbsection
