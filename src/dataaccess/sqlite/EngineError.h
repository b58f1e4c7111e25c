// What a failed call of the database engine means, as an error of the data-access layer.
#pragma once

#include "dataaccess/CSectionException.h"

#include <new>
#include <sqlcipher/sqlite3.h>
#include <string>
#include <utility>

namespace dbsection {

/// What was being done when the engine failed; the same engine code means different errors.
enum class Activity { Reading, Writing };

/// Throws an error in the words of a person: what failed, on what, and what to do.
[[noreturn]] void Fail(SectionError::Number number, const std::string& description);

/// Throws what the engine's result `code` means. `subject` names the file or table.
[[noreturn]] void FailFromEngine(int code, sqlite3* database, const std::string& subject,
                                 Activity activity);

/// Throws what a statement that the engine could not prepare means. `unknownName` is the number
/// for a name that is no column.
[[noreturn]] void FailFromStatement(int code, const std::string& engineMessage,
                                    const std::string& sql, const std::string& subject,
                                    SectionError::Number unknownName);

/// The name behind "no such column: " in a message of the engine, without its table, or empty.
std::string UnknownColumn(const std::string& engineMessage);

/// Runs `body`; memory exhaustion leaves it as CMemoryException*.
template <class Body>
decltype(auto) WithMemoryErrors(Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        throw CMemoryException::Instance();
    }
}

} // namespace dbsection
