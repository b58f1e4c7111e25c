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

    bool Has(std::string_view name) const { return Find(name) != m_columns.end(); }
    bool IsKept(std::string_view name) const { return Has(name) && m_row.IsKept(At(Find(name))); }

    /// The value of the first of these columns that the layout has; 0 without any.
    double Value(std::initializer_list<std::string_view> names) const {
        for (const std::string_view name : names)
            if (const auto place = Find(name); place != m_columns.end())
                return ValueAt(place);
        return 0;
    }

private:
    using Place = std::span<const LayoutColumn>::iterator;

    Place Find(std::string_view name) const {
        return std::ranges::find(m_columns, name, &LayoutColumn::name);
    }
    int At(Place place) const {
        return BookkeepingColumns + static_cast<int>(place - m_columns.begin());
    }

    double ValueAt(Place place) const {
        const int column = At(place);
        if (place->isAdded && !m_row.IsKept(column))
            return 0; // nor need the list of units reach as far
        return UNIT::ConvertUnitTo(m_row.Number(column), m_units.GetAt(column), m_forceUnit,
                                   m_lengthUnit);
    }

    const SectionRecord& m_row;
    std::span<const LayoutColumn> m_columns;
    const CStringArray& m_units;
    unsigned int m_forceUnit;
    unsigned int m_lengthUnit;
};

// Distances of the extreme fibre from an axis; 0 where the row does not tell it.

/// The farther side of a dimension across the axis, which lies at the centroid.
double FartherSide(double dimension, double centroid) {
    return dimension == 0 || centroid == 0 ? 0 : std::max(centroid, dimension - centroid);
}

double MajorFibre(const Properties& row) {
    const double depth = row.Value({"D", "OD"});
    return row.Has("CY") ? FartherSide(depth, row.Value({"CY"})) : depth / 2;
}

double MinorFibre(const Properties& row, LayoutId layout) {
    const double width = row.Value({"BF", "B", "OD", "D"});
    const double thickness = row.Value({"T"});
    const double brim = row.Value({"L"});
    switch (layout) {
    case LayoutId::DoubleAngle: // the outstanding legs begin at the gap
        return width != 0 && row.IsKept("GAP") ? width + row.Value({"GAP"}) / 2 : 0;
    case LayoutId::ColdFormedZee: // the axis runs amidst the web, which either flange includes
    case LayoutId::ColdFormedZeeLipped:
        return thickness == 0 ? 0 : width - thickness / 2;
    case LayoutId::Hat: // the brims reach beyond the top
        return width == 0 || brim == 0 ? 0 : width / 2 + brim;
    default:
        return row.Has("CZ") ? FartherSide(width, row.Value({"CZ"})) : width / 2;
    }
}

double ElasticModulus(double inertia, double fibre) { return fibre > 0 ? inertia / fibre : 0; }

double RadiusOfGyration(double inertia, double area) {
    return area == 0 ? 0 : std::sqrt(inertia / area);
}

void SummariseAxes(const Properties& row, LayoutId layout, SECTIONINFO& info) {
    info.MajorInertia = row.Value({"IZ", "I"});
    info.MinorInertia = row.Value({"IY", "I"});
    info.MajorModulus =
        row.Has("SZ") ? row.Value({"SZ"}) : ElasticModulus(info.MajorInertia, MajorFibre(row));
    info.MinorModulus = row.Has("SY") ? row.Value({"SY"})
                                      : ElasticModulus(info.MinorInertia, MinorFibre(row, layout));
    info.MajorRadius = RadiusOfGyration(info.MajorInertia, info.Area);
    info.MinorRadius = RadiusOfGyration(info.MinorInertia, info.Area);
}

/// What the row stores; columns that it does not keep are left out at the end.
void CopyColumns(const SectionRecord& row, LayoutId layout, SECTIONINFO& info) {
    int column = BookkeepingColumns;
    std::size_t kept = 0;
    for (const auto& [name, quantity, meaning, isAdded] : GetSectionLayout(layout).columns) {
        if (quantity == Quantity::Text) {
            info.Texts.push_back(row.Text(column));
        } else {
            info.Values.push_back(row.Number(column));
            if (!isAdded || row.IsKept(column))
                kept = info.Values.size();
        }
        ++column;
    }
    info.Values.resize(kept);
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
        properties.Has("W") // strands do not fill the area of their cable
            ? properties.Value({"W"})
            : UNIT::ConvertUnitTo(density, DensityUnit, forceUnit, lengthUnit) * info->Area;
    SummariseAxes(properties, layout, *info);
    info->Further = {properties.Value({"ZZ", "Z", "RV"}), properties.Value({"ZY", "Z", "ALPHA"})};
    // The torsion constant of a round section is twice its moment of inertia.
    info->Last = properties.Has("IX") ? properties.Value({"IX"}) : 2 * properties.Value({"I"});
    CopyColumns(row, layout, *info);
    return info;
}

} // namespace dbsection
