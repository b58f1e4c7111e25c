// What a section may be called, in its sources and in files of the user.
#pragma once

#include <string>

namespace dbsection {

/// Why a section cannot have a public name, or a VessaName; empty when it can. No search finds a
/// name that holds a quote, and names are told apart without the blanks at their ends. A VessaName
/// is what the analysis engine looks up and hands back: at most 64 plain characters, and no "+",
/// which joins two names.
std::string NameFault(const std::string& name);
std::string VessaNameFault(const std::string& name);

} // namespace dbsection
