// The façade: opening, counting, the files that it reads and writes, and its vocabulary.
#include "FacadeSupport.h"

#include <functional>
#include <map>
#include <memory>
#include <set>

using namespace testsupport;

namespace {

TEST_F(FacadeTest, KeepsTheDatabaseOfTheSameCatalogue) {
    MakeCatalogue(File("AISCSections.db3"), 2);
    MakeCatalogue(File("BritishSections.db3"), 1);
    CSectionDatabase* first = Facade::GetDatabasePtr(1);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, gblSectionDatabase);
    EXPECT_EQ(Facade::m_nCountry, 1);
    EXPECT_EQ(Facade::m_bInit, 1);
    RecordsetHandle rows;
    ASSERT_EQ(openRecordset(&first, rows.Address(), "W Shape", 4, 1), 1);
    EXPECT_EQ(Facade::GetDatabasePtr(1), first);
    EXPECT_TRUE(rows->IsOpen()); // not even reopened
    closeRecordset(rows.Address());

    first->Close();
    EXPECT_TRUE(Facade::GetDatabasePtr(1)->IsOpen());
    EXPECT_STREQ(Facade::GetDatabasePtr(3)->GetName(), Facade::GetDatabaseFileName(3));
    EXPECT_EQ(Facade::m_nCountry, 3);
    std::filesystem::remove(File("BritishSections.db3"));
    EXPECT_EQ(Facade::GetDatabasePtr(3), nullptr); // no file, nothing changes
    EXPECT_EQ(Facade::GetDatabasePtr(0), nullptr);
    EXPECT_EQ(Facade::GetDatabasePtr(2), nullptr);
    EXPECT_TRUE(gblSectionDatabase->IsOpen());
    EXPECT_EQ(Facade::m_nCountry, 3);

    Facade::CloseGblSectionDBObject(0);
    ASSERT_NE(gblSectionDatabase, nullptr);
    EXPECT_FALSE(gblSectionDatabase->IsOpen());
    EXPECT_EQ(Facade::m_nCountry, 0);
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 2);
    Facade::CloseGblSectionDBObject(1);
    EXPECT_EQ(gblSectionDatabase, nullptr);
    EXPECT_EQ(Facade::m_SectionDBDrv.GetObjectCount(), 39);
    Facade::CloseSectionDatabase(&gblSectionDatabase);
}

TEST_F(FacadeTest, RemembersACatalogueThatCannotBeOpened) {
    MakeCatalogue(File("AISCSections.db3"), 2);
    WriteFile(File("BritishSections.db3"), std::string(4096, 'x'));
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 2);
    EXPECT_EQ(Facade::OpenSectionDatabase(3, &gblSectionDatabase), 0);
    EXPECT_EQ(gblSectionDatabase, nullptr);
    EXPECT_EQ(Facade::m_nCountry, 3);
    EXPECT_EQ(Facade::GetSectionCount(3, 1), 0);
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 2);
    EXPECT_EQ(TakeQuietError(), SectionError::NotADatabase);
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

TEST_F(FacadeTest, ReopensWhereTwoHandlesAlternate) {
    MakeCatalogue(File("AISCSections.db3"), 2);
    MakeCatalogue(File("BritishSections.db3"), 1);
    MakeCatalogue(File("new.db3"), 4);
    DatabaseHandle american;
    DatabaseHandle british;
    const auto count = [](DatabaseHandle& db) {
        return Facade::GetSectionCount(1, 1, db.Address());
    };
    EXPECT_EQ(Facade::OpenSectionDatabase(1, american.Address()), 1);
    std::filesystem::rename(File("new.db3"), File("AISCSections.db3"));
    EXPECT_EQ(Facade::OpenSectionDatabase(1, american.Address()), 1);
    EXPECT_EQ(count(american), 2); // kept open
    EXPECT_EQ(Facade::OpenSectionDatabase(3, british.Address()), 1);
    EXPECT_EQ(count(american), 2);
    EXPECT_EQ(Facade::OpenSectionDatabase(1, american.Address()), 1);
    EXPECT_EQ(count(american), 4); // opened anew
    EXPECT_TRUE(british->IsOpen());
    EXPECT_EQ(Facade::m_nCountry, 1);
    DatabaseHandle second;
    EXPECT_EQ(Facade::OpenSectionDatabase(1, second.Address()), 1);
    EXPECT_EQ(count(second), 4);
    EXPECT_NE(second.Get(), american.Get());
}

TEST_F(FacadeTest, CountsSectionsAndProperties) {
    MakeCatalogue(File("AISCSections.db3"), 2, ";PWD=secret");
    Facade::SetSectionDBPassword(";PWD=secret");
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 2);
    EXPECT_EQ(Facade::GetSectionFieldCount(1, 1), 11);
    EXPECT_EQ(Facade::GetTableFromSectionType(1, 1), "W Shape");
    EXPECT_EQ(Facade::GetTableFromSectionType(1, 17), "");
    EXPECT_EQ(Facade::GetTableFromSectionType(2, 1), ""); // its file is missing
    for (const auto& [index, type] : {std::pair(1, 2), {1, 17}, {2, 1}, {0, 1}, {1001, 2001}}) {
        EXPECT_EQ(Facade::GetSectionCount(index, type), 0);
        EXPECT_EQ(Facade::GetSectionFieldCount(index, type), 0);
    }
    DatabaseHandle own;
    ASSERT_EQ(Open(own, File("AISCSections.db3"), ";PWD=secret"), 1);
    EXPECT_EQ(Facade::GetSectionCount(4, 1, own.Address()), 2);
    EXPECT_EQ(Facade::GetSectionFieldCount(4, 1, own.Address()), 11);
    for (const int none : {38, 65536 + 4, -65535})
        EXPECT_EQ(Facade::GetSectionCount(none, 1, own.Address()), 0);
    EXPECT_EQ(Facade::m_nCountry, 1);
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

TEST_F(FacadeTest, TellsThatADatabaseIsNotOpen) {
    CSectionDatabase closed;
    CSectionDatabase* database = &closed;
    CSectionDatabase* none = nullptr;
    for (CSectionDatabase** db : {&database, &none}) {
        shownBoxes.clear();
        EXPECT_EQ(Facade::GetSectionCount(1, 1, db), 0);
        EXPECT_EQ(Facade::GetSectionFieldCount(1, 1, db), 0);
        ASSERT_EQ(shownBoxes.size(), 2u);
        EXPECT_EQ(shownBoxes[0].text, "Error: Database not open");
        EXPECT_EQ(shownBoxes[1].text, "Error: Database not open");
    }
}

TEST_F(FacadeTest, ReadsTheInformationOfACatalogue) {
    MakeCatalogue(File("open.db3"), 0);
    MakeCatalogue(File("protected.db3"), 0, ";PWD=secret");
    CatalogueFile(File("bare.db3")).RemoveTable("DBInfo");
    CString field[5];
    const auto read = [&](const std::string& path) {
        for (CString& text : field)
            text = "kept";
        return Facade::GetDBInfo(path.c_str(), field[2], field[0], field[3], field[1], field[4]);
    };
    const auto expectInfo = [&] {
        for (std::size_t i = 0; i < InfoFields.size(); ++i)
            EXPECT_EQ(field[i], InfoFields[i]);
    };
    EXPECT_EQ(read(File("open.db3")), 1);
    expectInfo();
    EXPECT_EQ(read(WithBackslashes(File("open.db3"))), 1);
    EXPECT_EQ(read(File("protected.db3")), 0);
    EXPECT_EQ(TakeQuietError(), SectionError::WrongPassword);
    EXPECT_EQ(field[0], "kept");
    Facade::SetSectionDBPassword(";PWD=secret");
    EXPECT_EQ(read(File("protected.db3")), 0) << "no connect text is passed";
    EXPECT_EQ(TakeQuietError(), SectionError::WrongPassword);
    ::setenv("SECTIONDB_PASSWORD", "secret", 1);
    EXPECT_EQ(read(File("protected.db3")), 1);
    expectInfo();
    EXPECT_EQ(read(File("bare.db3")), 0);
    EXPECT_EQ(TakeQuietError(), SectionError::NoSuchTable);
    EXPECT_EQ(read(File("missing.db3")), 0);
    EXPECT_FALSE(std::filesystem::exists(File("missing.db3")));
    EXPECT_EQ(field[4], "kept");
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
    EXPECT_EQ(Facade::m_nCountry, 0); // the library's own database is not touched
}

TEST_F(FacadeTest, ReadingTheInformationLeavesTheMarksOfAllFiles) {
    MakeCatalogue(File("AISCSections.db3"), 1);
    MakeCatalogue(File("other.db3"), 1);
    for (const unsigned mark : {FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_NORMAL}) {
        const unsigned otherMark = FILE_ATTRIBUTE_READONLY + FILE_ATTRIBUTE_NORMAL - mark;
        SetFileAttributesA(File("AISCSections.db3").c_str(), mark);
        SetFileAttributesA(File("other.db3").c_str(), otherMark);
        EXPECT_EQ(Facade::GetSectionCount(1, 1), 1);
        CString info;
        EXPECT_EQ(Facade::GetDBInfo(File("other.db3").c_str(), info, info, info, info, info), 1);
        EXPECT_EQ(GetFileAttributesA(File("other.db3").c_str()), otherMark);
        Facade::CloseGblSectionDBObject(1);
        EXPECT_EQ(GetFileAttributesA(File("AISCSections.db3").c_str()), mark);
    }
}

TEST_F(FacadeTest, WritesTheTableIndexOfTheCataloguesThatAreThere) {
    const std::string path = File("tables.dbi");
    MakeCatalogue(File("JapaneseSections.db3"), 0);
    MakeCatalogue(File("LysaghtColdFormedSections.db3"), 0);
    Facade::SetDBIFileName(WithBackslashes(path).c_str());
    Facade::InitialiseDBIFile();
    const std::string japanese = "[JapaneseSections]\nH Shape=0\nI Shape=0\nT Shape=0\nChannel=0\n"
                                 "Angle=0\nTube=0\nPipe=0\nRHS=0\nSHS=0\nCHS=0\nCT Shape=0\n";
    const std::string lysaght =
        "[LysaghtColdFormedSections]\nChannel with Lips=0\nZee with Lips=0\n";
    const auto content = [&] {
        std::string text = ReadFile(path);
        std::erase(text, '\r');
        return text;
    };
    EXPECT_EQ(content(), japanese + lysaght); // types above 50 are left out

    WriteFile(path, "; mine\n[JapaneseSections]\nPipe=1\nOther=5\n");
    Facade::InitialiseDBIFile();
    EXPECT_EQ(content().find("; mine\n[JapaneseSections]\nPipe=0\nOther=5\nH Shape=0\n"), 0u);
    const std::string once = content();
    Facade::InitialiseDBIFile();
    EXPECT_EQ(content(), once);

    Facade::SetDBIFileName(File("empty.dbi").c_str());
    Facade::SetProfileDBFolder(File("nowhere").c_str());
    Facade::InitialiseDBIFile();
    EXPECT_EQ(ReadFile(File("empty.dbi")), "");
    EXPECT_TRUE(std::filesystem::exists(File("empty.dbi")));
}

TEST_F(FacadeTest, CatalogueObjectsSurviveEveryOtherCall) {
    const char* connect = ";PWD=secret";
    const std::string american = File("AISCSections.db3");
    MakeCatalogue(american, 1, connect);
    MakeCatalogue(File("BritishSections.db3"), 2, connect);
    Facade::SetSectionDBPassword(connect);
    Facade::InitSectionDBInterface();
    SectionDBBase* catalogue = Facade::m_SectionDBDrv.GetSectionDBObject(1);
    CString text;
    const std::function<void()> others[]{
        [] { Facade::GetSectionCount(1, 1); },
        [] { Facade::GetSectionCount(3, 1); },
        [] { Facade::CloseGblSectionDBObject(0); },
        [] { Facade::CloseGblSectionDBObject(1); },
        [] { Facade::OpenSectionDatabase(99, &gblSectionDatabase); },
        [&] { Facade::GetDBInfo(american.c_str(), text, text, text, text, text); },
        [] { terminateDAOEngine(); },
    };
    for (const auto& one : others)
        for (const auto& another : others) {
            catalogue->SetDatabase(Facade::GetDatabasePtr(1));
            one();
            int type = 0;
            const std::unique_ptr<SECTIONINFO> beam(
                catalogue->GetSectionStructProperty("W12x26", 1004, 2007, &type));
            ASSERT_NE(beam, nullptr);
            EXPECT_NEAR(beam->Area, 4935.47, 0.01);
            another();
            EXPECT_EQ(catalogue->OpenSectionDatabase(), 1);
            EXPECT_EQ(catalogue->GetSectionCount(1), 1);
        }
    Facade::CloseGblSectionDBObject(1);
    {
        CSectionDatabase database;
        database.Open(american.c_str(), 1, 0, connect);
        catalogue->SetDatabase(&database);
        EXPECT_EQ(catalogue->GetSectionCount(1), 1);
    }
    DatabaseHandle exclusive;
    EXPECT_EQ(Open(exclusive, american, connect, 0, 1), 1) << "it keeps nothing open";
}

TEST_F(FacadeTest, AForkedProcessOpensItsOwnDatabase) {
    MakeCatalogue(File("AISCSections.db3"), 2);
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 2);
    CSectionDatabase* const parents = gblSectionDatabase;
    EXPECT_TRUE(IsTrueInChild([&] {
        const bool refused = !parents->IsOpen();
        return refused && Facade::GetSectionCount(1, 1) == 2;
    }));
    EXPECT_TRUE(parents->IsOpen());
}

TEST_F(FacadeTest, InitialisesOnceAndReleasesEverything) {
    MakeCatalogue(File("AISCSections.db3"), 1);
    Facade::InitSectionDBInterface();
    SectionDBBase* american = Facade::m_SectionDBDrv.GetSectionDBObject(1);
    Facade::InitSectionDBInterface();
    EXPECT_EQ(Facade::m_SectionDBDrv.GetSectionDBObject(1), american);

    american->SetDatabase(Facade::GetDatabasePtr(1));
    int type = 0;
    delete american->GetSectionData("W12x26", &type); // which leaves its rows open
    EXPECT_EQ(type, 1);
    for (int time = 0; time < 2; ++time) {
        Facade::ExitSectionDBInterface();
        EXPECT_EQ(Facade::m_bInit, 0);
        EXPECT_EQ(Facade::m_SectionDBDrv.GetObjectCount(), 0);
        EXPECT_EQ(gblSectionDatabase, nullptr);
        EXPECT_EQ(Facade::m_nCountry, 0);
    }
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 1);
    Facade::UnInitSectionDBInterface();
    EXPECT_EQ(Facade::GetSectionCount(1, 1), 1); // the next open initialises again
    EXPECT_EQ(Facade::m_SectionDBDrv.GetObjectCount(), 39);
}

/// The values of each key, in the order in which they were inserted.
std::map<std::string, std::vector<int>>
ByName(const CMap<const char*, const char*, int, int>& map) {
    std::map<std::string, std::vector<int>> values;
    for (const auto& [name, value] : map)
        values[name].push_back(value);
    return values;
}

TEST_F(FacadeTest, KnowsItsVocabulary) {
    for (int time = 0; time < 2; ++time) {
        Facade::InitSectionDBInterface();
        Facade::UnInitSectionDBInterface();
        EXPECT_EQ(Facade::m_mapCountryEnums.GetCount(), 36);
        EXPECT_EQ(Facade::m_mapSectionTypeEnums.GetCount(), 302);
    }
    Facade::InitSectionDBInterface();
    std::set<int> countries;
    for (const auto& [name, index] : Facade::m_mapCountryEnums) {
        EXPECT_TRUE(countries.insert(index).second) << name;
        EXPECT_TRUE(Facade::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index))) << name;
    }
    EXPECT_FALSE(countries.contains(34) || countries.contains(36));

    auto types = ByName(Facade::m_mapSectionTypeEnums);
    const std::vector<std::pair<const char*, std::vector<int>>> samples{
        {"EuropeanIPEShape", {1, 1}},
        {"Hem-Fir", {16, 3}},
        {"Glued Laminated Timber", {1, 1}},
        {"JindalIPEShape", {3}},
        {"JindalUBShape", {1}},
        {"IndianWPBShape", {10}},
        {"AmericanHSSRoundA1085", {24}},
        {"AmericanJoistGirder", {5}},
        {"ButlerEaveStrut", {4}},
        {"UserPrismatic", {10}},
    };
    for (const auto& [name, values] : samples)
        EXPECT_EQ(types[name], values) << name;
    EXPECT_EQ(ByName(Facade::m_mapCountryEnums)["stcUserDefined"], std::vector{1001});
}

} // namespace
