// The transaction of the library-wide database.
#pragma once

namespace dbsection {

/// The catalogue on which it is under way, or 0.
int CatalogueInTransaction();

} // namespace dbsection
