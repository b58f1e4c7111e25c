#include "output/Table.h"

#include <cstdio>
#include <fmt/format.h>

namespace dbsection {

void Print(std::span<const Table> tables, TableForm form) {
    const auto write = form == TableForm::Csv ? CsvOf : form == TableForm::Json ? JsonOf : TextOf;
    fmt::print("{}", write(tables));
}

} // namespace dbsection
