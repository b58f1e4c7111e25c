// Why a call of the library failed that gives no reason itself.
#pragma once

#include <string>

namespace dbsection {

/// Keeps the library's messages from now on, in place of showing them: the commands tell in their
/// own words what failed.
void KeepMessages();

/// Forgets what the library has said so far. To be called before the call in question.
void ForgetFailure();

/// Whether the library has reported a failure since, and which: what is wrong and what to do.
bool HasFailed();
std::string ReasonOfFailure();

} // namespace dbsection
