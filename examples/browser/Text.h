// Texts that a person types.
#pragma once

#include <dbSectionInterface.h>

#include <charconv>
#include <stdexcept>

namespace browser {

/// What a person asked for cannot be done. The text is for that person.
struct Refusal : std::runtime_error {
    explicit Refusal(const CString& text) : runtime_error(std::string(text.View())) {}
};

/// Letter case does not count in what is typed.
inline bool IsSameName(CString left, CString right) {
    return left.MakeUpper() == right.MakeUpper();
}

/// The number that is the whole text; 0 when it is none.
inline int NumberIn(const CString& text) {
    const std::string_view view = text.View();
    int number = 0;
    const auto [end, error] = std::from_chars(view.data(), view.data() + view.size(), number);
    return error == std::errc() && end == view.data() + view.size() ? number : 0;
}

inline CString Quoted(const CString& text) { return "\"" + text + "\""; }

} // namespace browser
