#include "dataaccess/LastFailure.h"

#include <array>
#include <cstdio>

namespace dbsection {
namespace {

constinit std::array<char, 1024> lastFailure{};

} // namespace

const char* LastFailureText() { return lastFailure.data(); }

void KeepFailure(const char* message, const char* cause) {
    const char* separator = *message == '\0' || *cause == '\0' ? "" : " ";
    std::snprintf(lastFailure.data(), lastFailure.size(), "%s%s%s", message, separator, cause);
}

void ForgetFailure() { lastFailure.front() = '\0'; }

} // namespace dbsection
