// The façade: lifecycle, settings, paths, opening and counting, tables, selections.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "interface/SectionDBInterface.h"

#include <algorithm>

using Facade = SectionDBInterface;

namespace faults {
namespace {

constexpr const char* LongText =
    "/a/folder/of/a/long/name/"; // beyond what a string keeps in itself

/// A setter whose answer is the setting afterwards: the old one where it failed.
PublicCall Setter(const char* name, void (*set)(const char*), CString& setting, const char* right) {
    return Call(name, right, {"empty"},
                [=, &setting] {
                    Under([&] { set(LongText); });
                    return Tell(setting);
                })
        .On([&setting] { setting = {}; });
}

PublicCall Getter(const char* name, CString (*get)(), CString& setting) {
    return Call(name, LongText, {"empty"}, get).On([&setting] { setting = LongText; });
}

std::string Objects() { return Tell(Facade::m_SectionDBDrv.GetObjectCount()); }

void OpenAmerican() { Facade::GetDatabasePtr(American); }

void RemoveIndexFile() { std::filesystem::remove("Tables.dbi"); }

std::string IndexFile() { return testsupport::ReadFile("Tables.dbi"); }

/// The number of catalogues in the table-index file, which begins with the American one.
std::string IndexedCatalogues() {
    const std::string text = IndexFile();
    return text.substr(0, text.find('\n')) + " of " +
           Tell(static_cast<int>(std::ranges::count(text, '[')));
}

PublicCalls Lifetime() {
    const auto begin = [](auto call) {
        return [call] {
            Under(call);
            return Objects();
        };
    };
    return {
        // what cannot be made stays away until UnInit and Init
        Call("InitSectionDBInterface", "39", {"*"}, begin(Facade::InitSectionDBInterface))
            .On(Facade::UnInitSectionDBInterface),
        Call("InitialiseAllMaps", "39", {"*"}, begin(Facade::InitialiseAllMaps))
            .On(Facade::UnInitSectionDBInterface),
        Call("UnInitSectionDBInterface", "0", {}, begin(Facade::UnInitSectionDBInterface))
            .On(Facade::InitSectionDBInterface),
        Call("ExitSectionDBInterface", "0", {}, begin(Facade::ExitSectionDBInterface)).On([] {
            Facade::InitSectionDBInterface();
            OpenAmerican();
        }),
        Call("CloseGblSectionDBObject", "done", {}, [] { Facade::CloseGblSectionDBObject(1); })
            .On(OpenAmerican),
        Call("InitialiseCountryEnumMap", "36", {"0"},
             [] {
                 Under(Facade::InitialiseCountryEnumMap);
                 return Tell(Facade::m_mapCountryEnums.GetCount());
             })
            .On([] { Facade::m_mapCountryEnums.RemoveAll(); }),
        Call("InitialiseSectionTypeEnumMap", "302", {"0"},
             [] {
                 Under(Facade::InitialiseSectionTypeEnumMap);
                 return Tell(Facade::m_mapSectionTypeEnums.GetCount());
             })
            .On([] { Facade::m_mapSectionTypeEnums.RemoveAll(); }),
    };
}

PublicCalls Settings() {
    return {
        Setter("SetSectionDBPassword", Facade::SetSectionDBPassword, Facade::m_szPassword,
               LongText),
        Setter("SetDBIFileName", Facade::SetDBIFileName, Facade::m_szDBIFileName, LongText),
        Setter("SetINIFileName", Facade::SetINIFileName, Facade::m_szIniFileName, LongText),
        Setter("SetGenericTableFileName", Facade::SetGenericTableFileName,
               Facade::m_szGenericTableFileName, LongText),
        Setter("SetUserTableFileName", Facade::SetUserTableFileName,
               Facade::m_szGenericTableFileName, LongText),
        Call("SetProfileDBFolder", LongText + std::string("\\"), {"empty"},
             [] {
                 CString folder(LongText); // by value: the copy is the caller's
                 Under([&] { Facade::SetProfileDBFolder(std::move(folder)); });
                 return Tell(Facade::m_szSectionDBFolder);
             })
            .On([] { Facade::m_szSectionDBFolder = {}; }),
        Getter("GetDatabaseDirectoryName", Facade::GetDatabaseDirectoryName,
               Facade::m_szSectionDBFolder),
        Getter("GetDBIFileName", Facade::GetDBIFileName, Facade::m_szDBIFileName),
        Getter("GetINIFileName", Facade::GetINIFileName, Facade::m_szIniFileName),
        Getter("GetProfileDBFolder", Facade::GetProfileDBFolder, Facade::m_szSectionDBFolder),
        Getter("GetUserTableFileName", Facade::GetUserTableFileName, Facade::m_szUserTableFileName),
        Getter("GetGenericTableFileName", Facade::GetGenericTableFileName,
               Facade::m_szGenericTableFileName),
        Call("GetDatabaseUpdateLogFileName", LongText + std::string("\\secdblog.mdb"), {"empty"},
             Facade::GetDatabaseUpdateLogFileName)
            .On([] { Facade::SetProfileDBFolder(LongText); }),
        Call("GetDatabaseFileName", "MyBritishSections.db3", {"empty"},
             [] {
                 const CString path = Under([] { return Facade::GetDatabaseFileName(3); });
                 return Tell(path.Mid(path.ReverseFind('\\') + 1));
             }),
        Call("IsCustomized by stem", "1 MyBritishSections", {"0 *"},
             [] {
                 CString name;
                 const CString stem("BritishSections");
                 const int result = Under([&] { return Facade::IsCustomized(stem, name); });
                 return Tell(result, name);
             }),
        Call("IsCustomized", "1", {"0"}, [] { return Facade::IsCustomized(3); }),
        // all but the catalogues that cannot be opened, each of which is reported
        Call("InitialiseDBIFile", "done -> [AISCSections] of 37",
             {"done ->  of 0", "done -> [* of 36"}, Facade::InitialiseDBIFile)
            .On(RemoveIndexFile)
            .Reporting(LastCatalogueIndex + 1) // and the file itself
            .Leaving(IndexedCatalogues),
    };
}

PublicCalls Opening() {
    return {
        Call("OpenSectionDatabase", "1", {"0"},
             [] { return Facade::OpenSectionDatabase(American, &db); }),
        Call("OpenSectionDatabase, the first call of all", "1", {"0"},
             [] { return Facade::OpenSectionDatabase(American, &db); })
            .On(Facade::UnInitSectionDBInterface),
        Call("CloseSectionDatabase", "1", {},
             [] {
                 Facade::CloseSectionDatabase(&db);
                 return db == nullptr ? 1 : 0;
             })
            .On([] { Facade::OpenSectionDatabase(American, &db); }),
        Call("GetDatabasePtr", "1", {"0"},
             [] { return Facade::GetDatabasePtr(American) == nullptr ? 0 : 1; }),
        Call("GetSectionCount", "2", {"0"}, [] { return Facade::GetSectionCount(American, Rod); }),
        Call("GetSectionCount in a database", "2", {"0"},
             [] { return Facade::GetSectionCount(American, Rod, &db); })
            .On([] { Facade::OpenSectionDatabase(American, &db); }),
        Call("GetSectionFieldCount", "11", {"0"},
             [] { return Facade::GetSectionFieldCount(American, WShape); }),
        Call("GetSectionFieldCount in a database", "11", {"0"},
             [] { return Facade::GetSectionFieldCount(American, WShape, &db); })
            .On([] { Facade::OpenSectionDatabase(American, &db); }),
        Call("GetDBInfo", "1 title standard hash", {"0*"},
             [] {
                 CString info[5];
                 const int result = Under([&] {
                     return Facade::GetDBInfo("User.db3", info[2], info[0], info[3], info[1],
                                              info[4]);
                 });
                 return Tell(result, info[0], info[1], info[4]);
             })
            .On([] { ::setenv("SECTIONDB_PASSWORD", "right", 1); }),
    };
}

PublicCalls Tables() {
    return {
        Call("GetCountryName", "ColdFormed (Japanse)", {"empty"},
             [] { return Facade::GetCountryName(29); }),
        Call("GetCountryID", "7", {"38"}, [] { return Facade::GetCountryID("European"); }),
        Call("GetTableFromSectionType", "Castellated NonComp Beam", {"empty"},
             [] { return Facade::GetTableFromSectionType(American, Castellated); }),
        Call("GetSectionTypeFromTable", "8", {"-1"},
             [] { return Facade::GetSectionTypeFromTable(American, "Angle"); }),
        Call("GetShapeTypeFromSection", "3", {"0"},
             [] { return Facade::GetShapeTypeFromSection(American, Angle); }),
        Call("GetSectionTypeList", "W Shape,Rod,Angle,Castellated NonComp Beam", {"null", "empty"},
             [] { return Facade::GetSectionTypeList(American); }),
    };
}

std::string Rods() { return RowsOf("AISCSections.db3", "Rod"); }

/// A call within a transaction that has deleted the first of two rods.
PublicCall Ends(const char* name, int (*end)(), const char* right, const char* failed) {
    return Call(name, right, {failed}, end)
        .On([] {
            Facade::BeginTransaction(American);
            openRecordset(&gblSectionDatabase, &rows, "Rod", 2, 0);
            deleteRecord(&rows, "");
            closeRecordset(&rows);
        })
        .Leaving(Rods);
}

PublicCalls Transactions() {
    constexpr const char* Both = "Rod 1 R1 1.000000e+00 Rod 2 R2 2.000000e+00";
    static const std::string one = "1 -> Rod 2 R2 2.000000e+00";
    static const std::string undone = std::string("1 -> ") + Both;
    static const std::string failed = std::string("0 -> ") + Both;
    return {
        Call("BeginTransaction", "1", {"0"}, [] { return Facade::BeginTransaction(American); }),
        Ends("CommitTransaction", Facade::CommitTransaction, one.c_str(), failed.c_str()),
        Ends("RollbackTransaction", Facade::RollbackTransaction, undone.c_str(), failed.c_str()),
    };
}

PublicCalls Selections() {
    const auto select = [](unsigned first, unsigned second) {
        CDWordArray selection;
        selection.Add(first);
        selection.Add(second);
        return selection;
    };
    return {
        Call("GetUserSelectedSections", "2", {"-1", "0", "empty"},
             [] {
                 CDWordArray selection;
                 Under([&] { Facade::GetUserSelectedSections(American, Rod, selection); });
                 return Tell(selection);
             }),
        Call("SaveUserSelectedSections", "done -> [AISCSections]\nW Shape=1,2\nRod=2\nAngle=-1\n",
             {"done -> [AISCSections]\nW Shape=0\nRod=2\nAngle=-1\n"},
             [=] {
                 CDWordArray selection = select(1, 2);
                 Under([&] { Facade::SaveUserSelectedSections(American, WShape, selection); });
                 return std::string("done");
             })
            .Leaving(IndexFile),
        Call("IsSectionInProject", "1", {"0"},
             [] { return Facade::IsSectionInProject(American, Rod, 2); }),
        Call("IsSectionInProject, left out", "0", {},
             [] { return Facade::IsSectionInProject(American, Rod, 1); }),
        Call("GetUserSelectedSectionNameList", "R2", {"null"},
             [] { return Facade::GetUserSelectedSectionNameList(American, Rod); }),
    };
}

} // namespace

PublicCalls LifecycleCalls() {
    return AllOf({Lifetime(), Settings(), Opening(), Transactions(), Tables(), Selections()});
}

} // namespace faults
