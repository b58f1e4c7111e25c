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

/// The title of a catalogue file, which is checked to be of this program's layout version. Throws
/// CommandError.
std::string TitleOf(const CString& path);

/// The family of a catalogue that a person named. Throws CommandError, naming the families.
const SectionFamily& FindFamily(const OpenCatalogue& open, const std::string& name);

/// Prints the families of a catalogue with their numbers of sections.
void ListFamilies(const OpenCatalogue& open);

/// The connect text that carries a password. Throws CommandError where none can.
std::string ConnectText(const std::string& password);

/// A text as it stands between single quotes in a statement.
std::string QuoteEscaped(const std::string& text);

} // namespace dbsection
