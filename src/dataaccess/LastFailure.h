// The text of the failure that an exception handler took last, for hosts that no message box
// reaches.
#pragma once

namespace dbsection {

/// What failed and why; empty where nothing has since it was forgotten. The text is changed by the
/// next failure.
const char* LastFailureText();

/// Keeps a failure without memory of the heap, which may be short; a long text is cut.
void KeepFailure(const char* message, const char* cause);

void ForgetFailure();

} // namespace dbsection
