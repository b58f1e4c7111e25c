#include "dataaccess/CSectionException.h"

#include <utility>

CSectionException::CSectionException(std::int32_t number, CString description)
    : m_errorInfo(CSectionErrorInfo{number, std::move(description)}) {}

CString CSectionException::GetMessage() const {
    if (m_errorInfo)
        return m_errorInfo->m_strDescription;
    CString text;
    text.Format("The database engine failed with status 0x%08X.",
                static_cast<unsigned int>(m_scode));
    return text;
}
