#include "queries/QueryText.h"

#include "interface/SectionDBInterface.h"

#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace dbsection {
namespace {

constexpr DWORD NoSection = SectionDBInterface::NoSection;

/// Record number 0 never exists.
CString NumberList(const CDWordArray& selection) {
    if (selection.GetAt(0) == NoSection)
        return "0";
    CString list;
    for (const DWORD number : selection)
        list += (list.IsEmpty() ? "" : ",") + CString(std::to_string(static_cast<int>(number)));
    return list;
}

} // namespace

CString Fixed(double number, int decimals) {
    // The longest number has as many digits before the point as its largest exponent says.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::fixed, decimals);
    return {text.data(), static_cast<int>(end.ptr - text.data())};
}

CString SelectionClause(const CDWordArray& selection, SelectionForm form) {
    const DWORD first = selection.GetAt(0);
    if (static_cast<int>(first) <= 0 && first != NoSection)
        return {};
    const char* join = form == SelectionForm::Where ? " WHERE "
                       : form == SelectionForm::And ? " AND "
                                                    : "";
    return join + ("[RECNO] IN(" + NumberList(selection) + ")");
}

} // namespace dbsection
