// The platform room: strings, containers, exceptions, files, host defaults, message boxes.
#include "TestSupport.h"

#include "platform/COleVariant.h"
#include "platform/Collections.h"
#include "platform/Exceptions.h"
#include "platform/FileSystem.h"
#include "platform/HostDefaults.h"
#include "platform/MessageBox.h"

#include <array>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace testsupport;

namespace {

unsigned PermissionsOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

} // namespace

TEST(CString, PartsAreCutToTheText) {
    const CString text("W12X26");
    EXPECT_EQ(text.Left(99), "W12X26");
    EXPECT_EQ(text.Right(-1), "");
    EXPECT_EQ(text.Mid(4, 99), "26");
    EXPECT_EQ(text.Mid(7), "");
    EXPECT_EQ(text.Mid(-2, 3), "W12");
    EXPECT_EQ(text.Find('X', 99), -1);
    EXPECT_EQ(text.Find("26", -1), -1);
    EXPECT_EQ(text.ReverseFind('2'), 4);
    EXPECT_TRUE(CString(nullptr).IsEmpty());
}

TEST(Text, BeginsWithANumberBehindBlanksAndOneSign) {
    struct {
        const char* text;
        double number;
        std::int64_t whole;
    } const cases[] = {{"12.5", 12.5, 12}, {" \t12.5x", 12.5, 12}, {"+3", 3, 3},
                       {" -9 ", -9, -9},   {"1e2", 100, 1},        {".5", 0.5, 0},
                       {"-.5", -.5, 0},    {"+-9", 0, 0},          {"-+9", 0, 0},
                       {"++9", 0, 0},      {"+ 9", 0, 0},          {"-", 0, 0},
                       {"", 0, 0},         {"inf", 0, 0},          {"-nan", 0, 0},
                       {"x1", 0, 0},       {"Info", 0, 0}};
    for (const auto& [text, number, whole] : cases) {
        EXPECT_EQ(dbsection::LeadingNumber<double>(text), number) << text;
        EXPECT_EQ(dbsection::LeadingInteger(text), whole) << text;
        EXPECT_EQ(dbsection::AsNumber(COleVariant(text)), number) << text;
    }
    EXPECT_EQ(dbsection::AsNumber(COleVariant(2.5)), 2.5);
    EXPECT_EQ(dbsection::AsNumber(COleVariant::Null()), 0);
}

TEST(CString, FormatHoldsLongTextAndItsOwnText) {
    const std::string text(100000, 'x');
    CString composed;
    composed.Format("[%s]%d", text.c_str(), -7);
    EXPECT_EQ(composed.View(), "[" + text + "]-7");
    composed.Format("<%s>", static_cast<const char*>(composed));
    EXPECT_EQ(composed.View(), "<[" + text + "]-7>");
}

TEST(Containers, AnIndexOutOfRangeIsRefused) {
    CDWordArray array;
    array.SetAtGrow(2, 7);
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array.GetAt(0), 0U);
    CStringList list;
    CMap<int, int, int, int> map;
    POSITION end = nullptr;
    POSITION stale = dbsection::PositionOf(3, 4);
    int key = 0;
    int value = 0;
    const std::function<void()> faults[] = {
        [&] { (void)array.GetAt(3); },        [&] { (void)array[-1]; },
        [&] { array.SetAt(3, 1); },           [&] { array.SetAtGrow(-1, 1); },
        [&] { (void)CUIntArray().GetAt(0); }, [&] { (void)CString("ab").GetAt(2); },
        [&] { (void)list.GetNext(end); },     [&] { map.GetNextAssoc(stale, key, value); },
    };
    for (std::size_t i = 0; i < std::size(faults); ++i)
        EXPECT_TRUE(IsRefused(faults[i])) << "fault " << i;
}

TEST(Containers, MapsKeepTheOrderOfInsertion) {
    CTypedPtrMap<CMapWordToPtr, WORD, const char*> map;
    for (const WORD key : {WORD{1001}, WORD{3}, WORD{37}, WORD{1}})
        map.SetAt(key, "old");
    map.SetAt(3, "new");
    std::string order;
    for (POSITION position = map.GetStartPosition(); position != nullptr;) {
        WORD key = 0;
        const char* value = nullptr;
        map.GetNextAssoc(position, key, value);
        order += std::to_string(key) + value + " ";
    }
    EXPECT_EQ(order, "1001old 3new 37old 1old ");
    const char* untouched = "same";
    EXPECT_FALSE(map.Lookup(2, untouched));
    EXPECT_STREQ(untouched, "same");
}

TEST(Variant, OwnsItsTextAndRefersToNothingElse) {
    COleVariant copy;
    {
        const COleVariant original(CString("a text that is too long to be kept in place"));
        copy = original;
    }
    EXPECT_EQ(copy.vt, VT_BSTR);
    EXPECT_EQ(copy.strVal, "a text that is too long to be kept in place");
    EXPECT_EQ(COleVariant::Bool(true).boolVal, -1);
}

TEST(Exceptions, AMessageIsCutToItsBuffer) {
    CException* e = new CFileException(ENOENT, CString(std::string(300, 'n')));
    char buffer[8] = "abcdefg";
    EXPECT_EQ(e->GetErrorMessage(buffer, 0), 0);
    EXPECT_STREQ(buffer, "abcdefg");
    EXPECT_EQ(e->GetErrorMessage(buffer, 4), 1);
    EXPECT_EQ(std::string(buffer, 8), std::string("nnn\0efg\0", 8));
    e->Delete();
    CMemoryException::Instance()->Delete();
    EXPECT_FALSE(CMemoryException::Instance()->GetMessage().IsEmpty());
}

TEST(Paths, SplitAndComposeAreInverse) {
    const struct {
        const char* path;
        std::array<const char*, 4> parts;
    } cases[] = {
        {R"(C:\Data\Custom.Ini)", {"C:", R"(\Data\)", "Custom", ".Ini"}},
        {R"(/home/me\v1.2/a.b.db3)", {"", R"(/home/me\v1.2/)", "a.b", ".db3"}},
        {R"(..\AISCSections)", {"", R"(..\)", "AISCSections", ""}},
        {"C:x.", {"C:", "", "x", "."}},
        {"/x.d/", {"", "/x.d/", "", ""}},
        {"", {"", "", "", ""}},
    };
    for (const auto& [path, wanted] : cases) {
        const dbsection::PathParts parts = dbsection::SplitPath(path);
        EXPECT_EQ(parts.drive, wanted[0]) << path;
        EXPECT_EQ(parts.folder, wanted[1]) << path;
        EXPECT_EQ(parts.name, wanted[2]) << path;
        EXPECT_EQ(parts.extension, wanted[3]) << path;
        EXPECT_EQ(dbsection::ComposePath(parts), path);
    }
    EXPECT_EQ(dbsection::ComposePath({"D:", "cat", "a", "db3"}), R"(D:cat\a.db3)");
    EXPECT_EQ(dbsection::ComposePath({"", "cat/", "a", ".db3"}), "cat/a.db3");
}

TEST(Paths, APathThatIsTooLongIsNeverCut) {
    const std::string longest(260, 'p');
    EXPECT_EQ(dbsection::SplitPath(longest.c_str()).name.View(), longest);
    EXPECT_TRUE(dbsection::SplitPath((longest + "p").c_str()).name.IsEmpty());
    dbsection::PathParts parts{"", "f\\", CString(std::string(254, 'n')), ".db3"};
    EXPECT_EQ(dbsection::ComposePath(parts).GetLength(), 260);
    parts.folder = "ff";
    EXPECT_TRUE(dbsection::ComposePath(parts).IsEmpty());
}

TEST(FileAttributes, FollowTheOwnersWritePermission) {
    const TempFolder folder;
    const std::string path = folder.Path() + "\\file.db3";
    WriteFile(folder.File("file.db3"), "x");
    ::chmod(folder.File("file.db3").c_str(), 0664);
    EXPECT_EQ(GetFileAttributesA(path.c_str()), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY), 1);
    EXPECT_EQ(PermissionsOf(folder.File("file.db3")), 0444U);
    EXPECT_EQ(GetFileAttributesA(path.c_str()), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(SetFileAttributesA(path.c_str(), INVALID_FILE_ATTRIBUTES), 0);
    EXPECT_EQ(SetFileAttributesA(path.c_str(), 0), 1);
    EXPECT_EQ(PermissionsOf(folder.File("file.db3")), 0644U);
    EXPECT_TRUE(dbsection::IsRegularFile(path.c_str()));

    EXPECT_EQ(GetFileAttributesA(folder.Path().c_str()), FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_FALSE(dbsection::IsRegularFile(folder.Path().c_str()));
    EXPECT_FALSE(dbsection::IsRegularFile(folder.File("none").c_str()));
    EXPECT_EQ(SetFileAttributesA(folder.File("none").c_str(), 0), 0);
    EXPECT_EQ(GetFileAttributesA(nullptr), INVALID_FILE_ATTRIBUTES);
}

TEST(ReplaceFile, KeepsPermissionsAndLinks) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.File("real"));
    const std::string real = folder.File("real/a.ini");
    const std::string link = folder.File("link.ini");
    std::filesystem::create_symlink("real/a.ini", link);
    EXPECT_EQ(dbsection::ReplaceFile(link.c_str(), "created through the link"), 0);
    ::chmod(real.c_str(), 0660);
    EXPECT_EQ(dbsection::ReplaceFile(link.c_str(), "replaced"), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadFile(real), "replaced");
    EXPECT_EQ(PermissionsOf(real), 0660U);

    SetFileAttributesA(real.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(dbsection::ReplaceFile(real.c_str(), "not allowed"), EACCES);
    EXPECT_EQ(ReadFile(real), "replaced");
    EXPECT_EQ(dbsection::ReplaceFile(folder.Path().c_str(), "x"), EISDIR);
    EXPECT_EQ(dbsection::ReplaceFile(folder.File("none/a").c_str(), "x"), ENOENT);
    std::filesystem::create_symlink("loop", folder.File("loop"));
    EXPECT_EQ(dbsection::ReplaceFile(folder.File("loop").c_str(), "x"), ELOOP);
}

TEST(MoveOver, TakesThePlaceOfAFileWithItsPermissions) {
    const TempFolder folder;
    const std::string finished = folder.File("finished");
    const std::string target = folder.File("a.db3");
    const std::string link = folder.File("link.db3");
    WriteFile(target, "old");
    ::chmod(target.c_str(), 0620);
    std::filesystem::create_symlink("a.db3", link);
    WriteFile(finished, "new");
    EXPECT_EQ(dbsection::MoveOver(finished.c_str(), link.c_str()), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadFile(target), "new");
    EXPECT_EQ(PermissionsOf(target), 0620U);
    EXPECT_FALSE(std::filesystem::exists(finished));

    ::chmod(target.c_str(), 0444);
    WriteFile(finished, "newer");
    EXPECT_EQ(dbsection::MoveOver(finished.c_str(), target.c_str()), EACCES);
    EXPECT_EQ(dbsection::MoveOver(folder.File("none").c_str(), folder.File("b").c_str()), ENOENT);
    EXPECT_EQ(ReadFile(target), "new");
}

TEST(MessageBoxes, GoToTheHostsHandlerOrToStderr) {
    static std::string shown;
    const MessageBoxHandler record = [](const char* text, const char* caption, unsigned flags) {
        shown = std::string(caption) + "|" + text + "|" + std::to_string(flags);
        return 1;
    };
    EXPECT_EQ(SetMessageBoxHandler(record), nullptr);
    dbsection::ShowMessageBox("text", "caption");
    EXPECT_EQ(shown, "caption|text|16");
    EXPECT_EQ(SetMessageBoxHandler(nullptr), record);
    testing::internal::CaptureStderr();
    dbsection::ShowMessageBox("text", "caption");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption\ntext\n");
}

TEST(HostDefaults, ComeFromTheEnvironment) {
    ::unsetenv("SECTIONDB_FOLDER");
    ::unsetenv("SECTIONDB_INI");
    EXPECT_TRUE(DirectoryConfig::GetVessaSectionDatabaseDirectory().IsEmpty());
    EXPECT_TRUE(IniConfig::GetDbSectionCustomIniPath().IsEmpty());
    ::setenv("SECTIONDB_FOLDER", "/opt/catalogues", 1);
    ::setenv("SECTIONDB_INI", "/opt/Custom.Ini", 1);
    EXPECT_EQ(DirectoryConfig::GetVessaSectionDatabaseDirectory(), R"(/opt/catalogues\)");
    EXPECT_EQ(IniConfig::GetDbSectionCustomIniPath(), "/opt/Custom.Ini");
    ::unsetenv("SECTIONDB_FOLDER");
    ::unsetenv("SECTIONDB_INI");
}
