// The files that the public calls work on, and the library as a host has it that has just begun.
#pragma once

#include "TestSupport.h"
#include "catalogues/SectionDBBase.h"
#include "dataaccess/DataAccess.h"

#include <string>

namespace faults {

/// Makes the files in a folder: all catalogues, the user's tables, a file of other tables, settings
/// and selections; protected by the connect text where it has a password. To be called in a child:
/// the process has used the library afterwards.
void MakeWorld(const std::string& folder, const std::string& connect);

/// A copy of the files, the current folder for as long as it lives. One at a time.
class World {
public:
    World(std::string original, std::string connect);
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World();

    /// The library initialised and told where the files are, with nothing open.
    void Begin();

    /// The same without UnInit, and whatever the calls have kept.
    void GoOn();

    /// Puts every file back as it was made.
    void RestoreFiles();

private:
    void PointFacadeHere() const;

    std::string m_original;
    std::string m_connect;
    testsupport::TempFolder m_folder;
};

// What the calls have open; closed by Begin and GoOn. Paths are relative to the current folder.

extern CSectionDatabase* db;
extern CSectionRecordset* rows;
extern CSectionTableDef* table;

/// The catalogue object of the user's tables, attached to a table of the file in `db`.
SectionDBBase* AttachUserTables(const char* file, const char* tableName);

/// A wide flange for the user's table.
SECTIONINFO NewSection(const char* name);

/// The connect text of the files.
const char* Connect();

/// Opens "Shapes.db3" into `db`, and a statement of it into `rows`.
void OpenShapes();
void OpenRows(const char* sql, int type = 2);

/// Its table of shapes: the rows by area, and what RowsOf tells of all three.
inline constexpr const char* Ordered = "Select * From [Shape] ORDER BY [AX] ASC";
inline constexpr const char* AllShapes = "A A 1.000000e+00 B B 2.000000e+00 C C 3.000000e+00";
void OpenOrdered();
std::string Shapes();

/// All rows of a table of a file, read anew: the columns from Name on, row by row.
std::string RowsOf(const char* file, const char* tableName);

} // namespace faults
