#include "catalogues/SectionSummary.h"

#include "records/DerivedProperties.h"
#include "units/UNIT.h"

namespace dbsection {
namespace {

constexpr const char* DensityUnit = "KG/M^3";

/// A row's columns in the units of the caller.
class ConvertedColumns final : public ColumnValues {
public:
    ConvertedColumns(const SectionRecord& row, const CStringArray& units, unsigned int forceUnit,
                     unsigned int lengthUnit)
        : m_row(row),
          m_units(units),
          m_forceUnit(forceUnit),
          m_lengthUnit(lengthUnit) {}

    double Value(std::size_t column) const override {
        const int index = IndexOf(column);
        return UNIT::ConvertUnitTo(m_row.Number(index), m_units.GetAt(index), m_forceUnit,
                                   m_lengthUnit);
    }
    bool IsKept(std::size_t column) const override { return m_row.IsKept(IndexOf(column)); }

private:
    static int IndexOf(std::size_t column) { return BookkeepingColumns + static_cast<int>(column); }

    const SectionRecord& m_row;
    const CStringArray& m_units;
    unsigned int m_forceUnit;
    unsigned int m_lengthUnit;
};

/// What the row stores; columns that it does not keep are left out at the end.
void CopyColumns(const SectionRecord& row, LayoutId layout, SECTIONINFO& info) {
    int column = BookkeepingColumns;
    std::size_t kept = 0;
    for (const LayoutColumn& kind : GetSectionLayout(layout).columns) {
        if (kind.quantity == Quantity::Text) {
            info.Texts.push_back(row.Text(column));
        } else {
            info.Values.push_back(row.Number(column));
            if (!kind.isAdded || row.IsKept(column))
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
    const ConvertedColumns columns(row, units, forceUnit, lengthUnit);
    const DerivedProperties derived = DeriveProperties(
        layout, columns, UNIT::ConvertUnitTo(density, DensityUnit, forceUnit, lengthUnit));
    auto info = std::make_unique<SECTIONINFO>();
    info->RecordNumber = row.RecordNumber;
    info->PublicName = row.PublicName;
    info->VessaName = row.VessaName;
    info->Area = derived.area;
    info->WeightPerLength = derived.weightPerLength;
    info->MajorInertia = derived.majorInertia;
    info->MajorModulus = derived.majorModulus;
    info->MajorRadius = derived.majorRadius;
    info->MinorInertia = derived.minorInertia;
    info->MinorModulus = derived.minorModulus;
    info->MinorRadius = derived.minorRadius;
    info->Further = {derived.majorPlasticModulus, derived.minorPlasticModulus};
    info->Last = derived.torsionConstant;
    CopyColumns(row, layout, *info);
    return info;
}

} // namespace dbsection
