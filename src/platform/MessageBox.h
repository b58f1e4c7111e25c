// Message boxes: how the library speaks to the person at the screen.
//
// The host supplies the box; without one, caption and text go to stderr. A box may be shown on any
// thread that calls the library, and may itself call the library.
#pragma once

#include "platform/Export.h"

#ifndef __AFX_H__

inline constexpr unsigned MB_ICONERROR = 0x10;

#endif

/// Shows a box and returns the number of the button pressed. The texts live for the call only.
using MessageBoxHandler = int (*)(const char* text, const char* caption, unsigned flags);

/// Installs the host's message box and returns the one before it; null stands for the default.
DBSECTION_API MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

namespace dbsection {

/// Shows a message box with the error icon.
DBSECTION_API void ShowMessageBox(const char* text, const char* caption);

} // namespace dbsection
