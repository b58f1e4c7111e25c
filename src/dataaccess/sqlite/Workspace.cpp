#include "dataaccess/sqlite/Workspace.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace dbsection {
namespace {

void Commit(const Session& session) {
    if (!session.IsOpen())
        Fail(SectionError::ObjectClosed,
             session.Path() + ": it was closed before the transaction was committed, and what was "
                              "written to it is undone; open it, and write it again.");
    session.Get().CommitTransaction();
}

} // namespace

void Workspace::Add(const std::shared_ptr<Session>& session) {
    std::erase_if(m_sessions, [](const auto& weak) { return weak.expired(); });
    m_sessions.push_back(session);
}

void Workspace::Begin() {
    if (std::ranges::any_of(m_inTransaction, [](const auto& session) { return session->IsOpen(); }))
        Fail(SectionError::BadStatement, "A transaction of this workspace is under way; commit it, "
                                         "or roll it back.");
    m_inTransaction.clear();
    m_inTransaction.reserve(m_sessions.size());
    try {
        for (const auto& weak : m_sessions)
            if (auto session = weak.lock();
                session && session->IsOpen() && !session->Get().IsReadOnly()) {
                session->Get().BeginTransaction();
                m_inTransaction.push_back(std::move(session));
            }
    } catch (...) {
        Rollback();
        throw;
    }
}

void Workspace::Commit() {
    Sessions uncommitted;
    uncommitted.reserve(m_inTransaction.size());
    std::exception_ptr failure;
    for (auto& session : m_inTransaction)
        try {
            WithMemoryErrors([&] { dbsection::Commit(*session); });
        } catch (CException* e) {
            if (failure)
                e->Delete();
            else
                failure = std::current_exception();
            if (session->IsOpen() && session->Get().IsInTransaction())
                uncommitted.push_back(std::move(session));
        }
    m_inTransaction = std::move(uncommitted);
    if (failure)
        std::rethrow_exception(failure);
}

void Workspace::Rollback() noexcept {
    for (const auto& session : m_inTransaction)
        if (session->IsOpen())
            session->Get().RollBackTransaction();
    m_inTransaction.clear();
}

} // namespace dbsection
