// Exceptions of the platform layer.
//
// They are thrown by pointer and released by whoever catches them:
//
//     try { ... } catch (CFileException* e) { ...; e->Delete(); }
//
// No exception leaves the library's free functions, façade and catalogue objects, except the
// invalid-argument error where their headers name it.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

#ifndef __AFX_H__

/// Base of all exceptions that are thrown by pointer.
class DBSECTION_API CException {
public:
    CException() = default;
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;

    /// Releases the exception. Every catch block calls it exactly once.
    virtual void Delete();

    /// The message a person reads.
    virtual CString GetMessage() const = 0;

    /// Copies the message into a buffer of `size` bytes, cut to fit and always terminated.
    /// Returns 1, or 0 when there is no room at all.
    int GetErrorMessage(char* buffer, unsigned int size, unsigned int* helpContext = nullptr) const;

protected:
    virtual ~CException() = default;
};

/// Memory is exhausted. One instance serves the process, so that throwing it needs no memory.
class DBSECTION_API CMemoryException : public CException {
public:
    static CMemoryException* Instance();
    void Delete() override;
    CString GetMessage() const override;
};

/// An argument or an index is out of its range.
class DBSECTION_API CInvalidArgException : public CException {
public:
    CString GetMessage() const override;
};

/// A file operation failed.
class DBSECTION_API CFileException : public CException {
public:
    /// `osError` is the operating system's error number, `fileName` the file concerned.
    explicit CFileException(int osError = 0, CString fileName = {});
    CString GetMessage() const override;

    int m_lOsError;
    CString m_strFileName;
};

/// A component failed with a 32-bit status code.
class DBSECTION_API COleException : public CException {
public:
    explicit COleException(int status = 0);
    CString GetMessage() const override;

    int m_sc;
};

/// Stored data could not be read or written.
class DBSECTION_API CArchiveException : public CException {
public:
    explicit CArchiveException(int cause = 0, CString fileName = {});
    CString GetMessage() const override;

    int m_cause;
    CString m_strFileName;
};

#endif

namespace dbsection {

/// Throws the invalid-argument error (`CInvalidArgException*`).
[[noreturn]] DBSECTION_API void ThrowInvalidArgument();

} // namespace dbsection
