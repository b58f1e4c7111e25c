#include "dataaccess/sqlite/ConnectionPool.h"

#include <list>
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

} // namespace

ConnectionPtr ConnectionPool::Take(const Origin& origin, std::string_view password) {
    if (isOver)
        return nullptr;
    RestingConnections& resting = Resting();
    for (auto place = resting.begin(); place != resting.end();) {
        Connection& candidate = **place;
        if (!candidate.IsOurs() || candidate.IsOutdatedBy(origin)) {
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

void ConnectionPool::Rest(ConnectionPtr connection) noexcept {
    constexpr std::size_t Capacity = 64; // more than there are catalogues
    try {
        if (isOver || !connection->MayRest())
            return;
        connection->TrimCache();
        RestingConnections& resting = Resting();
        resting.push_front(std::move(connection));
        if (resting.size() > Capacity)
            resting.pop_back();
    } catch (const std::bad_alloc&) {
        connection.reset();
    }
}

void ConnectionPool::Clear() noexcept {
    if (!isOver)
        Resting().clear();
}

} // namespace dbsection
