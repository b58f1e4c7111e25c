// Characteristics of beams for AFFE_CARA_ELEM of Code_Aster.
#include "exchange/ExchangeText.h"
#include "exchange/Formats.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <sstream>

namespace dbsection {
namespace {

/// The area by the shear area of a force along an axis that is turned from y or z.
double ShearCoefficient(double area, const ShearAreas& shear, double alongY, double alongZ) {
    return std::max(1.0, area * (alongY * alongY / shear.alongY + alongZ * alongZ / shear.alongZ));
}

std::string TextOf(const Profile& profile, const std::string& name,
                   const ExchangeOptions& options) {
    const PrincipalInertias inertias = profile.Principal();
    const double area = profile.Area();
    const double cosine = std::cos(inertias.angle);
    const double sine = std::sin(inertias.angle);
    const auto shear = profile.Shear();
    std::ostringstream text;
    text << "\n"
         << Commented("#", Remarks(profile, options)) << "POUTRE.append(_F(GROUP_MA='" << name
         << "', SECTION='GENERALE',\n                 CARA=('A', 'IY', 'IZ', 'JX'"
         << (shear ? ", 'AY', 'AZ'" : "") << "),\n                 VALE=(" << ExportedNumber(area)
         << ", " << ExportedNumber(inertias.strong) << ", " << ExportedNumber(inertias.weak) << ", "
         << ExportedNumber(profile.TorsionConstant());
    if (shear)
        text << ", " << ExportedNumber(ShearCoefficient(area, *shear, sine, cosine)) << ", "
             << ExportedNumber(ShearCoefficient(area, *shear, cosine, sine));
    text << ")))\nORIENTATION.append(_F(GROUP_MA='" << name << "', CARA='VECT_Y', VALE=(0., "
         << ExportedNumber(sine) << ", " << ExportedNumber(cosine) << ")))\n";
    return text.str();
}

} // namespace

void WriteCodeAster(std::span<const sections::Section> sections, const ExchangeOptions& options,
                    std::ostream& file) {
    file << Commented("#", HeadRemarks("Characteristics of beams for Code_Aster.", options))
         << Commented("#",
                      {"Give POUTRE and ORIENTATION to AFFE_CARA_ELEM; name groups of elements",
                       "by the names here. The local y axis is the strong principal one, of a",
                       "member along X, Y up. AY and AZ are area by shear area, along local y",
                       "and z."})
         << "\nE = " << ExportedNumber(ExchangeUnits::Of(options.length).steelModulus)
         << "\nNU = 0.3\n\nPOUTRE = []\nORIENTATION = []\n";
    constexpr std::size_t LongestName = 24; // of groups
    Identifiers names(LongestName);
    WriteEach(sections, options, file, [&](const Profile& profile) {
        return TextOf(profile, names.Make(profile.Section()), options);
    });
}

} // namespace dbsection
