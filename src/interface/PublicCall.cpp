#include "interface/PublicCall.h"

#include "platform/MessageBox.h"

#include <array>
#include <cstdio>

namespace dbsection {

constinit std::atomic<const CallState*> Admission::inside = nullptr;

void ShowRefusal(const char* label) {
    std::array<char, 128> caption{}; // without memory of the heap, which may be short
    std::snprintf(caption.data(), caption.size(), "Error - %s", label);
    ShowMessageBox("The call was refused: another thread is inside the library. Call it from one "
                   "thread at a time.",
                   caption.data());
}

} // namespace dbsection
