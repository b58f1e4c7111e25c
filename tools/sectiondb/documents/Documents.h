// The documents that are installed with the program, written from the description of its commands.
#pragma once

#include "documents/CommandDescription.h"

#include <string>

namespace dbsection {

/// The name of a command's manual page without its ending: "sectiondb-user-add".
std::string PageName(const CommandDescription& command);

/// Manual pages in the macros of man(7).
std::string ProgramPage(const CommandDescription& program);
std::string CommandPage(const CommandDescription& command);

/// Completions of the command line.
std::string BashCompletion(const CommandDescription& program);
std::string ZshCompletion(const CommandDescription& program);
std::string FishCompletion(const CommandDescription& program);

} // namespace dbsection
