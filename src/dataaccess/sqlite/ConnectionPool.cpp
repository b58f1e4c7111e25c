#include "dataaccess/sqlite/ConnectionPool.h"

#include "dataaccess/sqlite/Connection.h"

#include <list>
#include <new>
#include <unistd.h>

namespace dbsection {
namespace {

/// Those that rested last come first.
using Resting = std::list<std::unique_ptr<Connection>>;

/// Databases of the host may be closed later than this library's state is gone.
bool isOver = false;

class ProcessOwned {
public:
    ProcessOwned() = default;
    ProcessOwned(const ProcessOwned&) = delete;
    ProcessOwned& operator=(const ProcessOwned&) = delete;
    ~ProcessOwned() {
        LeaveToParent();
        isOver = true;
    }

    Resting& Get() {
        LeaveToParent();
        if (!m_resting) {
            m_resting = std::make_unique<Resting>();
            m_process = ::getpid();
        }
        return *m_resting;
    }

private:
    /// After a fork the connections are the parent's: even closing them here could disturb it.
    void LeaveToParent() {
        if (m_process != ::getpid())
            static_cast<void>(m_resting.release());
    }

    pid_t m_process = 0;
    std::unique_ptr<Resting> m_resting;
};

Resting& RestingHere() {
    static ProcessOwned owned;
    return owned.Get();
}

} // namespace

std::unique_ptr<Connection> ConnectionPool::Take(const Origin& origin,
                                                 const std::string& password) {
    if (isOver)
        return nullptr;
    Resting& resting = RestingHere();
    for (auto place = resting.begin(); place != resting.end();) {
        Connection& candidate = **place;
        if (candidate.IsOutdatedBy(origin)) {
            place = resting.erase(place);
        } else if (candidate.CanServe(origin, password)) {
            auto taken = std::move(*place);
            resting.erase(place);
            return taken;
        } else {
            ++place;
        }
    }
    return nullptr;
}

void ConnectionPool::Rest(std::unique_ptr<Connection> connection) noexcept {
    constexpr std::size_t Capacity = 64; // more than there are catalogues
    try {
        if (isOver || !connection->MayRest())
            return;
        connection->TrimCache();
        Resting& resting = RestingHere();
        resting.push_front(std::move(connection));
        if (resting.size() > Capacity)
            resting.pop_back();
    } catch (const std::bad_alloc&) {
        connection.reset();
    }
}

void ConnectionPool::Clear() noexcept {
    try {
        if (!isOver)
            RestingHere().clear();
    } catch (const std::bad_alloc&) {
        return; // so there are none
    }
}

} // namespace dbsection
