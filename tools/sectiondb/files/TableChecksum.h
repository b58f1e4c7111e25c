// Checksums of what the tables of a file hold, by which a change after the build shows.
#pragma once

#include "dataaccess/CSectionDatabase.h"

#include <string>

namespace dbsection {

/// The checksum of a table: the SHA-256 of its name, the names of its columns, and the values of
/// its rows in stored order. Throws CException* where it cannot be read.
std::string ChecksumOf(CSectionDatabase& database, const std::string& table);

/// Those of all tables but "DBInfo", which keeps them, hidden ones included: for each table a line,
/// its checksum, two blanks and its name.
std::string ChecksumsOf(CSectionDatabase& database);

} // namespace dbsection
