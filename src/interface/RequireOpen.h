// The check that operations on a caller's database begin with.
#pragma once

class CSectionDatabase;

namespace dbsection {

/// Whether a database is open; says so in a message when it is not.
bool RequireOpen(CSectionDatabase** ppDb);

} // namespace dbsection
