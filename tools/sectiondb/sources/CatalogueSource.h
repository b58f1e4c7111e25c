// The text sources of one catalogue, read and checked.
//
//     const CatalogueSource source = CatalogueSource::Load("data/AISCSections");
//
// The folder holds
//     _catalogue.csv    Key, Value: Title, Standard (with its edition), Source, and Units
// and, where there are figures,
//     _tables.csv       Table, Geometry, Parameters: the tables with figures
//     _tolerances.csv   how far published figures may be from their section's geometry
//     _exceptions.csv   figures that are kept although they are further away
//     <table>.csv       the sections of each such table
// and nothing else that ends in .csv. The name of the folder is the catalogue's file stem, by which
// its tables are known; these texts alone decide what they hold.
#pragma once

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
    const UnitSystem* units;         ///< of the tables without figures
    std::vector<SourceTable> tables; ///< in the order of the catalogue's families
    std::string sourceHash;          ///< SHA-256 of the texts, as lower-case hexadecimal digits

    /// Throws SourceError at the first fault.
    static CatalogueSource Load(const std::filesystem::path& folder);
};

} // namespace dbsection
