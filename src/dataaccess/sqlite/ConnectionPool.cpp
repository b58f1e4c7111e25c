#include "dataaccess/sqlite/ConnectionPool.h"

#include <list>
#include <mutex>
#include <new>

namespace dbsection {
namespace {

/// Databases of the host may be closed later than this library's state is gone.
bool isOver = false;

/// Those that rested last come first.
struct RestingConnections : std::list<ConnectionPtr> {
    RestingConnections() = default;
    RestingConnections(const RestingConnections&) = delete;
    RestingConnections& operator=(const RestingConnections&) = delete;
    ~RestingConnections() { isOver = true; }
};

RestingConnections& Resting() {
    static RestingConnections resting;
    return resting;
}

/// Guards the resting connections; one that is ended is closed outside.
constinit std::mutex guard;

} // namespace

ConnectionPtr ConnectionPool::Take(const Origin& origin, std::string_view password) {
    if (isOver)
        return nullptr;
    std::list<ConnectionPtr> ended;
    const std::lock_guard lock(guard);
    RestingConnections& resting = Resting();
    for (auto place = resting.begin(); place != resting.end();) {
        Connection& candidate = **place;
        if (!candidate.IsOurs() || candidate.IsOutdatedBy(origin)) {
            ended.splice(ended.end(), resting, place++);
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

void ConnectionPool::Peek(const Origin& origin, std::string_view password,
                          const std::function<void(Connection&)>& ask) {
    if (isOver)
        return;
    const std::lock_guard lock(guard);
    for (const ConnectionPtr& candidate : Resting())
        if (candidate->IsOurs() && candidate->CanServe(origin, password))
            return ask(*candidate);
}

void ConnectionPool::Rest(ConnectionPtr connection) noexcept {
    constexpr std::size_t Capacity = 64; // more than there are catalogues
    try {
        if (isOver || !connection->MayRest())
            return;
        connection->TrimCache();
        std::list<ConnectionPtr> rested;
        rested.push_front(std::move(connection));
        std::list<ConnectionPtr> ended;
        const std::lock_guard lock(guard);
        RestingConnections& resting = Resting();
        resting.splice(resting.begin(), rested);
        if (resting.size() > Capacity)
            ended.splice(ended.end(), resting, std::prev(resting.end()));
    } catch (const std::bad_alloc&) {
        connection.reset();
    }
}

void ConnectionPool::Clear() noexcept {
    if (isOver)
        return;
    std::list<ConnectionPtr> ended;
    const std::lock_guard lock(guard);
    ended.swap(Resting());
}

} // namespace dbsection
