// Numbers and letters of drawings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dbsection {

/// With at most three decimals, and no zeros at the end of them.
std::string DrawnNumber(double number);

/// Characters of a UTF-8 text.
std::size_t LettersIn(std::string_view text);

} // namespace dbsection
