#include "dataaccess/LibraryState.h"

int SectionLibraryState::m_bEngineMode = 0;
int SectionLibraryState::m_nExceptionType = 0;
int SectionLibraryState::m_nLastDaoError = 0;
int SectionLibraryState::m_nDaoErrorRepeats = 0;
CString SectionLibraryState::m_szPassword;
