// Narrow string of the platform layer: a thin shell on std::string.
//
//     CString path = folder + "AISCSections" + ".db3";
//     if (path.ReverseFind('\\') < 0) ...
//
// A CString converts to `const char*`, valid until the string changes. Letter case is that of
// ASCII and does not depend on the locale. Positions count from 0; -1 means "not found".
#pragma once

#include "platform/Export.h"

#include <compare>
#include <string>
#include <string_view>

#ifndef __AFX_H__

class DBSECTION_API CString {
public:
    CString() = default;
    CString(const char* text) : m_text(text == nullptr ? "" : text) {}
    CString(const char* text, int length);
    explicit CString(std::string text) : m_text(std::move(text)) {}
    explicit CString(std::string_view text) : m_text(text) {}

    operator const char*() const { return m_text.c_str(); }
    std::string_view View() const { return m_text; }

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }

    /// The character at `index`; an index out of range throws the invalid-argument error.
    char GetAt(int index) const;

    /// Part of the text; positions and counts beyond the text are cut to it.
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;

    int Find(char character, int start = 0) const;
    int Find(const char* text, int start = 0) const;
    int ReverseFind(char character) const;

    CString& MakeUpper();

    /// Replaces the text by a printf-style composition.
    void Format(const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 2, 3)))
#endif
        ;

    CString& operator+=(const CString& text) { return Append(text.m_text); }
    CString& operator+=(const char* text) { return Append(OrEmpty(text)); }
    CString& operator+=(char character) { return Append({&character, 1}); }

    friend CString operator+(CString left, const CString& right) { return left += right; }
    friend CString operator+(CString left, const char* right) { return left += right; }
    friend CString operator+(CString left, char right) { return left += right; }
    friend CString operator+(const char* left, const CString& right) {
        return CString(left) += right;
    }

    friend bool operator==(const CString& left, const CString& right) = default;
    // NOLINTNEXTLINE(modernize-use-nullptr): taken for a null pointer by mistake
    friend auto operator<=>(const CString& left, const CString& right) = default;
    friend bool operator==(const CString& left, const char* right) {
        return left.View() == OrEmpty(right);
    }
    friend auto operator<=>(const CString& left, const char* right) {
        return left.View() <=> OrEmpty(right);
    }

private:
    static std::string_view OrEmpty(const char* text) { return text == nullptr ? "" : text; }

    CString& Append(std::string_view text) {
        m_text += text;
        return *this;
    }

    std::string m_text;
};

#endif
