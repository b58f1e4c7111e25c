// Connections whose database was closed, kept to be taken again when the same file is opened.
#pragma once

#include "dataaccess/sqlite/Connection.h"

#include <functional>
#include <string_view>

namespace dbsection {

/// The resting connections of this process. The library has one database for many catalogues:
/// without them, going from one to the next would cost the opening of a file each time.
///
/// A resting connection holds no lock and no transaction. It keeps its statements and pages ready;
/// it is taken only while its file is to the last detail what it was.
class ConnectionPool {
public:
    /// A resting connection of that origin, which `password` would open; null when there is none.
    static ConnectionPtr Take(const Origin& origin, std::string_view password);

    /// Calls `ask` with such a connection, which goes on resting.
    static void Peek(const Origin& origin, std::string_view password,
                     const std::function<void(Connection&)>& ask);

    /// Lets a connection rest, or closes it where it must not or cannot be kept.
    static void Rest(ConnectionPtr connection) noexcept;

    /// Closes all.
    static void Clear() noexcept;
};

} // namespace dbsection
