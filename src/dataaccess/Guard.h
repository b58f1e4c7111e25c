// The one catch of the library: of the data-access functions, and of the public operations on top.
#pragma once

#include "dataaccess/ExceptionHandlers.h"
#include "platform/CallState.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace dbsection {

/// How a function fails: what it tells the exception handlers, what it returns, and which error
/// numbers it keeps to itself.
struct FailureRule {
    const char* label; ///< null: nothing is reported at all
    const char* message;
    int result = 0;
    std::array<std::int32_t, 2> silentErrors{}; ///< 0 is none
    bool allSilent = false;                     ///< but for memory exhaustion
};

/// Hands `e` to its handler, without the texts where there is no memory left for them.
template <class Exception>
void Report(const FailureRule& rule, Exception* e, void (*handler)(Exception*, CString, CString)) {
    ++callState.failures;
    try {
        handler(e, rule.message, rule.label); // throws only while the texts are made
    } catch (const std::bad_alloc&) {
        handler(e, {}, {});
    }
}

inline void HandleFailure(const FailureRule& rule, CSectionException* e) {
    const int number = e->GetErrorNumber();
    const bool isSilent = number != 0 && std::ranges::count(rule.silentErrors, number) > 0;
    if (rule.label == nullptr || rule.allSilent || isSilent)
        e->Delete();
    else
        Report(rule, e, HandleDaoException);
}

/// One report does for a call of the host, however often memory runs out in it.
inline void HandleFailure(const FailureRule& rule, CMemoryException* e) {
    NoteMemoryRanOut();
    if (rule.label == nullptr || callState.memory == CallState::Memory::Reported) {
        e->Delete();
        return;
    }
    callState.memory = CallState::Memory::Reported;
    Report(rule, e, HandleMemoryException);
}

/// Fails the call where memory has run out in it, though what met that went on: an answer that was
/// come to in spite of it may be wrong.
inline void RequireMemory() {
    if (callState.memory != CallState::Memory::Sufficed)
        throw CMemoryException::Instance();
}

/// The same for any failure that the watch has seen.
inline void RequireNone(const FailureWatch& watch) {
    RequireMemory();
    if (watch.HasSeenAny())
        throw ReportedFailure();
}

/// Gives an object to the host, as the last step of a call.
template <class Object>
Object* HandOver(std::unique_ptr<Object> object) {
    RequireMemory();
    return object.release();
}

/// Runs `body`; what it throws is handled as the rule says. Whether it came to its end.
/// `errorNumber` receives the number of a failure that has one.
template <class Body>
bool Completes(const FailureRule& rule, Body body, int* errorNumber = nullptr) {
    const CallScope scope;
    try {
        body();
        return true;
    } catch (CSectionException* e) {
        if (errorNumber != nullptr)
            *errorNumber = e->GetErrorNumber();
        HandleFailure(rule, e);
    } catch (CMemoryException* e) {
        HandleFailure(rule, e);
    } catch (const std::bad_alloc&) {
        HandleFailure(rule, CMemoryException::Instance());
    } catch (const ReportedFailure&) {
        return false;
    }
    return false;
}

/// Runs `body`, an int function, and returns its result, or the rule's where it failed.
template <class Body>
int Guarded(const FailureRule& rule, Body body, int* errorNumber = nullptr) {
    int result = rule.result;
    Completes(
        rule, [&] { result = body(); }, errorNumber);
    return result;
}

/// Runs the body of a public operation and returns its result. Where the host made the call, what
/// the body throws, and memory that ran out in it, is reported under the label, and the failure
/// value returned, by default that of the type; a call from inside the library leaves that to the
/// operation that the host called, so that a failure is not taken for an answer there, nor reported
/// twice. The invalid-argument error, a fault of the host, always passes.
template <class Body, class... Failure>
std::invoke_result_t<Body> Operation(const char* label, Body body, Failure... failure) {
    using Result = std::invoke_result_t<Body>;
    const CallScope scope;
    if (!scope.IsHosts())
        return body();
    const FailureRule rule{label, "The call could not be completed."};
    if constexpr (std::is_void_v<Result>) {
        Completes(rule, [&] {
            body();
            RequireMemory();
        });
    } else {
        Result result{failure...};
        Completes(rule, [&] {
            Result answer = body();
            RequireMemory();
            result = std::move(answer);
        });
        return result;
    }
}

} // namespace dbsection
