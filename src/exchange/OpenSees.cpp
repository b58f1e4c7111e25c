// Sections of OpenSees: elastic ones, and fibres from the outline, about the principal axes.
#include "exchange/ExchangeText.h"
#include "exchange/Formats.h"

#include <cmath>
#include <ostream>
#include <sstream>

namespace dbsection {
namespace {

/// How a language writes what both say.
struct Language {
    const char* begin; ///< of the placeholders
    const char* elastic;
    const char* fibres;  ///< of the fibre section
    const char* torsion; ///< of the same
    const char* fibre;
    const char* endFibres;
    const char* end;      ///< of a command
    const char* between;  ///< of arguments
    const char* variable; ///< what goes before its name
};

constexpr Language Tcl{.begin = "set E {E}\nset G {G}\nuniaxialMaterial Elastic 1 $E\n",
                       .elastic = "section Elastic ",
                       .fibres = "section Fiber ",
                       .torsion = " -GJ [expr {$G*{J}}] {\n",
                       .fibre = "    fiber ",
                       .endFibres = "}\n",
                       .end = "\n",
                       .between = " ",
                       .variable = "$"};
constexpr Language Python{.begin = "import openseespy.opensees as ops\n\nE = {E}\nG = {G}\n"
                                   "ops.uniaxialMaterial('Elastic', 1, E)\n",
                          .elastic = "ops.section('Elastic', ",
                          .fibres = "ops.section('Fiber', ",
                          .torsion = ", '-GJ', G * {J})\n",
                          .fibre = "ops.fiber(",
                          .endFibres = "",
                          .end = ")\n",
                          .between = ", ",
                          .variable = ""};

std::string Replaced(std::string text, const std::string& mark, const std::string& by) {
    const std::size_t place = text.find(mark);
    return place == std::string::npos ? text : text.replace(place, mark.size(), by);
}

std::string HeadOf(const Language& language, const ExchangeOptions& options) {
    constexpr double Poisson = 0.3;
    const double modulus = ExchangeUnits::Of(options.length).steelModulus;
    const std::string begin = Replaced(language.begin, "{E}", ExportedNumber(modulus));
    return Commented("#", HeadRemarks("Sections for OpenSees, of three dimensions.", options)) +
           Commented("#", {"Odd tags are elastic sections, the even ones behind them the same of",
                           "fibres. The local z axis is the strong principal one: give its",
                           "direction, told with each section, as vecxz of the geometric",
                           "transformation (of a member along X, Y up)."}) +
           "\n" + Replaced(begin, "{G}", ExportedNumber(modulus / (2 * (1 + Poisson))));
}

std::string ElasticOf(const Language& language, const Profile& profile, int tag) {
    const PrincipalInertias inertias = profile.Principal();
    const std::string between = language.between;
    std::ostringstream text;
    text << language.elastic << tag << between << language.variable << "E" << between
         << ExportedNumber(profile.Area()) << between << ExportedNumber(inertias.strong) << between
         << ExportedNumber(inertias.weak) << between << language.variable << "G" << between
         << ExportedNumber(profile.TorsionConstant()) << language.end;
    return text.str();
}

std::string FibresIn(const Language& language, const Profile& profile, int tag) {
    constexpr int Across = 40;
    const Outline* const outline = profile.GetOutline();
    if (outline == nullptr)
        return Commented("#", {"No fibres: " + OneLine(profile.WhyNoOutline())});
    const double size = profile.LengthSize();
    const double angle = profile.Principal().angle;
    const Point centroid{outline->MinorAxis().centroid, outline->MajorAxis().centroid};
    std::ostringstream text;
    text << language.fibres << tag
         << Replaced(language.torsion, "{J}", ExportedNumber(profile.TorsionConstant()));
    for (const auto& [at, area] : FibresOf(*outline, Across)) {
        const double z = (at.z - centroid.z) / size;
        const double y = (at.y - centroid.y) / size;
        text << language.fibre << ExportedNumber(y * std::cos(angle) - z * std::sin(angle))
             << language.between << ExportedNumber(z * std::cos(angle) + y * std::sin(angle))
             << language.between << ExportedNumber(area / (size * size)) << language.between << 1
             << language.end;
    }
    text << language.endFibres;
    return text.str();
}

void WriteIn(const Language& language, std::span<const sections::Section> sections,
             const ExchangeOptions& options, std::ostream& file) {
    file << HeadOf(language, options);
    int tag = 1;
    WriteEach(sections, options, file, [&](const Profile& profile) {
        const double angle = profile.Principal().angle;
        std::string text = "\n" + Commented("#", Remarks(profile, options)) +
                           Commented("#", {"vecxz: 0. " + ExportedNumber(std::sin(angle)) + " " +
                                           ExportedNumber(std::cos(angle))}) +
                           ElasticOf(language, profile, tag) + FibresIn(language, profile, tag + 1);
        tag += 2;
        return text;
    });
}

} // namespace

void WriteOpenSeesTcl(std::span<const sections::Section> sections, const ExchangeOptions& options,
                      std::ostream& file) {
    WriteIn(Tcl, sections, options, file);
}

void WriteOpenSeesPython(std::span<const sections::Section> sections,
                         const ExchangeOptions& options, std::ostream& file) {
    WriteIn(Python, sections, options, file);
}

} // namespace dbsection
