// Profiles in IFC4 (ISO 16739): the parametric definition where IFC has one for the layout, the
// outline with its arcs besides, and for both the mechanical properties.
#include "exchange/ExchangeText.h"
#include "exchange/Formats.h"
#include "platform/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <sstream>

namespace dbsection {
namespace {

/// The code point of the UTF-8 character at the beginning of a text, which it leaves.
unsigned TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    unsigned code = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i)
        code = code << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
    text.remove_prefix(length);
    return code;
}

std::string Hexadecimal(unsigned code, std::size_t places) {
    constexpr int Base = 16;
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), code, Base).ptr;
    const std::string text = UpperCase({digits.data(), end});
    return std::string(places - text.size(), '0') + text;
}

/// A character that is not of ASCII; readers know the form of four digits best.
std::string Encoded(unsigned code) {
    return (code <= 0xFFFF ? "\\X2\\" + Hexadecimal(code, 4) : "\\X4\\" + Hexadecimal(code, 8)) +
           "\\X0\\";
}

/// A string of ISO 10303-21.
std::string Text(std::string_view text) {
    const std::string line = OneLine(text);
    std::string encoded = "'";
    for (std::string_view rest = line; !rest.empty();) {
        const unsigned code = TakeCharacter(rest);
        if (code >= 0x80)
            encoded += Encoded(code);
        else {
            const char character = static_cast<char>(code);
            encoded.append(character == '\'' || character == '\\' ? 2 : 1, character);
        }
    }
    return encoded + '\'';
}

/// A real number of ISO 10303-21.
std::string Real(double number) {
    std::string text = ExportedNumber(number);
    if (const std::size_t exponent = text.find('e'); exponent != std::string::npos) {
        text[exponent] = 'E';
        if (text.find('.') == std::string::npos)
            text.insert(exponent, ".");
    }
    return text;
}

/// Instances, numbered as they are written.
class Instances {
public:
    explicit Instances(std::ostream& file, int first = 1) : m_file(file), m_next(first) {}

    /// Writes an instance and returns its name, e.g. "#12".
    std::string Add(const std::string& entity) {
        std::string name = "#" + std::to_string(m_next++);
        m_file << name << "=" << entity << ";\n";
        return name;
    }

    int Next() const { return m_next; }

private:
    std::ostream& m_file;
    int m_next;
};

class Items {
public:
    void Add(const std::string& item) { m_text += (m_text.empty() ? "" : ",") + item; }
    bool IsEmpty() const { return m_text.empty(); }
    std::string List() const { return "(" + m_text + ")"; }

private:
    std::string m_text;
};

/// A parametric profile: its columns and parameters in the order of the entity's attributes.
struct ParametricProfile {
    LayoutId layout;
    const char* entity;
    std::array<const char*, 4> dimensions; ///< in mm; those that begin with "/" are halved
    std::array<const char*, 5> others;     ///< parameters: "?" for what is not told, "slope"
};

constexpr std::array Parametric{
    ParametricProfile{
        LayoutId::IShape, "IFCISHAPEPROFILEDEF", {"BF", "D", "TW", "TF"}, {"radius", "?", "slope"}},
    ParametricProfile{LayoutId::Channel,
                      "IFCUSHAPEPROFILEDEF",
                      {"D", "BF", "TW", "TF"},
                      {"radius", "?", "slope"}},
    ParametricProfile{LayoutId::Tee,
                      "IFCTSHAPEPROFILEDEF",
                      {"D", "BF", "TW", "TF"},
                      {"radius", "?", "?", "?", "slope"}},
    ParametricProfile{
        LayoutId::Angle, "IFCLSHAPEPROFILEDEF", {"D", "B", "T"}, {"radius", "?", "?"}},
    ParametricProfile{
        LayoutId::RectangularTube, "IFCRECTANGLEHOLLOWPROFILEDEF", {"B", "D", "T"}, {"?", "?"}},
    ParametricProfile{LayoutId::RoundTube, "IFCCIRCLEHOLLOWPROFILEDEF", {"/OD", "T"}, {}},
    ParametricProfile{LayoutId::RoundBar, "IFCCIRCLEPROFILEDEF", {"/D"}, {}},
    ParametricProfile{LayoutId::Rectangle, "IFCRECTANGLEPROFILEDEF", {"B", "D"}, {}},
    ParametricProfile{LayoutId::Timber, "IFCRECTANGLEPROFILEDEF", {"B", "D"}, {}},
};

/// One of its other attributes.
std::string OtherAttribute(const Profile& profile, std::string_view name) {
    const Figures parameters = profile.Section().parameters();
    const auto place = parameters.find(name);
    if (name == "slope")
        return place == parameters.end() ? "$" : Real(std::atan(place->second));
    if (name == "radius" && profile.AssumedRadius())
        return Real(*profile.AssumedRadius() / profile.LengthSize());
    return place == parameters.end() ? "$" : Real(place->second / profile.LengthSize());
}

/// The entity, or nothing where IFC has none of that layout or a dimension is not kept.
std::optional<std::string> ParametricOf(const Profile& profile) {
    if (profile.Section().parameters().contains("BF2")) // flanges that are not alike
        return std::nullopt;
    for (const auto& [layout, entity, dimensions, others] : Parametric) {
        if (layout != profile.Section().family().layout())
            continue;
        std::string text = entity + ("(.AREA.," + Text(profile.Section().name())) + ",$";
        for (const char* const column : dimensions) {
            if (column == nullptr)
                continue;
            const bool isHalved = *column == '/';
            const auto figure = profile.Figure(isHalved ? column + 1 : column);
            if (!figure)
                return std::nullopt;
            text += "," + Real(isHalved ? *figure / 2 : *figure);
        }
        for (const char* const name : others)
            if (name != nullptr)
                text += "," + OtherAttribute(profile, name);
        return text + ")";
    }
    return std::nullopt;
}

/// Shifts points of an outline so that the origin is amidst its extent.
class Shift {
public:
    explicit Shift(const Profile& profile) : m_size(profile.LengthSize()) {
        const auto [low, high] = profile.GetOutline()->GetExtent();
        m_middle = {(low.z + high.z) / 2, (low.y + high.y) / 2};
    }

    Point operator()(Point at) const {
        return {Cleared(at.z - m_middle.z) / m_size, Cleared(at.y - m_middle.y) / m_size};
    }

private:
    /// Without what rounding leaves of 0.
    static double Cleared(double distance) { return std::abs(distance) < 1e-9 ? 0 : distance; }

    double m_size;
    Point m_middle;
};

std::string CurveOf(Instances& instances, const Outline::Loop& loop, const Shift& shift) {
    Items points;
    Items segments;
    int count = 0;
    const auto add = [&](Point at) {
        const Point shifted = shift(at);
        points.Add("(" + Real(shifted.z) + "," + Real(shifted.y) + ")");
        return std::to_string(++count);
    };
    std::string from = add(loop.front().at);
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point end = loop[(i + 1) % loop.size()].at;
        std::string middle;
        if (loop[i].bulge != 0) {
            const Arc arc = ArcBetween(loop[i].at, end, loop[i].bulge);
            const double angle = arc.start + arc.sweep / 2;
            middle = add({arc.center.z + arc.radius * std::cos(angle),
                          arc.center.y + arc.radius * std::sin(angle)});
        }
        const std::string to = i + 1 == loop.size() ? "1" : add(end);
        Items ends;
        ends.Add(from);
        if (!middle.empty())
            ends.Add(middle);
        ends.Add(to);
        segments.Add((middle.empty() ? "IFCLINEINDEX(" : "IFCARCINDEX(") + ends.List() + ")");
        from = to;
    }
    const std::string list = instances.Add("IFCCARTESIANPOINTLIST2D(" + points.List() + ")");
    return instances.Add("IFCINDEXEDPOLYCURVE(" + list + "," + segments.List() + ",.F.)");
}

bool IsHole(const Outline::Loop& loop) {
    double twice = 0; // the polygon of the ends and of the arcs' shares tells the sense
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point from = loop[i].at;
        const Point to = loop[(i + 1) % loop.size()].at;
        twice += from.z * to.y - to.z * from.y;
        if (loop[i].bulge != 0) {
            const Arc arc = ArcBetween(from, to, loop[i].bulge);
            twice += arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep));
        }
    }
    return twice < 0;
}

/// The profile of an outline; holes belong to the body before them.
std::string OutlineProfile(Instances& instances, const Profile& profile) {
    struct Body {
        std::string curve;
        Items holes;
    };
    const Shift shift(profile);
    std::vector<Body> bodies;
    for (const Outline::Loop& loop : profile.GetOutline()->Loops()) {
        const std::string curve = CurveOf(instances, loop, shift);
        if (!IsHole(loop))
            bodies.push_back({curve, {}});
        else
            bodies.back().holes.Add(curve);
    }
    const std::string start = "(.AREA.," + Text(profile.Section().name()) + ",";
    Items parts;
    std::string last;
    for (const Body& body : bodies) {
        last = instances.Add(!body.holes.IsEmpty()
                                 ? "IFCARBITRARYPROFILEDEFWITHVOIDS" + start + body.curve + "," +
                                       body.holes.List() + ")"
                                 : "IFCARBITRARYCLOSEDPROFILEDEF" + start + body.curve + ")");
        parts.Add(last);
    }
    return bodies.size() == 1
               ? last
               : instances.Add("IFCCOMPOSITEPROFILEDEF" + start + parts.List() + ",$)");
}

/// A property of Pset_ProfileMechanical, whose y axis is the major one.
struct Mechanical {
    const char* name;
    const char* measure;
    const char* column;
};

constexpr std::array MechanicalProperties{
    Mechanical{"CrossSectionArea", "IFCAREAMEASURE", "AX"},
    Mechanical{"Perimeter", "IFCPOSITIVELENGTHMEASURE", "Perimeter"},
    Mechanical{"MomentOfInertiaY", "IFCMOMENTOFINERTIAMEASURE", "IZ"},
    Mechanical{"MomentOfInertiaZ", "IFCMOMENTOFINERTIAMEASURE", "IY"},
    Mechanical{"TorsionalConstantX", "IFCMOMENTOFINERTIAMEASURE", "IX"},
    Mechanical{"WarpingConstant", "IFCWARPINGCONSTANTMEASURE", "CW"},
    Mechanical{"MinimumSectionModulusY", "IFCSECTIONMODULUSMEASURE", "SZ"},
    Mechanical{"MinimumSectionModulusZ", "IFCSECTIONMODULUSMEASURE", "SY"},
    Mechanical{"ShearCentreY", "IFCLENGTHMEASURE", "EZ"},
    Mechanical{"ShearCentreZ", "IFCLENGTHMEASURE", "EY"},
};

std::string PropertiesOf(Instances& instances, const Profile& profile) {
    Items properties;
    const auto add = [&](const char* name, const char* measure, double figure,
                         const std::string& remark = "$") {
        properties.Add(instances.Add("IFCPROPERTYSINGLEVALUE(" + Text(name) + "," + remark + "," +
                                     measure + "(" + Real(figure) + "),$)"));
    };
    for (const auto& [name, measure, column] : MechanicalProperties)
        if (const auto figure = profile.Figure(column)) {
            const bool isComputed =
                profile.Section().source(column) == sections::FigureSource::Computed;
            add(name, measure, *figure, isComputed ? "'computed'" : "$");
        }
    if (const auto weight = profile.Section().findDerived("Weight")) // of timber none is known
        add("MassPerLength", "IFCMASSPERLENGTHMEASURE", weight->in("kg/m"));
    if (const auto shear = profile.Shear()) {
        add("ShearDeformationAreaZ", "IFCAREAMEASURE", shear->alongY, "'computed'");
        add("ShearDeformationAreaY", "IFCAREAMEASURE", shear->alongZ, "'computed'");
        const Outline& outline = *profile.GetOutline();
        const Point centroid =
            Shift(profile)({outline.MinorAxis().centroid, outline.MajorAxis().centroid});
        add("CentreOfGravityInX", "IFCLENGTHMEASURE", centroid.z, "'computed'");
        add("CentreOfGravityInY", "IFCLENGTHMEASURE", centroid.y, "'computed'");
    }
    return properties.List();
}

/// `next` is the number of the first instance, and becomes that behind the last.
std::string TextOf(const Profile& profile, int& next) {
    if (profile.GetOutline() == nullptr)
        profile.Fail("its outline is not known: " + profile.WhyNoOutline());
    std::ostringstream text;
    Instances instances(text, next);
    const std::string properties = PropertiesOf(instances, profile);
    std::string source =
        profile.Catalogue() + ", " + profile.Section().family().name() + ", " + profile.Standard();
    if (profile.AssumedRadius())
        source += "; the radius of its fillets is assumed";
    const auto attach = [&](const std::string& definition) {
        instances.Add("IFCPROFILEPROPERTIES('Pset_ProfileMechanical'," + Text(source) + "," +
                      properties + "," + definition + ")");
    };
    if (const auto parametric = ParametricOf(profile))
        attach(instances.Add(*parametric));
    attach(OutlineProfile(instances, profile));
    next = instances.Next();
    return text.str();
}

/// The list of the project's units.
std::string UnitsOf(Instances& instances, double lengthInMetres, const char* name) {
    const std::string metre = instances.Add("IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)");
    const std::string squareMetre = instances.Add("IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.)");
    const auto converted = [&](int power, const char* kind, const std::string& unitName,
                               const char* measure, const std::string& unit) {
        const std::string dimension =
            instances.Add("IFCDIMENSIONALEXPONENTS(" + std::to_string(power) + ",0,0,0,0,0,0)");
        const std::string factor =
            instances.Add(std::string("IFCMEASUREWITHUNIT(") + measure + "(" +
                          Real(std::pow(lengthInMetres, power)) + ")," + unit + ")");
        return instances.Add("IFCCONVERSIONBASEDUNIT(" + dimension + "," + kind + ",'" + unitName +
                             "'," + factor + ")");
    };
    const std::string length = converted(1, ".LENGTHUNIT.", name, "IFCLENGTHMEASURE", metre);
    Items units;
    units.Add(length);
    units.Add(
        converted(2, ".AREAUNIT.", std::string("SQUARE ") + name, "IFCAREAMEASURE", squareMetre));
    units.Add(instances.Add("IFCSIUNIT(*,.PLANEANGLEUNIT.,$,.RADIAN.)"));
    const auto power = [&](const std::string& unit, int exponent) {
        return instances.Add("IFCDERIVEDUNITELEMENT(" + unit + "," + std::to_string(exponent) +
                             ")");
    };
    const auto derived = [&](const std::string& elements, const char* kind) {
        units.Add(instances.Add("IFCDERIVEDUNIT((" + elements + ")," + kind + ",$)"));
    };
    derived(power(length, 3), ".SECTIONMODULUSUNIT.");
    derived(power(length, 4), ".MOMENTOFINERTIAUNIT.");
    derived(power(length, 6), ".WARPINGCONSTANTUNIT.");
    const std::string kilogram = instances.Add("IFCSIUNIT(*,.MASSUNIT.,.KILO.,.GRAM.)");
    const std::string mass = power(kilogram, 1);
    derived(mass + "," + power(metre, -1), ".MASSPERLENGTHUNIT.");
    return instances.Add("IFCUNITASSIGNMENT(" + units.List() + ")");
}

} // namespace

void WriteIfc(std::span<const sections::Section> sections, const ExchangeOptions& options,
              std::ostream& file) {
    constexpr const char* Axes =
        "Profiles lie amidst the origin, x to the right, y upwards. Of the properties, y is the "
        "axis along x, z that along y. Radii that the standard does not print are assumed by the "
        "area.";
    constexpr double Metre = 1000;
    const bool isInch = options.length == ExchangeLength::Inch;
    file << "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((" << Text(Axes)
         << "),'2;1');\nFILE_NAME('','',(''),(''),'','dbSectionInterface','');\n"
            "FILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n";
    Instances instances(file);
    const std::string units =
        UnitsOf(instances, ExchangeUnits::Of(options.length).lengthSize / Metre,
                isInch ? "INCH" : "MILLIMETRE");
    const std::string origin = instances.Add("IFCCARTESIANPOINT((0.,0.,0.))");
    const std::string placement = instances.Add("IFCAXIS2PLACEMENT3D(" + origin + ",$,$)");
    const std::string context =
        instances.Add("IFCGEOMETRICREPRESENTATIONCONTEXT($,'Model',3,1.E-05," + placement + ",$)");
    instances.Add("IFCPROJECT('0SectionCatalogue00000',$,'Sections'," + Text(Axes) + ",$,$,$,(" +
                  context + ")," + units + ")");
    int next = instances.Next();
    WriteEach(sections, options, file,
              [&](const Profile& profile) { return TextOf(profile, next); });
    file << "ENDSEC;\nEND-ISO-10303-21;\n";
}

} // namespace dbsection
