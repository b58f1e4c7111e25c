// What the tests of the queries share: the statements that are opened, and the rows they give.
#pragma once

#include "FacadeSupport.h"
#include "dataaccess/CCrack.h"

namespace testsupport {

inline std::vector<std::string> openedStatements;

inline void RecordStatement(const char* sql, int openType) {
    openedStatements.push_back(std::to_string(openType) + " " + sql);
}

/// Runs queries on a catalogue of the façade's folder.
class QueryTest : public FacadeTest {
protected:
    QueryTest() { SetStatementObserver(RecordStatement); }
    ~QueryTest() override { SetStatementObserver(nullptr); }

    /// A query on the library-wide database: its statements, and column 2 of its rows.
    struct Result {
        std::vector<std::string> statements;
        std::string names; ///< joined by blanks; "none" where no recordset is open
        bool operator==(const Result&) const = default;
    };

    template <class Query, class... Items>
    Result Run(Query query, const Items&... items) {
        openedStatements.clear();
        RecordsetHandle rows;
        query(items..., &gblSectionDatabase, rows.Address());
        Result result{openedStatements, "none"};
        if (rows.Get() == nullptr)
            return result;
        result.names.clear();
        for (; !rows->IsEOF(); rows->MoveNext())
            result.names += (result.names.empty() ? "" : " ") +
                            std::string(CCrack::strVARIANT(rows->GetFieldValue(2)));
        return result;
    }
};

} // namespace testsupport
