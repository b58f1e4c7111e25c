#include "exchange/Exchange.h"

#include "exchange/Formats.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace dbsection {
namespace {

constexpr std::array Formats{
    ExchangeFormat{"calculix", ".inp", "cards of beam sections for CalculiX", WriteCalculiX},
    ExchangeFormat{"opensees", ".tcl", "sections for OpenSees, in Tcl", WriteOpenSeesTcl},
    ExchangeFormat{"openseespy", ".py", "the same in Python", WriteOpenSeesPython},
    ExchangeFormat{"aster", ".comm", "characteristics of beams for Code_Aster", WriteCodeAster},
    ExchangeFormat{"ifc", ".ifc", "profiles of IFC4", WriteIfc},
#ifdef DBSECTION_XLSX
    ExchangeFormat{"xlsx", ".xlsx", "a spreadsheet, with a sheet for each family", WriteXlsx},
#endif
};

} // namespace

std::span<const ExchangeFormat> ExchangeFormats() { return Formats; }

const ExchangeFormat* FindExchangeFormat(std::string_view name) {
    const auto place = std::ranges::find_if(
        Formats, [name](const ExchangeFormat& format) { return EqualNoCase(format.name, name); });
    return place == Formats.end() ? nullptr : &*place;
}

} // namespace dbsection
