#include "faults/PublicCall.h"

#include <array>
#include <cstdio>
#include <memory>

namespace faults {
namespace {

template <class Texts>
std::string Joined(const Texts& texts) {
    std::string joined;
    for (const CString& text : texts)
        joined += (joined.empty() ? "" : ",") + std::string(text);
    return joined.empty() ? "empty" : joined;
}

template <class Texts>
std::string JoinedAndDeleted(Texts* texts) {
    const std::unique_ptr<Texts> owned(texts);
    return owned ? Joined(*owned) : "null";
}

} // namespace

PublicCall PublicCall::On(std::function<void()> preparation) && {
    prepare = std::move(preparation);
    return std::move(*this);
}

PublicCall PublicCall::Leaving(std::function<std::string()> content) && {
    left = std::move(content);
    return std::move(*this);
}

PublicCall PublicCall::Quietly() && {
    isQuiet = true;
    return std::move(*this);
}

PublicCall PublicCall::Reporting(std::size_t times) && {
    mostReports = times;
    return std::move(*this);
}

PublicCalls AllOf(std::initializer_list<PublicCalls> parts) {
    PublicCalls all;
    for (const PublicCalls& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::string Tell(int value) { return std::to_string(value); }

std::string Tell(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.5g", value);
    return text.data();
}

std::string Tell(const CString& text) {
    return text.IsEmpty() ? "empty" : std::string(text.View());
}

std::string Tell(const CStringArray& texts) { return Joined(texts); }

std::string Tell(const CUIntArray& numbers) {
    std::string joined;
    for (const unsigned number : numbers)
        joined += (joined.empty() ? "" : ",") + std::to_string(static_cast<int>(number));
    return joined.empty() ? "empty" : joined;
}

std::string Tell(CStringList* list) { return JoinedAndDeleted(list); }

std::string Tell(CStringArray* array) { return JoinedAndDeleted(array); }

} // namespace faults
