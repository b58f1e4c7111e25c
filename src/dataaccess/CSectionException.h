// The exception of the data-access layer.
//
//     try { database.Open(path); }
//     catch (CSectionException* e) {
//         if (e->GetErrorNumber() == SectionError::FileNotFound) ...
//         e->Delete();
//     }
#pragma once

#include "platform/CString.h"
#include "platform/Exceptions.h"
#include "platform/Export.h"

#include <cstdint>
#include <optional>

/// Error numbers of the data-access layer.
namespace SectionError {
enum Number : std::int32_t {
    TableExists = 3010,
    UpdateWithoutEdit = 3020,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    FileNotFound = 3024,
    DiskFull = 3026,
    ReadOnly = 3027,
    WrongPassword = 3031, ///< or no password for a protected file
    NoTransaction = 3034, ///< an earlier failure has undone it
    Io = 3043,
    InUse = 3045,
    Damaged = 3049,
    UnknownNameInStatement = 3061,
    UnknownNameInCondition = 3070,
    BadStatement = 3075,
    NoSuchTable = 3078,
    InvalidName = 3125,
    ChangedByOther = 3197, ///< the row, since it was read
    DatabaseExists = 3204,
    LockedWhileWriting = 3218,
    NoSuchItem = 3265, ///< no such field or table information
    ValueRequired = 3314,
    RuleBroken = 3317, ///< a validation rule of a column
    NotADatabase = 3343,
    QueryTooComplex = 3360, ///< it works too long for one row of its result
    ObjectClosed = 3420,
    WrongValueType = 3421,
};
} // namespace SectionError

/// One error-information record: what failed, on which file or table, and what to do.
struct DBSECTION_API CSectionErrorInfo {
    std::int32_t m_lErrorCode = 0;
    CString m_strDescription;
};

/// Thrown by pointer by every operation of the data-access classes. It carries an error-information
/// record, or, when the database engine cannot work at all, a status code only.
class DBSECTION_API CSectionException : public CException {
public:
    CSectionException(std::int32_t number, CString description);
    explicit CSectionException(std::int32_t status) : m_scode(status) {}

    CString GetMessage() const override;

    /// The error number, or 0 when there is no error-information record.
    std::int32_t GetErrorNumber() const { return m_errorInfo ? m_errorInfo->m_lErrorCode : 0; }

    std::optional<CSectionErrorInfo> m_errorInfo;
    std::int32_t m_scode = 0;
};
