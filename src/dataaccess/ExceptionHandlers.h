// The six exception handlers, where every caught exception ends.
//
// Each stores the exception's kind (SectionLibraryState::GetExceptionType), shows a message box
// unless engine mode is on, and releases the exception. `message` says what failed, `label` names
// the function that failed, e.g. "openDatabase()".
#pragma once

#include "dataaccess/CSectionException.h"
#include "platform/CString.h"
#include "platform/Exceptions.h"
#include "platform/Export.h"

DBSECTION_API void HandleMemoryException(CMemoryException* e, CString message, CString label);
DBSECTION_API void HandleFileException(CFileException* e, CString message, CString label);
DBSECTION_API void HandleResourceException(CFileException* e, CString message, CString label);
DBSECTION_API void HandleOleException(COleException* e, CString message, CString label);
DBSECTION_API void HandleArchiveException(CArchiveException* e, CString message, CString label);

/// Errors that carry an engine error number are kept quiet; only low-level status failures reach
/// the user.
DBSECTION_API void HandleDaoException(CSectionException* e, CString message, CString label);
