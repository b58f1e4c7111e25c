// Cards of CalculiX (2.11 and later) for its general beam section, that of the user element U1.
//
// U1 bends rightly in the plane of its 1-direction alone: in the other one the ends of elements
// that meet turn against each other. It has no torsion constant either: its torsional stiffness is
// G (I11 + I22). So a member is two elements on the same nodes, one for each principal plane, whose
// shear moduli, by their Poisson's ratios, add up to the torsion constant of the section.
#include "exchange/ExchangeText.h"
#include "exchange/Formats.h"

#include <cmath>
#include <ostream>
#include <sstream>

namespace dbsection {
namespace {

constexpr double Poisson = 0.3;

/// Poisson's ratio of the elements that bend about the strong axis; their shear modulus is twice
/// the modulus of elasticity, more than that of any section.
constexpr double StrongPoisson = -0.75;

double ShearModulus(double modulus, double poisson) { return modulus / (2 * (1 + poisson)); }

/// Of the elements that bend about the weak axis: what is left of the torsion constant for them.
double WeakPoisson(const PrincipalInertias& inertias, double torsionConstant) {
    const double left = ShearModulus(1, Poisson) * torsionConstant -
                        ShearModulus(1, StrongPoisson) * inertias.strong;
    return inertias.weak / (2 * left) - 1;
}

/// A field of at most 20 characters.
std::string Ratio(double poisson) {
    constexpr double Places = 1e15;
    std::string text = std::to_string(static_cast<long long>(std::llround(-poisson * Places)));
    constexpr std::size_t Digits = 15;
    if (text.size() <= Digits)
        text.insert(0, Digits + 1 - text.size(), '0');
    return '-' + text.insert(text.size() - Digits, ".");
}

struct Part {
    std::string name;
    double poisson;
    double inertia;
    Point direction; ///< in which it bends
};

std::string TextOf(const Part& part, double area, double modulus) {
    constexpr const char* RigidInShear = "1000000."; // U1 is not to be relied on in shear
    std::ostringstream text;
    text << "*MATERIAL, NAME=" << part.name << "\n*ELASTIC\n"
         << ExportedNumber(modulus) << ", " << Ratio(part.poisson)
         << "\n*BEAM SECTION, ELSET=" << part.name << ", MATERIAL=" << part.name
         << ", SECTION=GENERAL\n"
         << ExportedNumber(area) << ", " << ExportedNumber(part.inertia) << ", 0., 0., "
         << RigidInShear << "\n0., " << ExportedNumber(part.direction.y) << ", "
         << ExportedNumber(part.direction.z) << "\n";
    return text.str();
}

std::string TextOf(const Profile& profile, const std::string& name,
                   const ExchangeOptions& options) {
    const double modulus = ExchangeUnits::Of(options.length).steelModulus;
    const PrincipalInertias inertias = profile.Principal();
    const double weakPoisson = WeakPoisson(inertias, profile.TorsionConstant());
    const double cosine = std::cos(inertias.angle);
    const double sine = std::sin(inertias.angle);
    const double half = profile.Area() / 2;
    return "**\n" + Commented("**", Remarks(profile, options)) +
           TextOf({name + "_1", StrongPoisson, inertias.strong, {-sine, cosine}}, half, modulus) +
           TextOf({name + "_2", weakPoisson, inertias.weak, {cosine, sine}}, half, modulus);
}

} // namespace

void WriteCalculiX(std::span<const sections::Section> sections, const ExchangeOptions& options,
                   std::ostream& file) {
    file
        << Commented("**", HeadRemarks("Beam sections for CalculiX.", options))
        << Commented(
               "**",
               {"Include this file behind the elements: *INCLUDE, INPUT=FILE",
                "A member is two elements of type U1 on the same nodes, one in the set NAME_1, one",
                "in NAME_2. Declare the type before them:",
                "*USER ELEMENT, TYPE=U1, NODES=2, INTEGRATION POINTS=2, MAXDOF=6",
                "Members lie along the global X axis, Y is up. Of others turn the last line of",
                "each section, the direction in which its elements bend.",
                "Poisson's ratios are no material's: they make torsion right for one of 0.3.",
                "Shear deformation is left out. Linear statics only, as U1 is."});
    constexpr std::size_t LongestName = 18; // of sets 20, of which it needs two itself
    Identifiers names(LongestName);
    WriteEach(sections, options, file, [&](const Profile& profile) {
        return TextOf(profile, names.Make(profile.Section()), options);
    });
}

} // namespace dbsection
