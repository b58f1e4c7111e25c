#include "records/SectionNames.h"

#include "platform/Text.h"

#include <algorithm>

namespace dbsection {
namespace {

bool IsControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }
bool IsPlain(char c) { return c >= ' ' && c <= '~'; }

} // namespace

std::string NameFault(const std::string& name) {
    if (name.empty())
        return "it is empty";
    if (Trim(name).size() != name.size())
        return "it begins or ends with a blank";
    if (name.find('\'') != std::string::npos)
        return "it holds a quote";
    if (std::ranges::any_of(name, IsControl))
        return "it holds a control character";
    return "";
}

std::string VessaNameFault(const std::string& name) {
    constexpr std::size_t Longest = 64;
    if (std::string fault = NameFault(name); !fault.empty())
        return fault;
    if (name.size() > Longest)
        return "it has more than 64 characters";
    if (name.find('+') != std::string::npos)
        return R"(it holds a "+")";
    if (!std::ranges::all_of(name, IsPlain))
        return "it holds a letter that is not in ASCII";
    return "";
}

std::string VessaNameOf(std::string_view name) {
    std::string vessaName = UpperCase(name);
    std::erase(vessaName, ' ');
    return vessaName;
}

} // namespace dbsection
