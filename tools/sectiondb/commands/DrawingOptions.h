// How a section is drawn.
#pragma once

#include "commands/Options.h"
#include "sections/Catalogue.h"

#include <CLI/App.hpp>
#include <string>

namespace dbsection {

class DrawingOptions {
public:
    void Declare(CLI::App& app);

    /// Draws into the file that was named, or in characters to stdout. Throws UsageError,
    /// CommandError, and sections::Error where the figures do not tell the shape.
    void Draw(const sections::Section& section) const;

private:
    std::string m_svg;
    std::string m_dxf;
    UnitOptions m_units;
};

} // namespace dbsection
