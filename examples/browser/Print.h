// Plain text tables.
#pragma once

#include <dbSectionInterface.h>

#include <vector>

namespace browser {

using Row = std::vector<CString>;

/// A number to six digits, whatever the locale.
CString Text(double number);
CString Text(int number);

/// Prints rows, each column as wide as its widest cell. `alignment` has an l or an r for each
/// column; the last one holds for all further ones.
void PrintTable(const std::vector<Row>& rows, std::string_view alignment);

} // namespace browser
