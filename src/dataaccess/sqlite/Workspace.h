// The databases that are written to together.
#pragma once

#include "dataaccess/sqlite/Session.h"

#include <memory>
#include <vector>

namespace dbsection {

/// What the copies of a CSectionWorkspace share. A transaction that is under way at its end is
/// undone.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace() { Rollback(); }

    void Add(const std::shared_ptr<Session>& session);

    void Begin();
    void Commit();
    void Rollback() noexcept;

private:
    using Sessions = std::vector<std::shared_ptr<Session>>;

    std::vector<std::weak_ptr<Session>> m_sessions;
    Sessions m_inTransaction;
};

} // namespace dbsection
