// What a catalogue's sources say about checking their figures against geometry: how far a table's
// column may deviate (_tolerances.csv: Table, Column, Percent), and which figures are kept as
// published although they deviate further (_exceptions.csv: Table, Name, Column, Reason).
//
// A rule that decides nothing is an error: it is a leftover, or it misses what it was meant for.
#pragma once

#include "sources/CsvTable.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace dbsection {

class SourceRules {
public:
    /// Throws SourceError when a rule is incomplete or occurs twice.
    SourceRules(CsvTable tolerances, CsvTable exceptions);

    /// Why a figure that deviates by that many percent is refused; empty when it is accepted.
    /// Throws SourceError when the rules have no tolerance for it, or an exception that it does not
    /// need.
    std::string Fault(const std::string& table, const std::string& name, const std::string& column,
                      double percent);

    /// Throws SourceError when a rule was never asked for.
    void RequireAllUsed() const;

private:
    /// The lines of one file by their key columns.
    class List {
    public:
        List(CsvTable csv, const std::vector<std::string>& keys);
        List(const List&) = delete; // its records are known by their place
        List& operator=(const List&) = delete;

        const CsvTable& Csv() const { return m_csv; }
        const CsvTable::Record* Use(const std::vector<std::string>& key);
        void RequireAllUsed() const;

    private:
        CsvTable m_csv;
        std::map<std::vector<std::string>, const CsvTable::Record*> m_records;
        std::set<const CsvTable::Record*> m_used;
    };

    List m_tolerances;
    List m_exceptions;
};

} // namespace dbsection
