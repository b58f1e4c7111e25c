// What a section may be called, in its sources and in files of the user.
#pragma once

#include "platform/Export.h"

#include <string>
#include <string_view>

namespace dbsection {

/// Why a section cannot have a public name, or a VessaName; empty when it can. No search finds a
/// name that holds a quote, and names are told apart without the blanks at their ends. A VessaName
/// is what the analysis engine looks up and hands back: at most 64 plain characters, and no "+",
/// which joins two names.
DBSECTION_API std::string NameFault(const std::string& name);
DBSECTION_API std::string VessaNameFault(const std::string& name);

/// What is told where a table has another section of the public name.
inline constexpr const char* DuplicateNameText = "Duplicate section name!! Record not saved.";

/// The VessaName of a section that was given none: its public name in capitals without blanks.
DBSECTION_API std::string VessaNameOf(std::string_view name);

} // namespace dbsection
