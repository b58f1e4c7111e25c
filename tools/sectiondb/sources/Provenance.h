// What a catalogue file tells of where its sections come from: its hidden tables
// (records/ProvenanceTables.h) and the text of "DBInfo".
#pragma once

#include "sources/SourceFamily.h"
#include "sources/SourceTable.h"

#include <set>
#include <string>
#include <vector>

namespace dbsection {

/// A section of a table, and what it was made of.
struct PlacedRow {
    const std::string& table;
    std::size_t record; ///< its RECNO
    const SourceFamily& family;
    const FamilyRow& source;
    std::vector<std::string> computed; ///< columns
    std::vector<SourceAlias> aliases;
};

/// Collects what is to be told while tables are filled.
class Provenance {
public:
    Provenance();

    /// `values`: the row as it will be stored.
    void Add(const PlacedRow& row, const SourceRow& values);

    /// In the order in which they are written; none when nothing was added.
    std::vector<SourceTable> Tables() &&;

private:
    void AddFamily(const SourceFamily& family);

    SourceTable m_families;
    SourceTable m_columns;
    SourceTable m_exceptions;
    SourceTable m_sections;
    SourceTable m_aliases;
    std::set<std::string> m_known; ///< families
};

/// What a person may read of the figures of a family: "EN 10365:2017, 68 rows. Published: AX D
/// ...". The columns of a row that no standard publishes are not told.
std::string DescribeFigures(const SourceFamily& family);

} // namespace dbsection
