#include "interface/PublicCall.h"

#include "platform/CallState.h"
#include "platform/MessageBox.h"

#include <array>
#include <atomic>
#include <cstdio>

namespace dbsection {
namespace {

/// A thread is told by what only it has at that address.
using ThreadMark = const CallState*;

constinit std::atomic<ThreadMark> inside = nullptr;

/// Whether nobody was inside, and this thread is now. The look beforehand costs less than trying.
bool EnterFirst() {
    ThreadMark nobody = nullptr;
    return inside.load(std::memory_order_relaxed) == nobody &&
           inside.compare_exchange_strong(nobody, &callState, std::memory_order_acquire,
                                          std::memory_order_relaxed);
}

} // namespace

Admission::Admission()
    : m_isFirst(EnterFirst()),
      m_isGranted(m_isFirst || inside.load(std::memory_order_relaxed) == &callState) {}

Admission::~Admission() {
    if (m_isFirst)
        inside.store(nullptr, std::memory_order_release);
}

void ShowRefusal(const char* label) {
    std::array<char, 128> caption{}; // without memory of the heap, which may be short
    std::snprintf(caption.data(), caption.size(), "Error - %s", label);
    ShowMessageBox("The call was refused: another thread is inside the library. Call it from one "
                   "thread at a time.",
                   caption.data());
}

} // namespace dbsection
