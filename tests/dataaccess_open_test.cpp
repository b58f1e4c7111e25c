// What is made sure of when a database file is opened.
#include "DataAccessSupport.h"

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
        EXPECT_EQ(RunInChild([&] {
                      DatabaseHandle db;
                      return BecomeOrdinaryUser() && Open(db, c.path, "", 1) == c.result &&
                                     TakeQuietError() == c.number
                                 ? 0
                                 : 1;
                  }),
                  0)
            << c.path << " in " << std::oct << c.folderMode;
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

} // namespace
