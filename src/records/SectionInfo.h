// The property summary of one section: what a design program asks first.
#pragma once

#include "records/SectionRecord.h"

#include <array>
#include <vector>

/// Design properties of a section in the caller's units: lengths in the length unit that was asked
/// for, the weight in force unit per length unit. Names are those of the section's row.
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
    /// and the angle of the principal axes; 0 where the table keeps neither.
    std::array<double, 2> Further{};
    double Last = 0; ///< torsion constant

    /// The row's property columns in order, from which rows are added and updated.
    std::vector<double> Values;
};
