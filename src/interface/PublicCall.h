// How every public function of the façade and the engine's interface is entered.
//
//     int SectionDBInterface::GetSectionCount(int index, int sectionType) {
//         return dbsection::PublicCall("GetSectionCount()", [&] { ... });
//     }
#pragma once

#include "dataaccess/Guard.h"
#include "platform/CallState.h"

#include <atomic>

namespace dbsection {

/// The stay of a thread in the library, whose state belongs to the whole process: other threads are
/// refused meanwhile. The thread itself may enter again, as from a message box.
class Admission {
public:
    Admission() : m_isFirst(EnterFirst()), m_isGranted(m_isFirst || Inside() == &callState) {}
    Admission(const Admission&) = delete;
    Admission& operator=(const Admission&) = delete;
    ~Admission() {
        if (m_isFirst)
            inside.store(nullptr, std::memory_order_release);
    }

    /// False while another thread is inside.
    explicit operator bool() const { return m_isGranted; }

private:
    /// A thread is told by what only it has at that address.
    static std::atomic<const CallState*> inside;

    static const CallState* Inside() { return inside.load(std::memory_order_relaxed); }

    /// Whether nobody was inside, and this thread is now. The look beforehand costs less than
    /// trying.
    static bool EnterFirst() {
        const CallState* nobody = nullptr;
        return Inside() == nobody &&
               inside.compare_exchange_strong(nobody, &callState, std::memory_order_acquire,
                                              std::memory_order_relaxed);
    }

    bool m_isFirst;
    bool m_isGranted;
};

/// Tells the person at the screen that a call was refused. `label` names the function: "Name()".
void ShowRefusal(const char* label);

/// Runs the body of a public function as an Operation, unless another thread is inside: then it is
/// refused with a message, the failure value is returned, and no state of the library is touched.
template <class Body, class... Failure>
std::invoke_result_t<Body> PublicCall(const char* label, Body body, Failure... failure) {
    using Result = std::invoke_result_t<Body>;
    const Admission admission;
    if (admission)
        return Operation(label, body, failure...);
    ShowRefusal(label);
    return Result(failure...);
}

} // namespace dbsection
