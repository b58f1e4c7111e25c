// Text renderings of type codes and column values.
#pragma once

#include "platform/COleVariant.h"
#include "platform/CString.h"
#include "platform/Export.h"

class DBSECTION_API CCrack {
public:
    static const char* strFieldType(short code);
    static const char* strQueryDefType(short code);
    static const char* strBOOL(int value);

    /// -1 for a true VT_BOOL, 0 for everything else.
    static int boolVARIANT(const COleVariant& value);

    /// The one way a column value becomes text. Numbers read as in the C locale.
    static CString strVARIANT(const COleVariant& value);
};
