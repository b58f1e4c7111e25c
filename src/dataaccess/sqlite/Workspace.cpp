#include "dataaccess/sqlite/Workspace.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace dbsection {

void Workspace::Add(const std::shared_ptr<Session>& session) {
    std::erase_if(m_sessions, [](const auto& weak) { return weak.expired(); });
    m_sessions.push_back(session);
}

void Workspace::Begin() {
    if (std::ranges::any_of(m_transactions,
                            [](const auto& transaction) { return transaction->IsUnderWay(); }))
        Fail(SectionError::BadStatement, "A transaction of this workspace is under way; commit it, "
                                         "or roll it back.");
    Transactions begun; // undone where one of them cannot be begun
    for (const auto& weak : m_sessions)
        if (auto session = weak.lock();
            session && session->IsOpen() && !session->Get().IsReadOnly())
            begun.push_back(
                std::make_unique<SessionTransaction>(std::move(session), Purpose::Writing));
    m_transactions = std::move(begun);
}

void Workspace::Commit() {
    Transactions uncommitted;
    uncommitted.reserve(m_transactions.size());
    std::exception_ptr failure;
    for (auto& transaction : m_transactions)
        try {
            WithMemoryErrors([&] { transaction->Commit(); });
        } catch (CException* e) {
            if (failure)
                e->Delete();
            else
                failure = std::current_exception();
            if (transaction->CanBeCommitted())
                uncommitted.push_back(std::move(transaction));
        }
    m_transactions = std::move(uncommitted);
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace dbsection
