// How a section is drawn.
#pragma once

#include "commands/CommandLine.h"
#include "commands/Options.h"
#include "sections/Catalogue.h"

#include <string>

namespace dbsection {

class DrawingOptions {
public:
    void Declare(CommandLine& line);

    /// Draws into the file that was named, or in characters to stdout. Throws UsageError,
    /// CommandError, and sections::Error where the figures do not tell the shape.
    void Draw(const sections::Section& section) const;

private:
    std::string m_svg;
    std::string m_dxf;
    UnitOptions m_units;
};

} // namespace dbsection
