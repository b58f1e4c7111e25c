// Transactions of the library-wide database.
#include "interface/CatalogueTransaction.h"
#include "interface/PublicCall.h"
#include "interface/SectionDBInterface.h"

#include "dataaccess/DatabaseTransaction.h"

#include <memory>
#include <utility>

namespace {

int catalogueOfTransaction = 0;
std::unique_ptr<dbsection::DatabaseTransaction> transaction; ///< null when none was begun

template <class Body>
int GuardedCall(const char* label, const char* message, Body body) {
    return dbsection::PublicCall(label, [&] { return dbsection::Guarded({label, message}, body); });
}

/// Ends the transaction, which is undone unless `end` commits it.
template <class End>
int EndTransaction(const char* label, const char* message, End end) {
    return GuardedCall(label, message, [&] {
        const auto ending = std::exchange(transaction, nullptr);
        if (!ending)
            throw new CSectionException(SectionError::NoTransaction,
                                        "No transaction is under way; begin one first.");
        end(*ending);
        return 1;
    });
}

} // namespace

int dbsection::CatalogueInTransaction() {
    return transaction && transaction->IsUnderWay() ? catalogueOfTransaction : 0;
}

int SectionDBInterface::BeginTransaction(int index) {
    return GuardedCall("BeginTransaction()", "Failed to begin the transaction.", [&] {
        if (dbsection::CatalogueInTransaction() != 0)
            throw new CSectionException(SectionError::InUse,
                                        "A transaction is under way; commit it, or roll it back.");
        const CSectionDatabase* database = GetDatabasePtr(index);
        if (database == nullptr)
            return 0;
        transaction = std::make_unique<dbsection::DatabaseTransaction>(*database,
                                                                       dbsection::Purpose::Writing);
        catalogueOfTransaction = index;
        return 1;
    });
}

int SectionDBInterface::CommitTransaction() {
    return EndTransaction("CommitTransaction()", "Failed to commit the transaction.",
                          [](dbsection::DatabaseTransaction& ending) { ending.Commit(); });
}

int SectionDBInterface::RollbackTransaction() {
    return EndTransaction("RollbackTransaction()", "Failed to roll the transaction back.",
                          [](const dbsection::DatabaseTransaction&) {});
}
