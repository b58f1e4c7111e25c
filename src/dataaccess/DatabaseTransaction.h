// A transaction of an open database, for the rooms above the engine.
#pragma once

#include <cstdint>
#include <memory>

class CSectionDatabase;

namespace dbsection {

class SessionTransaction;

enum class Purpose : std::uint8_t {
    Reading,  ///< what is read belongs together
    Writing,  ///< what is written is stored together
    OneWrite, ///< a look and the one write that follows from it: nobody writes in between
};

/// What is done to a database for the length of a scope, at one moment as others see it. What is
/// written is undone with its end unless it was committed; within another transaction it is a part
/// of that, and appears with it. Nothing is written within one that reads. One write, which is
/// whole or not there by itself, needs no part of its own: that would cost several times the write.
class DatabaseTransaction {
public:
    /// Throws where another program holds the file, or it cannot be written.
    DatabaseTransaction(const CSectionDatabase& database, Purpose purpose);
    ~DatabaseTransaction();
    DatabaseTransaction(const DatabaseTransaction&) = delete;
    DatabaseTransaction& operator=(const DatabaseTransaction&) = delete;

    /// False once the database was closed, which has undone it.
    bool IsUnderWay() const;

    /// Throws where nothing was stored; a database that was closed meanwhile has undone it.
    void Commit();

private:
    std::unique_ptr<SessionTransaction> m_transaction;
};

} // namespace dbsection
