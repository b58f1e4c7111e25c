// Which families the tables of a catalogue show: its _tables.csv.
#pragma once

#include "catalogues/CatalogueSectionDB.h"
#include "sources/SourceLibrary.h"

#include <map>
#include <string>
#include <vector>

namespace dbsection {

struct TablePlan {
    std::string table;
    std::vector<const SourceFamily*> families;
    std::string nameFrom; ///< empty: the families' own names
};

/// The catalogue whose file has the stem that the folder is named after. Throws SourceError.
const CatalogueSectionDB& CatalogueOf(const std::filesystem::path& folder);

/// The plans of a catalogue's tables with figures, none where the folder has no _tables.csv. Throws
/// SourceError.
std::vector<TablePlan> ReadTablePlans(SourceFolder& folder, const CatalogueSectionDB& catalogue,
                                      SourceLibrary& library);

/// The units of a catalogue, one for each quantity: those of the families that are printed in its
/// system of units, and of the system where there are none.
class CatalogueUnits {
public:
    explicit CatalogueUnits(const UnitSystem& system) : m_system(system) {}

    /// Throws SourceError where families of its system differ. `file` is what plans the table.
    void Add(const TablePlan& plan, const std::string& file);

    std::string UnitOf(Quantity quantity) const;

private:
    const UnitSystem& m_system;
    std::map<Quantity, std::string> m_units;
};

} // namespace dbsection
