// _corrections.csv: every published figure that does not stand in the sources as it is printed, and
// every published row that they leave out:
//     Family, Name (empty: all rows), Column (empty: the whole row), Printed, Kept, Reason
// `Kept` is the figure that stands in its place, or what became of it: "computed" (geometry gives
// the figure), "left out", "duplicate" (another row or family has the section), "converted" (it
// follows from the printed one) or "added".
#pragma once

#include "sources/SourceFolder.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace dbsection {

struct SourceFamily;

struct Correction {
    int line; ///< of the list
    std::string name;
    std::string column;
    std::string printed;
    std::string kept;
    std::string reason;

    bool IsRowLeftOut() const { return column.empty() && kept == "left out"; }

    /// Whether another figure stands in place of the printed one.
    bool IsMended() const;
};

class SourceCorrections {
public:
    /// Throws SourceError when a line is incomplete.
    explicit SourceCorrections(SourceFolder& folder);

    /// Those of a family in the order of the list.
    const std::vector<Correction>& Of(const std::string& family) const;

    /// Throws SourceError when a line says another thing than what stands in its family.
    void RequireTrue(const SourceFamily& family) const;

    /// Throws SourceError when a line is of a family that there is not.
    void RequireFamilies(const std::set<std::string, std::less<>>& families) const;

private:
    CsvTable m_csv;
    std::map<std::string, std::vector<Correction>, std::less<>> m_byFamily;
};

/// The rows that a family leaves out, in short: "L 300 x 300 x 20 and 10 more: no toe radius ...".
std::string LeftOutInShort(const std::vector<Correction>& corrections);

} // namespace dbsection
