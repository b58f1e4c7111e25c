// The databases that are written to together.
#pragma once

#include "dataaccess/sqlite/Transaction.h"

#include <memory>
#include <vector>

namespace dbsection {

/// What the copies of a CSectionWorkspace share. A transaction that is under way at its end is
/// undone.
class Workspace {
public:
    void Add(const std::shared_ptr<Session>& session);

    void Begin();
    void Commit();
    void Rollback() noexcept { m_transactions.clear(); }

private:
    using Transactions = std::vector<std::unique_ptr<SessionTransaction>>;

    std::vector<std::weak_ptr<Session>> m_sessions;
    Transactions m_transactions;
};

} // namespace dbsection
