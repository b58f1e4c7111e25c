// The property summary of one section: what a design program asks first.
#pragma once

#include "records/SectionRecord.h"

#include <array>
#include <vector>

/// Design properties of a section in the caller's units: lengths in the length unit that was asked
/// for, the weight in force unit per length unit. Names are those of the section's row. What the
/// row does not tell is 0.
struct DBSECTION_API SECTIONINFO : SectionRecord {
    double WeightPerLength = 0;
    double Area = 0;
    double MajorInertia = 0;
    double MajorModulus = 0; ///< elastic, at the extreme fibre
    double MajorRadius = 0;  ///< of gyration
    double MinorInertia = 0;
    double MinorModulus = 0;
    double MinorRadius = 0;
    /// Plastic moduli about the major and the minor axis; for angles the least radius of gyration
    /// and the angle of the principal axes.
    std::array<double, 2> Further{};
    double Last = 0; ///< torsion constant

    // The row's property columns, from which rows are added and updated.

    /// The numbers in column order, as stored. Columns that were added to the layout (isAdded) may
    /// be left out at the end; the row then keeps none in them, or what it has.
    std::vector<double> Values;

    /// The texts in column order; all or none may be left out.
    std::vector<CString> Texts;
};
