// Owners of the pointer variables that the data-access functions fill: they close at the end of
// their scope what was opened into them.
//
//     RecordsetHandle rows;
//     if (openRecordset(&db, rows.Address(), "Select * From [DBInfo]", 4, 1) == 1)
//         use(rows->GetFieldValue(0));
#pragma once

#include "dataaccess/DataAccess.h"

namespace dbsection {

/// Owns what `Close(&pointer)` closes and nulls.
template <class Object, void (*Close)(Object**)>
class Handle {
public:
    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Close(&m_object); }

    Object** Address() { return &m_object; }
    Object* Get() const { return m_object; }
    Object* operator->() const { return m_object; }
    Object& operator*() const { return *m_object; }

private:
    Object* m_object = nullptr;
};

inline void CloseAndDestroyDatabase(CSectionDatabase** db) { closeDatabase(db, 1); }

} // namespace dbsection

using DatabaseHandle = dbsection::Handle<CSectionDatabase, dbsection::CloseAndDestroyDatabase>;
using TableDefHandle = dbsection::Handle<CSectionTableDef, closeTableDef>;
using RecordsetHandle = dbsection::Handle<CSectionRecordset, closeRecordset>;
