// Process-wide state: the engine-mode switch, the kind of the last exception, and the password.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

/// Base of SectionDBInterface, which exports these members as its own.
class DBSECTION_API SectionLibraryState {
public:
    /// Engine mode silences every message box of the exception handlers.
    static void SetEngineMode(int mode) { m_bEngineMode = mode; }
    static int IsEngineMode() { return m_bEngineMode; }

    /// Kind of the last exception that a handler took: 0 none, 1 memory, 2 file, 3 resource,
    /// 4 data access, 5 component, 6 archive. Resetting it is the caller's business.
    static void SetExceptionType(int type) { m_nExceptionType = type; }
    static int GetExceptionType() { return m_nExceptionType; }

    static int m_bEngineMode;
    static int m_nExceptionType;

    /// The database engine's error number that HandleDaoException took last, and how often it has
    /// come again since. Both are only written by the library.
    static int m_nLastDaoError;
    static int m_nDaoErrorRepeats;

    /// Connect text of every database that the library itself opens, but for GetDBInfo's.
    static CString m_szPassword;
};
