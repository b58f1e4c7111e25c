// Table definitions: creating, describing and altering the tables of a database file.
//
//     CSectionTableDef table(&database);
//     table.Create("W Shape");
//     table.CreateField(field);
//     table.Append();
#pragma once

#include "dataaccess/CSectionFieldInfo.h"
#include "platform/CString.h"
#include "platform/Export.h"

#include <cstdint>
#include <memory>
#include <vector>

class CSectionDatabase;

namespace dbsection {
class Connection;
class Session;
struct DatabaseReference;
using FieldList = std::shared_ptr<const std::vector<CSectionFieldInfo>>;
} // namespace dbsection

/// Information levels of the info getters.
inline constexpr unsigned long PrimaryInformation = 1; ///< name, type, size, attributes
inline constexpr unsigned long AllInformation = 4;

/// Attribute bits of tables.
inline constexpr std::int32_t SystemTableBits = static_cast<std::int32_t>(0x80000002);
inline constexpr std::int32_t HiddenTableBit = 0x00000001;

/// A date: days since 1899-12-30, and whether it is valid (0).
struct CSectionDate {
    double m_dt = 0;
    std::int32_t m_status = 0;
};

struct DBSECTION_API CSectionTableDefInfo {
    CString m_strName;
    std::int32_t m_bUpdatable = 0;
    std::int32_t m_lAttributes = 0;
    CSectionDate m_dateCreated;
    CSectionDate m_dateLastUpdated;
    CString m_strSrcTableName;
    CString m_strConnect;
    CString m_strValidationRule;
    CString m_strValidationText;
    std::int32_t m_lRecordCount = 0;

    /// Neither a system table nor a hidden one.
    bool IsUserTable() const { return (m_lAttributes & (SystemTableBits | HiddenTableBit)) == 0; }
};

/// Refers to a database, and is closed with it. Failures throw CSectionException*.
class DBSECTION_API CSectionTableDef {
public:
    explicit CSectionTableDef(CSectionDatabase* database);

    /// Begins a new table; it is part of the database only after Append.
    void Create(const char* name);
    void Append();

    /// Opens the definition of an existing table.
    void Open(const char* name);
    void Close();

    /// False too when the database was closed.
    bool IsOpen() const;

    /// Adds a column: to the table under construction, or to the table in the database. Name, type,
    /// size, default value, validation rule with its text, and whether a value is required and may
    /// be empty are kept. A rule is an SQL condition over the column, for example "[AX] > 0".
    void CreateField(const CSectionFieldInfo& field);

    /// Takes a column out of the table; its rows keep their identifiers. Indexes over the column go
    /// with it. Refused (error 3265) where something else of the table would be lost.
    void DeleteField(const char* name);

    /// Adds an index. `columns` is a list of column names or expressions in the engine's SQL, for
    /// example "[AX]" or "UPPER([VessaName])". A unique one refuses rows that are alike in them.
    void CreateIndex(const char* name, const char* columns, bool isUnique = false);

    int GetFieldCount() const;
    void GetFieldInfo(int index, CSectionFieldInfo& field,
                      unsigned long level = PrimaryInformation) const;
    void GetFieldInfo(const char* name, CSectionFieldInfo& field,
                      unsigned long level = PrimaryInformation) const;

private:
    enum class State : std::uint8_t { Closed, UnderConstruction, InDatabase };

    dbsection::Connection& OpenConnection() const;
    void RequireOpen() const;
    dbsection::FieldList FieldsInFile() const;
    template <class Body>
    void Change(Body body);
    int FindField(const char* name) const;

    std::weak_ptr<dbsection::DatabaseReference> m_database;
    std::shared_ptr<dbsection::Session> m_session; ///< in which it was created or opened
    State m_state = State::Closed;
    CString m_name;
    dbsection::FieldList m_fields; ///< null when closed
};
