// Taking a column out of a table, which the engine cannot do.
#pragma once

#include <string>

namespace dbsection {

class Connection;

/// Makes a table anew without a column, as one change. Its rows keep their identifiers, and the
/// table all that another program may have given it; indexes over the column go with it. Refused
/// (error 3265) where more than the column would be lost.
void RemoveColumn(Connection& connection, const std::string& table, const char* column);

} // namespace dbsection
