// All catalogues as the program builds them from the sources of this project, protected.
#pragma once

#include "TestSupport.h"

#include <string>

namespace sectionbench {

class BuiltCatalogues {
public:
    /// Throws where the program fails.
    explicit BuiltCatalogues(const char* password);

    const std::string& Folder() const { return m_folder.Path(); }

    /// What building them took.
    double Seconds() const { return m_seconds; }
    double PeakMebibytes() const { return m_peakMebibytes; }

private:
    testsupport::TempFolder m_folder;
    double m_seconds = 0;
    double m_peakMebibytes = 0;
};

} // namespace sectionbench
