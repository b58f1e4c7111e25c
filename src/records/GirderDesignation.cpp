#include "records/GirderDesignation.h"

#include "platform/Text.h"

#include <array>
#include <charconv>
#include <string>

namespace {

/// Cuts off the text up to one of two letters; nothing when neither is there.
std::optional<std::string_view> TakeUpTo(std::string_view& text, const char* letters) {
    const std::size_t end = text.find_first_of(letters);
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(end + 1);
    return part;
}

} // namespace

std::optional<GirderDesignation> GirderDesignation::Parse(std::string_view text) {
    using dbsection::LeadingNumber;
    const auto span = TakeUpTo(text, "Ss");
    const auto depth = span ? TakeUpTo(text, "Gg") : span;
    const auto joists = depth ? TakeUpTo(text, "Nn") : depth;
    const auto load = joists ? TakeUpTo(text, "Kk") : joists;
    if (!load)
        return std::nullopt;
    return GirderDesignation{LeadingNumber<int>(*span), LeadingNumber<int>(*depth),
                             LeadingNumber<int>(*joists), LeadingNumber<double>(*load)};
}

CString GirderDesignation::Text() const {
    std::array<char, 512> load{};
    const auto end = std::to_chars(load.data(), load.data() + load.size(), panelLoad,
                                   std::chars_format::fixed, 1);
    return CString(std::to_string(span) + "S" + std::to_string(depth) + "G" +
                   std::to_string(joists) + "N" + std::string(load.data(), end.ptr) + "K");
}
