#include "platform/CString.h"

#include "platform/Exceptions.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#ifndef __AFX_H__

namespace {

int PositionOrNotFound(std::size_t position) {
    return position == std::string::npos ? -1 : static_cast<int>(position);
}

} // namespace

CString::CString(const char* text, int length) {
    if (text != nullptr && length > 0)
        m_text.assign(text, static_cast<std::size_t>(length));
}

char CString::GetAt(int index) const {
    if (index < 0 || index >= GetLength())
        dbsection::ThrowInvalidArgument();
    return m_text[static_cast<std::size_t>(index)];
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
    const int begin = std::clamp(first, 0, GetLength());
    const int length = std::clamp(count, 0, GetLength() - begin);
    return {m_text.c_str() + begin, length};
}

CString CString::Left(int count) const { return Mid(0, count); }

CString CString::Right(int count) const {
    const int length = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - length, length);
}

int CString::Find(char character, int start) const {
    return start < 0 ? -1
                     : PositionOrNotFound(m_text.find(character, static_cast<std::size_t>(start)));
}

int CString::Find(const char* text, int start) const {
    return start < 0 ? -1 : PositionOrNotFound(m_text.find(text, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(char character) const {
    return PositionOrNotFound(m_text.rfind(character));
}

CString& CString::MakeUpper() {
    std::ranges::transform(m_text, m_text.begin(), dbsection::ToUpper);
    return *this;
}

void CString::Format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start is above
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    m_text = std::move(text);
}

#endif
