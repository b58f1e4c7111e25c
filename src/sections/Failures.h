// What the data-access classes throw, as the one exception of the C++ interface.
#pragma once

#include "dataaccess/CSectionException.h"
#include "sections/Error.h"

#include <new>
#include <string>

namespace sections {

[[noreturn]] inline void failInTable(SectionError::Number number, const std::string& path,
                                     const std::string& table, const std::string& fault) {
    throw Error(number, path + ": table \"" + table + "\": " + fault);
}

/// Runs `body`; `path` is the file that it works on.
template <class Body>
auto translated(const std::string& path, Body body) {
    try {
        return body();
    } catch (CSectionException* e) {
        const Error error(e->GetErrorNumber(), std::string(e->GetMessage().View()));
        e->Delete();
        throw error;
    } catch (CException* e) {
        e->Delete();
        throw Error(0, path + ": memory is exhausted.");
    } catch (const std::bad_alloc&) {
        throw Error(0, path + ": memory is exhausted.");
    }
}

} // namespace sections
