// The figures of a section held against geometry and against each other.
#pragma once

#include "sections/Catalogue.h"

#include <string>
#include <vector>

namespace dbsection {

/// What is amiss, and where.
struct Finding {
    std::string section; ///< empty: the table as a whole
    std::string column;  ///< empty: the section as a whole
    std::string fault;
};

/// What came of comparing figures.
struct RowsVerdict {
    int figures = 0;    ///< compared with geometry
    int exceptions = 0; ///< accepted by a bound of their own
    std::vector<Finding> findings;
};

/// Adds what is to be said of a section.
void VerifySection(const sections::Section& section, RowsVerdict& verdict);

} // namespace dbsection
