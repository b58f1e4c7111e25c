// Column values as variants, and variants as values that the engine stores.
#pragma once

#include "dataaccess/sqlite/RowStore.h"
#include "dataaccess/sqlite/Statement.h"
#include "platform/COleVariant.h"

namespace dbsection {

/// The value of a cell as a variant of the column's field type. A value that the type cannot hold
/// comes as the variant that holds it whole.
COleVariant ToVariant(const Cell& cell, const RowStore& rows, const ResultColumn& column);

/// The variant that a column stores: numbers for numeric columns, also where a text was given. A
/// value that the column's type cannot hold is refused (error 3421); `table` names it.
COleVariant ToStored(const COleVariant& value, const ResultColumn& column,
                     const std::string& table);

/// Binds a text, a number, a cell or a stored value to a parameter of a statement; texts must
/// outlive its run. Throws where it cannot be bound: the parameter would be null.
void Bind(sqlite3_stmt* statement, int parameter, std::string_view text);
void Bind(sqlite3_stmt* statement, int parameter, double number);
void Bind(sqlite3_stmt* statement, int parameter, const Cell& cell, const RowStore& rows);
void Bind(sqlite3_stmt* statement, int parameter, const COleVariant& stored);

} // namespace dbsection
