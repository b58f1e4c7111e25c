// How the commands reach catalogues: by number, file stem or display name.
#pragma once

#include "catalogues/CatalogueSectionDB.h"
#include "dataaccess/CSectionDatabase.h"

#include <string>

namespace dbsection {

/// A catalogue with its database attached, ready to be asked.
struct OpenCatalogue {
    int index;
    CSectionDatabase* database;    ///< the library-wide handle
    CatalogueSectionDB* catalogue; ///< the driver's
};

/// The index of the catalogue that a person named. Throws CommandError, listing what there is.
int FindCatalogue(const std::string& name);

bool HasFile(int index);

/// Opens a catalogue and checks its layout version. Throws CommandError.
OpenCatalogue Open(int index);

/// The connect text that carries a password. Throws CommandError where none can.
std::string ConnectText(const std::string& password);

/// A text as it stands between single quotes in a statement.
std::string QuoteEscaped(const std::string& text);

} // namespace dbsection
