// Settings of the façade, and the paths that they lead to.
#include "FacadeSupport.h"

#include <tuple>

using namespace testsupport;

namespace {

/// The settings as the process starts with them.
const std::tuple settingsAtStart{
    Facade::m_bInit,
    Facade::m_nCountry,
    Facade::GetBaseUnitNo(),
    Facade::IsClearToWriteIniFile(),
    Facade::IsEngineMode(),
    Facade::GetExceptionType(),
    Facade::IsDeleteSectionAllowed(),
    Facade::m_bStartTransaction,
    (Facade::m_szPassword + Facade::m_szDBIFileName + Facade::m_szIniFileName +
     Facade::m_szUserTableFileName + Facade::m_szGenericTableFileName + Facade::m_szSectionDBFolder)
        .GetLength(),
    Facade::m_SectionDBDrv.GetObjectCount(),
    Facade::m_mapCountryEnums.GetCount() + Facade::m_mapSectionTypeEnums.GetCount(),
    gblSectionDatabase == nullptr};

TEST(FacadeState, StartsWithItsDefaults) {
    EXPECT_EQ(settingsAtStart, std::tuple(0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 0, true));
}

TEST_F(FacadeTest, EndsTheFolderWithABackslash) {
    const char* const cases[][2] = {
        {"", ""},
        {"C:\\Data", "C:\\Data\\"},
        {"C:\\Data\\", "C:\\Data\\"},
        {R"(C:\Data\Sub)", R"(C:\Data\Sub\)"},
        {"/usr/share", "/usr/share\\"},
        {"/usr/share/", "/usr/share/\\"},
        {"\\", "\\"},
    };
    for (const auto& [folder, stored] : cases) {
        Facade::SetProfileDBFolder(folder);
        EXPECT_EQ(Facade::GetProfileDBFolder(), stored);
        EXPECT_EQ(Facade::GetDatabaseUpdateLogFileName(), CString(stored) + "secdblog.mdb");
    }
}

TEST_F(FacadeTest, TakesWhatIsNotSetFromTheEnvironment) {
    Reset();
    EXPECT_EQ(Facade::GetDatabaseDirectoryName() + Facade::GetINIFileName() +
                  Facade::GetDBIFileName(),
              "");
    MakeCatalogue(File("AISCSections.db3"), 1);
    ::setenv("SECTIONDB_FOLDER", m_folder.Path().c_str(), 1);
    ::setenv("SECTIONDB_INI", "/a.ini", 1);
    ::setenv("SECTIONDB_DBI", "/b.dbi", 1);
    EXPECT_EQ(Facade::GetINIFileName(), "/a.ini");
    EXPECT_EQ(Facade::GetDBIFileName(), "/b.dbi");
    EXPECT_EQ(Facade::GetProfileDBFolder(), "");
    EXPECT_EQ(FileOf(1), File("AISCSections.db3"));
    EXPECT_EQ(Facade::GetDatabaseUpdateLogFileName(), (m_folder.Path() + "\\secdblog.mdb").c_str());
    Facade::SetProfileDBFolder("/elsewhere");
    Facade::SetINIFileName("/own.ini");
    Facade::SetDBIFileName("/own.dbi");
    EXPECT_EQ(Facade::GetDatabaseDirectoryName(), "/elsewhere\\");
    EXPECT_EQ(Facade::GetINIFileName() + Facade::GetDBIFileName(), "/own.ini/own.dbi");
}

TEST_F(FacadeTest, NamesTheFilesThatExist) {
    for (const char* name : {"AISCSections.db3", "Untitled.db3", "APLApolloTubesSections.db3"})
        WriteFile(File(name), "");
    std::filesystem::create_directory(File("BritishSections.db3"));
    EXPECT_EQ(Facade::GetDatabaseFileName(1), (m_folder.Path() + "\\AISCSections.db3").c_str());
    EXPECT_EQ(FileOf(37), File("APLApolloTubesSections.db3"));
    for (const int index : {0, 2, 3, 38, 1000, 1001, 1010, -1, 65537})
        EXPECT_EQ(Facade::GetDatabaseFileName(index), "") << index;
    Facade::SetProfileDBFolder(WithBackslashes(m_folder.Path()).c_str());
    EXPECT_EQ(FileOf(1), File("AISCSections.db3"));
}

TEST_F(FacadeTest, CrossesTheFileOfTheUserTables) {
    WriteFile(File("a.db3"), "");
    WriteFile(File("b.db3"), "");
    Facade::SetUserTableFileName(File("a.db3").c_str());
    EXPECT_EQ(Facade::GetUserTableFileName(), "");
    EXPECT_EQ(Facade::GetGenericTableFileName(), File("a.db3").c_str());
    EXPECT_EQ(FileOf(1010), File("a.db3"));
    EXPECT_EQ(Facade::GetDatabaseFileName(1001), "");
    Facade::m_szUserTableFileName = WithBackslashes(File("b.db3")).c_str();
    EXPECT_EQ(FileOf(1001), File("b.db3"));
    Facade::SetGenericTableFileName(File("missing.db3").c_str());
    EXPECT_EQ(Facade::GetDatabaseFileName(1010), "");
}

TEST_F(FacadeTest, RedirectsCustomisedCatalogues) {
    const TempFolder settings;
    struct {
        const char* flag;
        const char* name;
        std::vector<std::string> files;
        std::string expected;
    } const cases[] = {
        {"0", "Mine", {File("Mine.db3")}, File("AISCSections.db3")},
        {"x", "Mine", {File("Mine.db3")}, File("AISCSections.db3")},
        {"1", "", {}, File("AISCSections.db3")},
        {"1", "Mine", {File("Mine.db3"), settings.File("Mine.db3")}, File("Mine.db3")},
        {"-1", "Mine", {settings.File("Mine.db3")}, settings.File("Mine.db3")},
        {"1", "My.Own", {settings.File("My.Own.db3")}, settings.File("My.Own.db3")},
        {"1", "Mine", {}, ""},
    };
    WriteFile(File("AISCSections.db3"), "");
    for (const auto& [flag, name, files, expected] : cases) {
        SCOPED_TRACE(std::string(flag) + " " + name + " in " + std::to_string(files.size()));
        WriteFile(settings.File("Custom.ini"),
                  std::string("[customdbflags]\nAISCSECTIONS=") + flag +
                      "\n[CustomDBNames]\nAISCSections=" + name + "\n");
        for (const std::string& file : files)
            WriteFile(file, "");
        for (const std::string& ini :
             {settings.File("Custom.ini"), WithBackslashes(settings.File("Custom.ini"))}) {
            Facade::SetINIFileName(ini.c_str());
            EXPECT_EQ(FileOf(1), expected);
        }
        EXPECT_EQ(Facade::IsCustomized(1), std::string(flag).ends_with('1') && *name != '\0');
        EXPECT_EQ(Facade::IsCustomized(2), 0);
        for (const std::string& file : files)
            std::filesystem::remove(file);
    }
    for (const int index : {0, 38, 1001, 1010})
        EXPECT_EQ(Facade::IsCustomized(index), 0);
}

TEST_F(FacadeTest, LooksForSettingsInTheFolderUnlessTheyAreNamed) {
    Facade::SetINIFileName("");
    WriteFile(File("Custom.Ini"),
              "[CustomDBFlags]\nBritishSections=1\n[CustomDBNames]\nBritishSections=Mine\n");
    WriteFile(File("Mine.db3"), "");
    EXPECT_EQ(FileOf(3), File("Mine.db3"));
    CString name = "kept";
    EXPECT_EQ(Facade::IsCustomized("AISCSections", name), 0);
    EXPECT_EQ(name, "kept");
}

TEST_F(FacadeTest, CutsLongNamesAndRefusesLongPaths) {
    WriteFile(File("long.ini"), "[CustomDBFlags]\nAISCSections=1\n[CustomDBNames]\nAISCSections=" +
                                    std::string(400, 'n') + "\n");
    Facade::SetINIFileName(File("long.ini").c_str());
    CString name;
    EXPECT_EQ(Facade::IsCustomized("AISCSections", name), 1);
    EXPECT_EQ(name, std::string(255, 'n').c_str());
    EXPECT_EQ(Facade::GetDatabaseFileName(1), "");

    Facade::SetINIFileName(File("none.ini").c_str());
    const std::size_t stem = std::string("\\AISCSections.db3").size();
    for (const std::size_t length : {260u, 261u}) {
        const std::string folder =
            File(std::string(length - stem - m_folder.Path().size() - 1, 'f').c_str());
        std::filesystem::create_directory(folder);
        WriteFile(folder + "/AISCSections.db3", "");
        Facade::SetProfileDBFolder(folder.c_str());
        EXPECT_EQ(Facade::GetDatabaseFileName(1).GetLength(), length == 260 ? 260 : 0);
    }
}

} // namespace
