// Everything that a C++ host of dbSectionInterface includes.
#pragma once

#include "catalogues/Catalogues.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/DataAccess.h"
#include "dataaccess/ExceptionHandlers.h"
#include "dataaccess/Handles.h"
#include "interface/SectionDBInterface.h"
#include "platform/MessageBox.h"
#include "platform/PrivateProfile.h"
#include "records/CatalogueRecords.h"
#include "units/UNIT.h"
#include "units/UnitText.h"
