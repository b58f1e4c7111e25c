// What is made sure of when a database file is opened.
#include "DataAccessSupport.h"
#include "dataaccess/CCrack.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace testsupport;
namespace fs = std::filesystem;

namespace {

class OpenTest : public DataAccessTest {};

TEST_F(OpenTest, FilesThatCannotBeReachedAreToldFromMissingOnes) {
    const std::string folder = m_folder.File("folder");
    fs::create_directory(folder);
    CreateCatalogue(folder + "/shapes.db3");
    fs::create_symlink("loop", folder + "/loop");
    const struct {
        std::string path;
        mode_t folderMode;
        int result;
        int number;
    } cases[]{
        {folder + "/shapes.db3", 0755, 1, 0},
        {folder + "/missing.db3", 0755, 0, 3024},
        {folder + "/shapes.db3/inner.db3", 0755, 0, 3024},
        {folder + "/loop", 0755, -1, 3043},
        {folder + "/" + std::string(300, 'x'), 0755, -1, 3043},
        {folder + "/shapes.db3", 0644, -1, 3043},
        {folder + "/missing.db3", 0644, -1, 3043},
    };
    ::chmod(m_folder.Path().c_str(), 0755);
    for (const auto& c : cases) {
        ::chmod(folder.c_str(), c.folderMode);
        EXPECT_TRUE(IsTrueInChild([&] {
            DatabaseHandle db;
            return BecomeOrdinaryUser() && Open(db, c.path, "", 1) == c.result &&
                   TakeQuietError() == c.number;
        })) << c.path
            << " in " << std::oct << c.folderMode;
    }
    ::chmod(folder.c_str(), 0755);
}

TEST_F(OpenTest, ExclusiveKeepsWritersOutOfAFileThatMayNotBeWritten) {
    const std::string path = m_folder.File("shapes.db3");
    CreateCatalogue(path);
    ::chmod(m_folder.Path().c_str(), 0755);
    ::chmod(path.c_str(), 0644);
    if (::geteuid() != 0)
        GTEST_SKIP() << "the owner of a file may write it";
    StartHolder([&] {
        static DatabaseHandle held;
        EXPECT_TRUE(BecomeOrdinaryUser());
        EXPECT_EQ(Open(held, path, "", 1, 1), 1);
        RecordsetHandle rows;
        EXPECT_EQ(Query(held, rows, "Shape"), 1);
    });
    DatabaseHandle db;
    ASSERT_EQ(Open(db, path), 1);
    Rows rows(db, "Shape");
    EXPECT_EQ(deleteRecord(rows.Address(), ""), 0);
    EXPECT_EQ(TakeQuietError(), 3218);
    EXPECT_EQ(Open(db, path, "", 1, 1), -1);
    EXPECT_EQ(TakeQuietError(), 3045);
    StopHolder();
    EXPECT_EQ(Open(db, path, "", 1, 1), 1);
}

/// How many bytes this process has read from files.
long BytesRead() {
    std::ifstream io("/proc/self/io");
    std::string name;
    long bytes = 0;
    io >> name >> bytes;
    return bytes;
}

TEST_F(OpenTest, PlainFilesAreCheckedOncePerVersion) {
    const std::string path = m_folder.File("shapes.db3");
    constexpr long Size = 2'000'000;
    CreateCatalogue(path);
    const auto addRow = [&](std::size_t length) {
        DatabaseHandle db;
        return Open(db, path) == 1 ? ErrorOf([&] {
            AddShape(*Rows(db, "Select * From Shape WHERE AX < 0", 2), "N",
                     std::string(length, 'x').c_str(), 1);
        })
                                   : -1;
    };
    ASSERT_EQ(addRow(Size), 0);
    const auto isChecked = [&](int exclusive = 0) {
        terminateDAOEngine();
        const long before = BytesRead();
        DatabaseHandle db;
        EXPECT_EQ(Open(db, path, "", 0, exclusive), 1);
        return BytesRead() - before >= Size;
    };
    EXPECT_FALSE(isChecked()) << "this process made it";
    EXPECT_EQ(RunInChild([&] {
                  terminateDAOEngine();
                  return addRow(1);
              }),
              0);
    ::utimensat(AT_FDCWD, path.c_str(), nullptr, 0);
    EXPECT_TRUE(isChecked()) << "another process has changed it";
    LetSettle();
    EXPECT_TRUE(isChecked()) << "it was looked at too soon after the change";
    EXPECT_FALSE(isChecked());
    EXPECT_FALSE(isChecked(1));
    EXPECT_EQ(addRow(1), 0);
    EXPECT_FALSE(isChecked()) << "this process alone has changed it";
    ::chmod(path.c_str(), 0600);
    EXPECT_TRUE(isChecked());
}

TEST_F(OpenTest, DamageIsFoundBeforeTheEngineStumblesOverIt) {
    const std::string folder = m_folder.Path();
    const std::string build =
        SECTIONDB_PROGRAM " build " SECTIONDB_DATA_DIR "/AISCSections --output ";
    ASSERT_EQ(std::system((build + folder + " > /dev/null").c_str()), 0);
    const std::string path = folder + "/AISCSections.db3";
    const std::string whole = ReadFile(path);
    constexpr const char* Sorted = "Select * From [HSS Rectangle] ORDER BY [AX] ASC";
    {
        DatabaseHandle db;
        ASSERT_EQ(Open(db, path), 1);
        Rows rows(db, Sorted, 4);
        EXPECT_GT(getRecordCount(rows.Address()), 300);
    }
    std::string damaged = whole;
    damaged.replace(293'120, 256, std::string(256, '\xFF'));
    WriteFile(path, damaged);
    for (const int exclusive : {0, 1}) {
        DatabaseHandle db;
        EXPECT_EQ(Open(db, path, "", 1, exclusive), -1);
        EXPECT_EQ(TakeQuietError(), 3049);
    }
    EXPECT_TRUE(ReadFile(path) == damaged);
    WriteFile(path, whole);
    DatabaseHandle db;
    EXPECT_EQ(Open(db, path), 1);
}

/// What the table of a file of tests/protected says, or why it is not read.
std::string ReadForm(const std::string& path) {
    try {
        CSectionDatabase db;
        db.Open(path.c_str(), 0, 0, "secret");
        CSectionRecordset rows(&db);
        rows.Open(CSectionRecordset::Table, "Forms");
        rows.AddNew();
        rows.SetFieldValue(0, "more");
        rows.Update();
        rows.MoveFirst();
        return std::string(CCrack::strVARIANT(rows.GetFieldValue(0)).View());
    } catch (CSectionException* e) {
        std::string message(e->GetMessage().View());
        EXPECT_EQ(e->GetErrorNumber(), SectionError::WrongPassword) << message;
        e->Delete();
        return message;
    }
}

TEST_F(OpenTest, ProtectedFilesOfAnOlderFormAreReadAndOfANewerOneToldApart) {
    for (const auto& [file, says] : {std::pair("third.db3", "three"), {"fourth.db3", "four"}}) {
        const std::string path = m_folder.File(file);
        fs::copy_file(fs::path(PROTECTED_FILES) / file, path);
        for (int time = 0; time < 2; ++time) {
            DatabaseHandle wrong;
            EXPECT_EQ(Open(wrong, path, ";PWD=wrong"), -1) << file;
            EXPECT_EQ(TakeQuietError(), SectionError::WrongPassword) << file;
            const std::string read = ReadForm(path);
            // An engine of version 3 cannot read the newer form.
            EXPECT_TRUE(read == says || (file == std::string("fourth.db3") &&
                                         read.find("SQLCipher 4") != std::string::npos))
                << file << ": " << read;
        }
    }
}

} // namespace
