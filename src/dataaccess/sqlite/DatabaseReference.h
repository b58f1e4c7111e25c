// What a database object refers to, and what refers to a database object.
#pragma once

#include "dataaccess/sqlite/Session.h"
#include "dataaccess/sqlite/Workspace.h"

#include <memory>

namespace dbsection {

/// Belongs to one CSectionDatabase. Table definitions and recordsets hold it weakly, so that they
/// can outlive their database without harm.
struct DatabaseReference {
    std::weak_ptr<Workspace> workspace;
    std::shared_ptr<Session> session;      ///< null before something was opened
    std::shared_ptr<SessionKeeper> keeper; ///< null where others keep the session open
};

/// The session of a database; error 3420 where there is none.
inline std::shared_ptr<Session> SessionOf(const std::weak_ptr<DatabaseReference>& database) {
    const auto reference = database.lock();
    if (!reference || !reference->session)
        Fail(SectionError::ObjectClosed,
             reference ? "The database was not opened; open it first."
                       : "There is no database, or it is gone; open it again.");
    return reference->session;
}

} // namespace dbsection
