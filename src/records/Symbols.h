// How standards write what the columns of this library are called.
//
//     SymbolOf("IZ", Symbols::Aisc) == "Ix";    SymbolOf("IZ", Symbols::Eurocode) == "Iy"
//
// The same letter stands for different axes: about its major axis a section bends by Ix in American
// standards, by Iy in European ones, by IZ here.
#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace dbsection {

enum class Symbols : std::uint8_t { Program, Aisc, Eurocode };

/// The choice of that name: "program", "aisc" or "eurocode", of any letter case.
DBSECTION_API std::optional<Symbols> SymbolsOf(std::string_view name);

/// The symbol of a column or a derived figure; its own name where the standard has none.
DBSECTION_API std::string_view SymbolOf(std::string_view column, Symbols symbols);

/// The names of the axes: of the member's own, the major and the minor one.
DBSECTION_API const char* AxesOf(Symbols symbols);

} // namespace dbsection
