// The text sources of one catalogue, read and checked.
//
//     const CatalogueSource source = CatalogueSource::Load("data/AISCSections");
//
// The folder holds
//     _catalogue.csv    Key, Value: Title, Standard (with its edition) and Source
//     _tables.csv       Table, Layout, Geometry, Parameters: the tables in their order
//     _tolerances.csv   how far published figures may be from their section's geometry
//     _exceptions.csv   figures that are kept although they are further away
//     <table>.csv       the sections of each table
// and nothing else that ends in .csv. These texts alone decide what the catalogue holds.
#pragma once

#include "records/SectionLayout.h"

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace dbsection {

using SourceValue = std::variant<double, std::string>;

struct SourceRow {
    std::string name;
    std::string vessaName;
    std::vector<SourceValue> values; ///< one for each column of the layout, in its order
};

struct SourceTable {
    std::string name;
    const SectionLayout* layout;
    std::vector<std::string> units; ///< of all columns, the bookkeeping columns included
    std::vector<SourceRow> rows;
};

struct CatalogueSource {
    std::string stem; ///< name of the folder, and of the catalogue's file without its ending
    std::string title;
    std::string standard;
    std::string sourceNote;
    std::vector<SourceTable> tables;
    std::string sourceHash; ///< SHA-256 of the texts, as lower-case hexadecimal digits

    /// Throws SourceError at the first fault.
    static CatalogueSource Load(const std::filesystem::path& folder);
};

} // namespace dbsection
