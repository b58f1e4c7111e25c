// A section drawn to scale: its outline, centroid, principal axes, dimensions, and values beside
// it.
//
//     const Drawing drawing = DrawSection(outline, {.title = "IPE 300", .values = {{"AX", "53.8
//     cm^2"}}}); file << Svg(drawing);    // or Dxf(drawing) std::cout << Picture(outline, 60);
//
// Coordinates are in mm, z to the right and y upwards, as the outline has them.
#pragma once

#include "geometry/Outline.h"
#include "platform/Export.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dbsection {

enum class Layer : std::uint8_t { Outline, Axes, Dimensions, Text };

/// The name of a layer, as files have it.
DBSECTION_API const char* NameOf(Layer layer);

struct DrawnLine {
    Layer layer;
    Point from;
    Point to;
};

/// A text on its base line. `angle` is in degrees, counter-clockwise.
struct DrawnText {
    enum class Anchor : std::uint8_t { Left, Middle };

    Layer layer;
    Point at;
    double height;
    std::string text; ///< UTF-8
    Anchor anchor = Anchor::Left;
    double angle = 0;
};

/// What stands beside a drawn section.
struct Legend {
    std::string title;
    std::string subtitle{};                                    ///< e.g. catalogue and standard
    std::vector<std::pair<std::string, std::string>> values{}; ///< symbol and figure with its unit
    std::vector<std::string> remarks{};                        ///< e.g. an assumed radius
    std::string lengthUnit{}; ///< in which dimensions are written; empty: mm, which is not told
    double lengthFactor = 1;  ///< a mm in that unit
};

struct Drawing {
    Outline outline;
    std::vector<DrawnLine> lines;
    std::vector<DrawnText> texts;
    Extent extent; ///< of all of it
};

/// The angle in degrees, from -90 to 90, by which the principal axis of the greater moment of
/// inertia is turned from the z axis.
DBSECTION_API double PrincipalAngleOf(const Outline& outline);

DBSECTION_API Drawing DrawSection(const Outline& outline, const Legend& legend);

/// As a picture for browsers: Scalable Vector Graphics 1.1, in colours that follow the page it
/// stands in (`currentColor`), a group a layer.
DBSECTION_API std::string Svg(const Drawing& drawing);

/// A text as SVG has it.
DBSECTION_API std::string SvgText(std::string_view text);

/// The data of an SVG path of the outline alone.
DBSECTION_API std::string SvgPath(const Outline& outline);

/// As a file of CAD programs: Drawing Exchange Format of release 12, in mm, arcs as arcs.
DBSECTION_API std::string Dxf(const Drawing& drawing);

/// The filled outline in characters that are blocks of quarters, at most `columns` wide, for a
/// terminal whose characters are twice as high as wide.
DBSECTION_API std::string Picture(const Outline& outline, int columns);

} // namespace dbsection
