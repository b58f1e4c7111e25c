#include "catalogues/SectionSummary.h"

#include "units/UNIT.h"

#include <array>
#include <cmath>

namespace dbsection {
namespace {

constexpr int None = 0; // a bookkeeping column: no property

/// The distance of the extreme fibre from an axis: half of a dimension of a section that is
/// symmetric about the axis, or a dimension less the centroid's distance from its far end.
struct ExtremeFibre {
    int dimension;
    int centroid;
};

/// Table columns from which the summary of a layout is made.
struct SummaryColumns {
    LayoutId layout;
    int area;
    int majorInertia;
    ExtremeFibre majorFibre;
    int minorInertia;
    ExtremeFibre minorFibre;
    std::array<int, 2> further;
    int last;
    double lastFactor;
};

constexpr std::array Summaries{
    SummaryColumns{LayoutId::IShape, 3, 8, {4, None}, 11, {5, None}, {12, 13}, 9, 1},
    SummaryColumns{LayoutId::Channel, 3, 8, {4, None}, 11, {5, 14}, {12, 13}, 9, 1},
    SummaryColumns{LayoutId::Tee, 3, 8, {4, 14}, 11, {5, None}, {12, 13}, 9, 1},
    SummaryColumns{LayoutId::Angle, 6, 7, {3, 10}, 8, {4, 11}, {12, 13}, 9, 1},
    SummaryColumns{LayoutId::RectangularTube, 3, 7, {4, None}, 9, {5, None}, {10, 11}, 8, 1},
    // The torsion constant of a round section is twice its moment of inertia.
    SummaryColumns{LayoutId::RoundTube, 5, 6, {3, None}, 6, {3, None}, {7, 7}, 6, 2},
    SummaryColumns{LayoutId::RoundBar, 4, 5, {3, None}, 5, {3, None}, {None, None}, 5, 2},
    SummaryColumns{LayoutId::Cable, 4, None, {3, None}, None, {3, None}, {None, None}, None, 1},
    SummaryColumns{LayoutId::Castellated, 5, 9, {4, None}, 10, {6, None}, {None, None}, None, 1},
};

/// Mass per volume of steel.
constexpr double SteelDensity = 7851.535;
constexpr const char* SteelDensityUnit = "KG/M^3";

} // namespace

std::unique_ptr<SECTIONINFO> SummariseSection(const SectionRecord& row, LayoutId layout,
                                              const CStringArray& units, unsigned int forceUnit,
                                              unsigned int lengthUnit) {
    const SummaryColumns* columns = nullptr;
    for (const SummaryColumns& candidate : Summaries)
        if (candidate.layout == layout)
            columns = &candidate;
    if (columns == nullptr)
        return nullptr;

    const auto converted = [&](int column) {
        return column == None ? 0
                              : UNIT::ConvertUnitTo(row.Number(column), units.GetAt(column),
                                                    forceUnit, lengthUnit);
    };
    const auto modulus = [&](double inertia, const ExtremeFibre& fibre) {
        if (inertia == 0)
            return 0.0;
        const double dimension = converted(fibre.dimension);
        return inertia /
               (fibre.centroid == None ? dimension / 2 : dimension - converted(fibre.centroid));
    };

    auto info = std::make_unique<SECTIONINFO>();
    info->RecordNumber = row.RecordNumber;
    info->PublicName = row.PublicName;
    info->VessaName = row.VessaName;
    info->Area = converted(columns->area);
    info->WeightPerLength =
        UNIT::ConvertUnitTo(SteelDensity, SteelDensityUnit, forceUnit, lengthUnit) * info->Area;
    info->MajorInertia = converted(columns->majorInertia);
    info->MajorModulus = modulus(info->MajorInertia, columns->majorFibre);
    info->MajorRadius = std::sqrt(info->MajorInertia / info->Area);
    info->MinorInertia = converted(columns->minorInertia);
    info->MinorModulus = modulus(info->MinorInertia, columns->minorFibre);
    info->MinorRadius = std::sqrt(info->MinorInertia / info->Area);
    info->Further = {converted(columns->further[0]), converted(columns->further[1])};
    info->Last = converted(columns->last) * columns->lastFactor;
    info->Values.reserve(static_cast<std::size_t>(row.ColumnCount()));
    for (int column = 0; column < row.ColumnCount(); ++column)
        info->Values.push_back(row.Number(BookkeepingColumns + column));
    return info;
}

} // namespace dbsection
