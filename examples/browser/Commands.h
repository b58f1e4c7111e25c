// The commands, each on a line of its own: a word and its arguments.
#pragma once

#include "Session.h"

#include <vector>

namespace browser {

/// Runs the command that a line holds; names with blanks may stand in quotes. Throws Refusal, with
/// the reason, when it cannot be done.
void Execute(Session& session, const CString& line);

using Arguments = std::vector<CString>;
using Action = void(Session& session, const Arguments& arguments);

Action Catalogues, Use, Families, ChooseFamily, Names, Fields, ChooseUnits; // ListCommands.cpp
Action Show, ShowAll, Summary, PrincipalAngle;                              // ValueCommands.cpp
Action Find, Draw;                                                          // FindCommand.cpp
Action Prefer, Preferred;                                                   // PreferCommands.cpp

/// The one name that all arguments make: those of catalogues and families hold blanks.
CString Joined(const Arguments& arguments);

} // namespace browser
