// The families of sections that catalogues draw on: the folder data/families.
//
//     _families.csv     Family, Geometry (the model; empty: none), Parameters (of the model, for
//     all
//                       sections that have none of their own: "slope=0.14 toe=0.6", lengths in mm),
//                       Standard (with its edition), Remark, NameSizes (columns whose figures are
//                       the last numbers of the names), Production (rolled, hot-finished,
//                       cold-formed, seamless, welded, sawn or glued laminated; empty: the standard
//                       does not say)
//     _tolerances.csv, _exceptions.csv   (SourceRules.h)
//     _corrections.csv                   (SourceCorrections.h)
//     <family>.csv                       (FamilyReader.h)
#pragma once

#include "sources/SourceFamily.h"
#include "sources/SourceRules.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace dbsection {

class SourceFamilies {
public:
    /// The folder's name beside the folders of catalogues.
    static constexpr const char* FolderName = "families";

    /// Throws SourceError where the lists of families and rules are at fault, or the folder holds a
    /// text that they do not name.
    explicit SourceFamilies(const std::filesystem::path& folder);

    /// A family, read and checked when it is first asked for. A family without geometry has the
    /// layout of the table that asks. Throws SourceError, also where it has another layout.
    const SourceFamily& Get(const std::string& name, const SectionLayout& layout);

    bool Has(const std::string& name) const { return m_plans.contains(name); }

    /// All, in the order of the list.
    std::vector<std::string> Names() const;

    const SourceCorrections& Corrections() const { return m_corrections; }

private:
    SourceFamily Plan(const CsvTable::Record& record, const SectionLayout& layout) const;
    void RequireLayout(const CsvTable::Record& record, const SourceFamily& family,
                       const SectionLayout& layout) const;

    SourceFolder m_folder;
    CsvTable m_list;
    SourceRules m_rules;
    SourceCorrections m_corrections;
    std::map<std::string, const CsvTable::Record*, std::less<>> m_plans;
    std::map<std::string, SourceFamily, std::less<>> m_read;
};

} // namespace dbsection
