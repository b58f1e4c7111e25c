// Creating database files: their names, keys and leftovers.
#include "DataAccessSupport.h"

#include <iterator>

using namespace testsupport;
namespace fs = std::filesystem;

namespace {

class CreateTest : public DataAccessTest {
protected:
    CreateTest() {
        fs::create_directory(m_files);
        if (HasSystemsEngine && HasStockProgram())
            m_askStockProgram = true;
    }

    int Create(const std::string& path, const std::string& connect) {
        DatabaseHandle db;
        return createDatabase(db.Address(), path.c_str(), connect.c_str(), 0, nullptr);
    }

    std::string SaltOf(const std::string& path) { return ReadFile(path).substr(0, 16); }

    /// Whether the engine's own program, which knows nothing of this process, opens the file.
    bool OpensElsewhere(const std::string& path, const std::string& password) {
        return !m_askStockProgram ||
               RunStockProgram(m_folder, path,
                               "PRAGMA key = '" + password + "'; PRAGMA application_id;")
                       .find("1399153524") != std::string::npos;
    }

    const std::string m_files = m_folder.File("files");
    bool m_askStockProgram = false;
};

TEST_F(CreateTest, PasswordsInEveryFormOpenWhatTheyProtect) {
    const std::string digits = "0123456789abcdef0123456789ABCDEF";
    const struct {
        std::string descriptor;
        std::string connect;
        bool isProtected;
    } cases[]{
        {";PWD=secret", "secret", true},
        {"x'" + digits + digits + "'", ";PWD=x'" + digits + digits + "'", true},
        {"x'" + digits + digits + digits + "'", "x'" + digits + digits + digits + "'", true},
        {";PWD=it's \"quoted\"", "it's \"quoted\"", true},
        {";PWD= ", ";PWD= ", true},
        {"", "", false},
        {";", "", false},
        {" ", "", false},
        {"; ", " ;", false},
        {";PWD=", ";", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.descriptor);
        const std::string path = m_files + "/new.db3";
        ASSERT_EQ(Create(path, c.descriptor), 1);
        EXPECT_NE(ReadFile(path).starts_with("SQLite format 3"), c.isProtected);
        DatabaseHandle db;
        EXPECT_EQ(Open(db, path, c.connect.c_str()), 1);
        EXPECT_EQ(Open(db, path, "wrong"), c.isProtected ? -1 : 1);
        EXPECT_EQ(Open(db, path, " ; "), c.isProtected ? -1 : 1);
        EXPECT_EQ(TakeQuietError(), c.isProtected ? 3031 : 0);
        fs::remove(path);
    }
}

TEST_F(CreateTest, FilesOfOnePasswordShareTheirSalt) {
    const auto file = [&](const char* name) { return m_files + "/" + name; };
    EXPECT_TRUE(IsTrueInChild([&] {
        return Create(file("a"), "one") == 1 && Create(file("b"), ";PWD=one") == 1 &&
               Create(file("other"), "two") == 1;
    }));
    EXPECT_EQ(SaltOf(file("a")), SaltOf(file("b")));
    EXPECT_NE(SaltOf(file("a")), SaltOf(file("other"))) << "each password has its own";
    EXPECT_TRUE(OpensElsewhere(file("a"), "one") && OpensElsewhere(file("b"), "one"));

    EXPECT_TRUE(IsTrueInChild([&] { return Create(file("later"), "one") == 1; }));
    EXPECT_NE(SaltOf(file("later")), SaltOf(file("a"))) << "drawn at random";
    EXPECT_TRUE(IsTrueInChild([&] {
        DatabaseHandle db;
        return Open(db, file("a"), "one") == 1 && Create(file("added"), "one") == 1;
    }));
    EXPECT_EQ(SaltOf(file("added")), SaltOf(file("a"))) << "goes on with that of an opened file";
    EXPECT_TRUE(IsTrueInChild([&] {
        DatabaseHandle db;
        return Open(db, file("a"), "tried") == -1 && Create(file("own"), "tried") == 1;
    }));
    EXPECT_NE(SaltOf(file("own")), SaltOf(file("a"))) << "not with that of a stranger's file";
}

TEST_F(CreateTest, JournalsOfAnEarlierFileAreNotPlayedIntoTheNewOne) {
    const std::string path = m_files + "/shapes.db3";
    for (const char* connect : {"", ";PWD=secret"}) {
        CreateCatalogue(path, 3, connect);
        EXPECT_TRUE(IsTrueInChild([&] { // is ended in the midst of a transaction
            static CSectionWorkspace workspace;
            static DatabaseHandle db;
            openDatabase(db.Address(), path.c_str(), 1, 0, 0, connect, &workspace);
            workspace.BeginTrans();
            RecordsetHandle rows;
            return Query(db, rows, "Shape", 1) == 1 && deleteAllRecords(rows.Address());
        }));
        ASSERT_TRUE(fs::exists(path + "-journal"));
        WriteFile(path + "-wal", ReadFile(path + "-journal"));
        fs::remove(path);
        CreateCatalogue(path, 5, connect);
        EXPECT_EQ(std::distance(fs::directory_iterator(m_files), {}), 1);
        DatabaseHandle db;
        ASSERT_EQ(Open(db, path, connect), 1);
        Rows rows(db, "Shape");
        EXPECT_EQ(getRecordCount(rows.Address()), 5);
        closeDatabase(db.Address(), 1);

        fs::remove(path);
        fs::create_directory(path + "-journal");
        EXPECT_EQ(Create(path, connect), -1) << "what cannot be removed is told";
        EXPECT_EQ(TakeQuietError(), 3043);
        fs::remove(path + "-journal");
        EXPECT_TRUE(fs::is_empty(m_files));
    }
}

TEST_F(CreateTest, NamesThatMeanSomethingToTheEngineAreFiles) {
    const fs::path before = fs::current_path();
    fs::current_path(m_files);
    for (const char* name : {":memory:", "file:x.db3", "file::memory:?cache=shared", "-", "%20"}) {
        SCOPED_TRACE(name);
        CreateCatalogue(name, 3);
        EXPECT_TRUE(fs::is_regular_file(m_files + "/" + name));
        DatabaseHandle db;
        ASSERT_EQ(Open(db, name), 1);
        Rows rows(db, "Shape");
        EXPECT_EQ(getRecordCount(rows.Address()), 3);
    }
    DatabaseHandle db;
    EXPECT_EQ(Open(db, ":memory"), 0);
    fs::current_path(before);
}

} // namespace
