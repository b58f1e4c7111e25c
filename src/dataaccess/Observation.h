// Whether a host follows the statements (SetStatementObserver).
#pragma once

namespace dbsection {

/// Every statement is then to be opened, also where its answer is known.
bool IsObserved();

} // namespace dbsection
