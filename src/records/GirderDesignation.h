// The designation of a joist girder, such as "40S48G8N12.0K": span, depth, number of joist spaces,
// load at each panel point.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

#include <optional>
#include <string_view>

struct DBSECTION_API GirderDesignation {
    int span = 0;
    int depth = 0;
    int joists = 0;
    double panelLoad = 0;

    /// Nothing unless the letters S, G, N and K, of either case, stand in this order. The numbers
    /// before them, with or without blanks, are read as far as they go; without any they are 0.
    static std::optional<GirderDesignation> Parse(std::string_view text);

    /// The load has one decimal.
    CString Text() const;
};
