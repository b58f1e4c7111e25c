#include "records/DerivedProperties.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace dbsection {
namespace {

/// A row's columns by name.
class NamedColumns {
public:
    NamedColumns(LayoutId layout, const ColumnValues& row)
        : m_row(row),
          m_columns(GetSectionLayout(layout).columns) {}

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
    std::size_t At(Place place) const {
        return static_cast<std::size_t>(place - m_columns.begin());
    }

    double ValueAt(Place place) const {
        return place->isAdded && !m_row.IsKept(At(place)) ? 0 : m_row.Value(At(place));
    }

    const ColumnValues& m_row;
    std::span<const LayoutColumn> m_columns;
};

// Distances of the extreme fibre from an axis; 0 where the row does not tell it.

/// The farther side of a dimension across the axis, which lies at the centroid.
double FartherSide(double dimension, double centroid) {
    return dimension == 0 || centroid == 0 ? 0 : std::max(centroid, dimension - centroid);
}

double MajorFibre(const NamedColumns& row) {
    const double depth = row.Value({"D", "OD"});
    return row.Has("CY") ? FartherSide(depth, row.Value({"CY"})) : depth / 2;
}

double MinorFibre(const NamedColumns& row, LayoutId layout) {
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

} // namespace

DerivedProperties DeriveProperties(LayoutId layout, const ColumnValues& row, double weightDensity) {
    const NamedColumns named(layout, row);
    DerivedProperties derived;
    derived.area = named.Value({"AX"});
    derived.weightPerLength = named.Has("W") // strands do not fill the area of their cable
                                  ? named.Value({"W"})
                                  : weightDensity * derived.area;
    derived.majorInertia = named.Value({"IZ", "I"});
    derived.minorInertia = named.Value({"IY", "I"});
    derived.majorModulus = named.Has("SZ")
                               ? named.Value({"SZ"})
                               : ElasticModulus(derived.majorInertia, MajorFibre(named));
    derived.minorModulus = named.Has("SY")
                               ? named.Value({"SY"})
                               : ElasticModulus(derived.minorInertia, MinorFibre(named, layout));
    derived.majorRadius = RadiusOfGyration(derived.majorInertia, derived.area);
    derived.minorRadius = RadiusOfGyration(derived.minorInertia, derived.area);
    // The torsion constant of a round section is twice its moment of inertia.
    derived.torsionConstant = named.Has("IX") ? named.Value({"IX"}) : 2 * named.Value({"I"});
    derived.majorPlasticModulus = named.Value({"ZZ", "Z", "RV"});
    derived.minorPlasticModulus = named.Value({"ZY", "Z", "ALPHA"});
    return derived;
}

} // namespace dbsection
