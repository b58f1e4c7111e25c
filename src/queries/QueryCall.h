// How the queries of the façade are entered.
#pragma once

#include "dataaccess/DataAccess.h"
#include "interface/PublicCall.h"

namespace dbsection {

/// Runs the body of a query that opens rows into `*rs`. A query that fails leaves none, lest those
/// of an earlier one be taken for its answer.
template <class Body>
void QueryCall(const char* label, CSectionRecordset** rs, Body body) {
    PublicCall(label, [&] {
        try {
            body();
            RequireMemory();
        } catch (...) {
            closeRecordset(rs);
            throw;
        }
    });
}

} // namespace dbsection
