// The abstract catalogue: what is known of one catalogue's tables, and how they are read.
//
//     SectionDBBase* catalogue = SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(1);
//     catalogue->SetDatabase(SectionDBInterface::GetDatabasePtr(1));
//     CStringList names;
//     catalogue->GetSectionNameList(1, &names, nullptr, 1, 0);
//
// One object serves one catalogue; the driver owns it. Section types are the catalogue's own
// numbers for its tables. Operations return 1 for success and 0 for failure; failures of the
// database are reported by the data-access functions, an exhaustion of memory by the operation that
// was called. Nothing is thrown but the invalid-argument error (CInvalidArgException*) by the two
// operations that say so; a constructor throws std::bad_alloc where memory is too short.
#pragma once

#include "dataaccess/DataAccess.h"
#include "platform/CString.h"
#include "platform/Collections.h"
#include "platform/Export.h"
#include "records/SectionInfo.h"

class DBSECTION_API SectionDBBase {
public:
    SectionDBBase() = default;
    SectionDBBase(const SectionDBBase&) = delete;
    SectionDBBase& operator=(const SectionDBBase&) = delete;
    virtual ~SectionDBBase();

    /// Deletes the section records that the object read and keeps; forgets all of them.
    virtual void FreeSectionRecords() = 0;

    /// Empties the slots of the section records. A record that the object read itself goes with
    /// its slot; one that a caller handed in stays the caller's.
    virtual void InitSectionRecords() = 0;

    // The table that holds a section, by its VessaName: exactly; against the upper-cased column;
    // without regard to letter case. `table` is emptied when there is none.
    virtual int FindSectionTableExact(const char* name, CString& table);
    virtual int GetTableNameFromSection(const char* name, CString& table);
    virtual int FindSectionTable(const char* name, CString& table);

    // Display values of the working table's sections, and of a section by its VessaName. Lengths
    // are converted to the length unit `unit1` (1001 to 1008), forces to the force unit `unit2`
    // (2001 to 2008). The defaults of these and the following do nothing and return 0 or null.

    /// The VessaNames of all sections, and a row of values for each.
    virtual void GetAllSectionDataForGUI(int sectionType, CStringArray* names, float (*values)[16],
                                         unsigned int unit1, unsigned int unit2);
    virtual int GetSectionDataForGUI(int index, int sectionType, int recordNo, CString* name,
                                     float* values, const char* unitText, unsigned int unit1,
                                     unsigned int unit2);
    virtual int GetSectionDataForGUI(int index, const char* name, int* sectionType, int* recordNo,
                                     float* values, unsigned int unit1, unsigned int unit2);

    /// The same in the units of the table.
    virtual int GetSectionDataForGUIAllValues(int index, const char* name, int* sectionType,
                                              int* recordNo, float* values);

    /// The row of a section as a new record, which the caller owns, and its section type.
    virtual SectionRecord* GetSectionData(const char* name, int* sectionType);

    /// The property summary of a section as a new record, which the caller owns: lengths in the
    /// length unit `unit1` (1001 to 1008), forces in the force unit `unit2` (2001 to 2008). Null
    /// for a table without units; one that keeps units for some of its columns only throws the
    /// invalid-argument error.
    virtual SECTIONINFO* GetSectionStructProperty(const char* name, unsigned int unit1,
                                                  unsigned int unit2, int* sectionType);

    /// Adds a row to the working table, or changes the row of that identifier: the record's names,
    /// `Values` and `Texts`. Refused with a message when another row has the record's public name,
    /// and for number 0: that is what comes behind 65,535, where the numbers end.
    virtual int AddSectionData(WORD id, SECTIONINFO* record);
    virtual int UpdateSectionData(WORD id, SECTIONINFO* record);

    /// Appends the names of the section tables, in the database's table order.
    virtual int GetSectionTypeList(CStringList* list);

    /// Appends the sections' VessaNames, or their public names, sorted by record identifier on
    /// request: a table without columns then throws the invalid-argument error. `ids`, where given,
    /// receives the identifiers in list order.
    virtual int GetSectionNameList(int sectionType, CStringList* list, CUIntArray* ids, int sorted,
                                   int publicName);

    /// The same, sorted by the given columns in ascending order.
    virtual int GetSortedSectionNameList(int sectionType, CStringList* list, CUIntArray* ids,
                                         const CStringArray* sortFields, int flag);

    /// The names of all columns, bookkeeping columns included.
    virtual int GetSectionFieldNameArray(int sectionType, CStringArray* names);

    /// The units of all columns, bookkeeping columns included.
    virtual int GetSectionFieldUnitsArray(int sectionType, CStringArray* units);

    virtual int GetSectionCount(int sectionType);

    /// The number of property columns.
    virtual int GetSectionFieldCount(int sectionType);

    /// Fills the map from section type to table name anew.
    virtual void InitTableNameMap() = 0;

    /// Attaches what a database has open. It stays the caller's, who may close or delete it at any
    /// time.
    void SetDatabase(CSectionDatabase* database);

    /// 1 when the database is usable. One that was closed is opened again by its file name, with
    /// the library's password, for this object alone.
    int OpenSectionDatabase();

    void CloseDB();

    /// The table of a section type, or empty.
    CString GetTableName(int sectionType) const;

    /// The shape type of a section type: 1 I shape, 2 channel, 3 angle, 4 double angle, 5 tee,
    /// 6 round, 7 rectangular tube, 8 general, 9 I section of the user tables, 10 rectangle; 0 when
    /// the catalogue does not know the type.
    int GetShapeType(int sectionType) const;

    /// The table that AddSectionData, UpdateSectionData and the display functions work on.
    void SetWorkingTable(const CString& table);

    const CMap<int, int, CString, CString>& TableNames() const { return m_mapTableNames; }

protected:
    /// Opens a statement into the object's recordset and keeps its text.
    int OpenSql(const CString& sql, int openType);

    /// Opens "SELECT * FROM" the table of a section type.
    int OpenTable(int sectionType, const CString& orderBy = {});

    CSectionDatabase* m_pDatabase = nullptr; ///< this object's own
    CSectionRecordset* m_pRecordset = nullptr;
    CString m_szFileName;
    CString m_szTableName;
    CString m_szSQL;
    CString m_szWork;
    int m_bShared = 0; ///< the open file was attached and must not be closed here
    CMap<int, int, CString, CString> m_mapTableNames;
    CMap<int, int, int, int> m_mapShapeTypes;

private:
    int ListNames(CStringList* list, CUIntArray* ids, int nameColumn);
    void ReleaseDatabase();
};
