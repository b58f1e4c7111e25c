// Pieces of query statements. Numbers are written without regard to the host's locale.
#pragma once

#include "platform/CString.h"
#include "platform/Collections.h"

namespace dbsection {

/// A number as printf's "%f" (six decimals) or "%0.1f" (one) writes it.
CString Fixed(double number, int decimals = 6);

/// How the restriction to the user's selection is joined to a statement.
enum class SelectionForm { Where, And, Bare };

/// The restriction to a user's selection of record numbers, or empty where every section is
/// selected. An empty selection throws the invalid-argument error.
CString SelectionClause(const CDWordArray& selection, SelectionForm form);

} // namespace dbsection
