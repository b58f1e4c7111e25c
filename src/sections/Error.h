// The one exception of the C++ interface.
#pragma once

#include "platform/Export.h"

#include <stdexcept>
#include <string>

namespace sections {

/// What failed, on which file, table or section, and what to do. `number()` is one of
/// SectionError (dataaccess/CSectionException.h), 0 where memory is exhausted.
class DBSECTION_API Error : public std::runtime_error {
public:
    Error(int number, const std::string& text) : std::runtime_error(text), m_number(number) {}

    int number() const { return m_number; }

private:
    int m_number;
};

} // namespace sections
