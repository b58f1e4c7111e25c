#include "sources/TablePlans.h"

#include "interface/SectionDBInterface.h"

#include <algorithm>
#include <set>

namespace dbsection {
namespace {

TablePlan ReadPlan(const CsvTable& csv, const CsvTable::Record& record,
                   const CatalogueSectionDB& catalogue, SourceFamilies& families) {
    TablePlan plan{csv.RequiredText(record, "Table"), {}, {}};
    const SectionFamily* table = catalogue.FindFamily(plan.table.c_str());
    if (table == nullptr)
        throw csv.Error(record, "Table", "the catalogue has no table of this name");
    if (csv.Has("NameFrom"))
        plan.nameFrom = csv.RequiredText(record, "NameFrom");
    std::istringstream names(csv.RequiredText(record, "Families"));
    for (std::string name; std::getline(names, name, ';');) {
        if (!families.Has(name))
            throw csv.Error(record, "Families", "there is no family \"" + name + "\"");
        plan.families.push_back(&families.Get(name, GetSectionLayout(table->layout)));
    }
    return plan;
}

} // namespace

const CatalogueSectionDB& CatalogueOf(const std::filesystem::path& folder) {
    SectionDBInterface::InitSectionDBInterface();
    const std::string stem = (folder / "").parent_path().filename().string();
    std::string known;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const std::string name = SectionDBInterface::m_saSectionFile[index];
        if (name == stem)
            return dynamic_cast<const CatalogueSectionDB&>(
                *SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index)));
        known += (known.empty() ? "" : ", ") + name;
    }
    throw SourceError({folder.string(), 0, "", ""},
                      "the folder must have the file stem of a catalogue: " + known);
}

std::vector<TablePlan> ReadTablePlans(SourceFolder& folder, const CatalogueSectionDB& catalogue,
                                      SourceLibrary& library) {
    std::vector<TablePlan> plans;
    if (!folder.Has("_tables.csv"))
        return plans;
    const CsvTable csv = folder.Read("_tables.csv");
    SourceFamilies& families = library.FamiliesBeside(folder.Path());
    std::set<std::string> tables;
    for (const CsvTable::Record& record : csv.Records()) {
        plans.push_back(ReadPlan(csv, record, catalogue, families));
        if (!tables.insert(plans.back().table).second)
            throw csv.Error(record, "Table", "the table is named twice");
    }
    return plans;
}

void CatalogueUnits::Add(const TablePlan& plan, const std::string& file) {
    for (const SourceFamily* family : plan.families) {
        if (family->system != &m_system)
            continue;
        for (std::size_t i = 0; i < family->units.size(); ++i) {
            const auto [known, isNew] =
                m_units.try_emplace(family->layout->columns[i].quantity, family->units[i]);
            if (!isNew && known->second != family->units[i])
                throw SourceError({file, 0, "", ""},
                                  "table " + plan.table + ": the family " + family->name +
                                      " has its column " + family->layout->columns[i].name +
                                      " in " + family->units[i] + ", others of the catalogue in " +
                                      known->second);
        }
    }
}

std::string CatalogueUnits::UnitOf(Quantity quantity) const {
    const auto known = m_units.find(quantity);
    return known == m_units.end() ? dbsection::UnitOf(quantity, m_system) : known->second;
}

} // namespace dbsection
