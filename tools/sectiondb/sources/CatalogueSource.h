// The text sources of one catalogue, read and checked.
//
//     SourceLibrary library;
//     const CatalogueSource source = CatalogueSource::Load("data/AISCSections", library);
//
// The folder holds
//     _catalogue.csv    Key, Value: Title, Standard (with its edition), Source, and Units
// and, where there are figures,
//     _tables.csv       Table, Families (separated by ";"), maybe NameFrom: the tables with figures
// and nothing else that ends in .csv. Standard is told only where there are no figures: else it
// follows from the families. The name of the folder is the catalogue's file stem, by which its
// tables are known.
//
// A catalogue keeps one unit for each quantity: that in which its families are printed. Families in
// another system of units than the catalogue's are converted. NameFrom is the first word of the
// aliases that are the names in this catalogue: with "IR" a W12X26 is the IR 305 x 38.7 that the
// alias says.
#pragma once

#include "sources/SourceLibrary.h"
#include "sources/SourceTable.h"

#include <filesystem>
#include <string>
#include <vector>

namespace dbsection {

struct CatalogueSource {
    std::string stem; ///< name of the folder, and of the catalogue's file without its ending
    std::string title;
    std::string standard;
    std::string sourceNote;
    std::string figures;             ///< what a person may read of them, a line for each family
    std::vector<SourceTable> tables; ///< of sections, in the order of the catalogue's families
    std::vector<SourceTable> hidden; ///< that tell where the sections come from
    std::string sourceHash;          ///< SHA-256 of the texts, as lower-case hexadecimal digits

    std::size_t CountSections() const;

    /// With the families in the folder beside it. Throws SourceError at the first fault.
    static CatalogueSource Load(const std::filesystem::path& folder, SourceLibrary& library);

    /// The same with families that are read for this catalogue alone.
    static CatalogueSource Load(const std::filesystem::path& folder);
};

} // namespace dbsection
