// What the sources say about checking figures against geometry:
//     _tolerances.csv  Family, Column, Percent, Reason: what the model is worth beyond printing
//     _exceptions.csv  Family, Name, Column, Percent, Reason: figures that are kept although they
//                      are further away, and the bound that each of them keeps
//
// A rule that decides nothing is an error: it is a leftover, or it misses what it was meant for. So
// is one that is far wider than the figures need.
#pragma once

#include "geometry/FigureRules.h"
#include "sources/SourceFolder.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace dbsection {

/// Which rules the figures of a family needed, and the greatest deviations that they allowed.
struct NeededRules {
    std::map<std::string, double, std::less<>> tolerances;            ///< by column
    std::map<std::pair<std::string, std::string>, double> exceptions; ///< by name and column
};

class SourceRules {
public:
    /// Throws SourceError when a rule is incomplete or occurs twice.
    explicit SourceRules(SourceFolder& folder);

    /// The rules of a family, which know nothing of its printing yet.
    FigureRules Of(const std::string& family) const;

    /// The text of a family's rules, by which a change of them shows.
    std::string TextOf(const std::string& family) const;

    /// Throws SourceError when a family's rule was not needed, or is far too wide.
    void RequireNeeded(const std::string& family, const NeededRules& needed) const;

    /// Throws SourceError when a rule is one of a family that there is not.
    void RequireFamilies(const std::set<std::string, std::less<>>& families) const;

private:
    /// The lines of one file by family.
    struct List {
        CsvTable csv;
        std::string kind; ///< what its lines are called in messages
        std::map<std::string, std::vector<const CsvTable::Record*>, std::less<>> byFamily;

        List(CsvTable itsCsv, std::string itsKind, const std::vector<std::string>& keys);
        List(const List&) = delete; // its records are known by their place
        List& operator=(const List&) = delete;

        std::vector<const CsvTable::Record*> Of(const std::string& family) const;
        DeviationBound BoundIn(const CsvTable::Record& record) const;

        /// Throws SourceError where no figure `needed` the rule, or none comes near its bound.
        template <class Needed, class Key>
        void RequireNeeded(const CsvTable::Record& record, const Needed& needed,
                           const Key& key) const;
    };

    List m_tolerances;
    List m_exceptions;
};

} // namespace dbsection
