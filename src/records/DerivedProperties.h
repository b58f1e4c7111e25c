// What follows from the property columns of a row, whatever its layout.
//
// All layouts name alike what is alike, so that one rule derives the properties of all of them.
#pragma once

#include "records/SectionLayout.h"

#include <cstddef>

namespace dbsection {

/// A row's columns in units of one length and one force; `column` counts from the layout's first.
class ColumnValues {
public:
    virtual double Value(std::size_t column) const = 0;

    /// Whether the row has a value in the column.
    virtual bool IsKept(std::size_t column) const = 0;

protected:
    ~ColumnValues() = default;
};

/// Properties in the units of the columns that they follow from; what the row does not tell is 0.
struct DerivedProperties {
    double area = 0;
    double weightPerLength = 0;
    double majorInertia = 0;
    double minorInertia = 0;
    double majorModulus = 0; ///< elastic, at the extreme fibre
    double minorModulus = 0;
    double majorRadius = 0; ///< of gyration
    double minorRadius = 0;
    double torsionConstant = 0;
    double majorPlasticModulus = 0; ///< of angles their least radius of gyration
    double minorPlasticModulus = 0; ///< of angles the angle of their principal axes
};

/// `weightDensity` is that of the material: force per length^3.
DerivedProperties DeriveProperties(LayoutId layout, const ColumnValues& row, double weightDensity);

} // namespace dbsection
