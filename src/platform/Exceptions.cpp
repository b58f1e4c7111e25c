#include "platform/Exceptions.h"

#include <algorithm>
#include <cstring>
#include <system_error>
#include <utility>

#ifndef __AFX_H__

void CException::Delete() { delete this; }

int CException::GetErrorMessage(char* buffer, unsigned int size, unsigned int* helpContext) const {
    if (helpContext != nullptr)
        *helpContext = 0;
    if (buffer == nullptr || size == 0)
        return 0;
    const CString message = GetMessage();
    const auto length = std::min<std::size_t>(size - 1, std::strlen(message));
    std::memcpy(buffer, static_cast<const char*>(message), length);
    buffer[length] = '\0';
    return 1;
}

CMemoryException* CMemoryException::Instance() {
    static CMemoryException instance;
    return &instance;
}

void CMemoryException::Delete() {}

CString CMemoryException::GetMessage() const { return "Out of memory."; }

CString CInvalidArgException::GetMessage() const {
    return "An argument or an index is out of its range.";
}

CFileException::CFileException(int osError, CString fileName)
    : m_lOsError(osError),
      m_strFileName(std::move(fileName)) {}

CString CFileException::GetMessage() const {
    const CString cause(std::generic_category().message(m_lOsError));
    return m_strFileName.IsEmpty() ? cause : m_strFileName + ": " + cause;
}

COleException::COleException(int status) : m_sc(status) {}

CString COleException::GetMessage() const {
    CString text;
    text.Format("A component failed with status 0x%08X.", static_cast<unsigned int>(m_sc));
    return text;
}

CArchiveException::CArchiveException(int cause, CString fileName)
    : m_cause(cause),
      m_strFileName(std::move(fileName)) {}

CString CArchiveException::GetMessage() const {
    CString text;
    text.Format("Stored data could not be read or written (cause %d).", m_cause);
    return m_strFileName.IsEmpty() ? text : m_strFileName + ": " + text;
}

#endif

namespace dbsection {

void ThrowInvalidArgument() { throw new CInvalidArgException; }

} // namespace dbsection
