// The one catch of the data-access functions.
#pragma once

#include "dataaccess/ExceptionHandlers.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>

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

inline void HandleFailure(const FailureRule& rule, CMemoryException* e) {
    if (rule.label == nullptr)
        e->Delete();
    else
        Report(rule, e, HandleMemoryException);
}

/// Runs `body`, an int function; what it throws is handled as the rule says, and the rule's result
/// returned. `errorNumber` receives the number of a failure that has one.
template <class Body>
int Guarded(const FailureRule& rule, Body body, int* errorNumber = nullptr) {
    try {
        return body();
    } catch (CSectionException* e) {
        if (errorNumber != nullptr)
            *errorNumber = e->GetErrorNumber();
        HandleFailure(rule, e);
    } catch (CMemoryException* e) {
        HandleFailure(rule, e);
    } catch (const std::bad_alloc&) {
        HandleFailure(rule, CMemoryException::Instance());
    }
    return rule.result;
}

} // namespace dbsection
