// Statements that look for a name which came from outside.
#pragma once

#include "dataaccess/DataAccess.h"

namespace dbsection {

/// Whether a name can stand between quotes in a statement, where a quote in it would end the text.
/// One that cannot is reported as a statement that failed to open.
bool IsSearchable(const CString& name);

/// Opens a statement that holds `name` between quotes. A name that is not searchable counts as a
/// failed open: the recordset that was there is closed.
int OpenByName(CSectionDatabase** db, CSectionRecordset** rs, const CString& name,
               const CString& sql, int openType);

} // namespace dbsection
