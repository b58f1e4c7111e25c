// Many additions as one transaction, and single ones beside other programs.
#include "FacadeSupport.h"

#include "catalogues/Catalogues.h"

using namespace testsupport;

namespace {

constexpr int American = 1;
constexpr int UserTables = 1001;

class TransactionTest : public FacadeTest {
protected:
    TransactionTest() {
        CatalogueFile(m_path).AddTable("Pipe", LayoutId::RoundTube, {{"P0", "p0", Values()}});
        CatalogueFile(File("AISCSections.db3")).AddTable("W Shape", LayoutId::IShape, {W12X26});
        Facade::m_szUserTableFileName = m_path.c_str();
    }

    static std::vector<COleVariant> Values() { return {4.0, 0.2, 2.4, 4.3, 2.9}; }

    /// Adds a pipe of that number to a file as the façade's users do.
    static int Add(int number, const std::string& name = {}) {
        CSectionDatabase* database = Facade::GetDatabasePtr(UserTables);
        SectionDBBase* user = Facade::m_SectionDBDrv.GetSectionDBObject(UserTables);
        if (database == nullptr)
            return 0;
        SECTIONINFO section;
        section.PublicName = (name.empty() ? "P" + std::to_string(number) : name).c_str();
        section.VessaName = section.PublicName;
        section.Values = {6, 0.25, 4.5, 18.5, 8.3};
        user->SetDatabase(database);
        user->SetWorkingTable("Pipe");
        return user->AddSectionData(static_cast<WORD>(number + 1), &section);
    }

    /// The number of pipes, as another connection sees them.
    int CountInFile() {
        DatabaseHandle db;
        EXPECT_EQ(Open(db, m_path, "", 1), 1);
        return getRecordCount(Rows(db, "Select * From Pipe", 4).Address());
    }

    const std::string m_path = m_folder.File("user.db3");
};

TEST_F(TransactionTest, StoresEverythingOrNothing) {
    ASSERT_EQ(Facade::BeginTransaction(UserTables), 1);
    EXPECT_EQ(Facade::BeginTransaction(UserTables), 0) << "one at a time";
    EXPECT_EQ(TakeQuietError(), SectionError::InUse);
    EXPECT_EQ(Add(1) + Add(2) + Add(3, "P2") + Add(3), 3) << "a refused one undoes itself alone";
    EXPECT_EQ(shownBoxes.size(), 1U);
    EXPECT_EQ(CountInFile(), 1);
    EXPECT_EQ(Facade::GetSectionCount(UserTables, 2006), 4) << "seen from within";
    EXPECT_EQ(Facade::CommitTransaction(), 1);
    EXPECT_EQ(CountInFile(), 4);

    ASSERT_EQ(Facade::BeginTransaction(UserTables), 1);
    EXPECT_EQ(Add(4), 1);
    EXPECT_EQ(Facade::RollbackTransaction(), 1);
    EXPECT_EQ(CountInFile(), 4);
    EXPECT_EQ(Facade::CommitTransaction() + Facade::RollbackTransaction(), 0);
    EXPECT_EQ(TakeQuietError(), SectionError::NoTransaction);
    EXPECT_EQ(Add(4), 1) << "stored at once";
    EXPECT_EQ(CountInFile(), 5);
}

TEST_F(TransactionTest, KeepsTheLibraryWideDatabase) {
    ASSERT_EQ(Facade::BeginTransaction(UserTables), 1);
    EXPECT_EQ(Add(1), 1);
    EXPECT_EQ(Facade::GetDatabasePtr(American), nullptr);
    EXPECT_EQ(TakeQuietError(), SectionError::InUse);
    EXPECT_EQ(Facade::GetSectionCount(American, 1), 0);
    DatabaseHandle own;
    EXPECT_EQ(Facade::OpenSectionDatabase(American, own.Address()), 1);
    EXPECT_EQ(Facade::GetSectionCount(American, 1, own.Address()), 1) << "a database of the host's";
    EXPECT_EQ(Add(2), 1);
    EXPECT_EQ(Facade::CommitTransaction(), 1);
    EXPECT_EQ(CountInFile(), 3);
    EXPECT_EQ(Facade::GetSectionCount(American, 1), 1);

    ASSERT_EQ(Facade::BeginTransaction(UserTables), 1);
    EXPECT_EQ(Add(3), 1);
    Facade::CloseGblSectionDBObject(1);
    EXPECT_EQ(Facade::CommitTransaction(), 0);
    EXPECT_EQ(TakeQuietError(), SectionError::ObjectClosed);
    EXPECT_EQ(CountInFile(), 3);
    EXPECT_EQ(Facade::BeginTransaction(UserTables), 1);
    Facade::ExitSectionDBInterface();
    EXPECT_EQ(Facade::BeginTransaction(UserTables), 1);
    EXPECT_EQ(Add(3) + Facade::CommitTransaction(), 2);
    EXPECT_EQ(CountInFile(), 4);
}

TEST_F(TransactionTest, AKillLeavesEverythingOrNothing) {
    constexpr int Count = 200;
    for (const bool isCommitted : {false, true}) {
        StartHolder([&] {
            int added = Facade::BeginTransaction(UserTables);
            for (int i = 1; i <= Count; ++i)
                added += Add(i);
            if (isCommitted)
                added += Facade::CommitTransaction() - 1;
            if (added != Count + 1)
                throw std::runtime_error("a pipe cannot be added");
        });
        StopHolder();
        EXPECT_EQ(CountInFile(), isCommitted ? Count + 1 : 1);
    }
}

TEST_F(TransactionTest, AFullDiskUndoesItWhole) {
    const std::string disk = m_folder.File("disk");
    std::filesystem::create_directory(disk);
    const int result = RunInChild([&] {
        constexpr std::size_t Room = 400'000;
        LimitDisk(disk, Room);
        const std::string path = disk + "/user.db3";
        std::filesystem::copy_file(m_path, path);
        Facade::m_szUserTableFileName = path.c_str();
        if (Facade::BeginTransaction(UserTables) != 1)
            return 1;
        int added = 0;
        while (added < 20'000 && Add(added + 1, std::string(200, 'x') + std::to_string(added)) == 1)
            ++added;
        if (added == 20'000)
            return 2;
        // Nothing is stored by itself what was meant to be stored with the rest.
        const bool isOver = Add(1) == 0 && TakeQuietError() == SectionError::NoTransaction;
        const bool isRefused = Facade::CommitTransaction() == 0;
        const bool worksOn = Add(1) == 1 && Facade::GetSectionCount(UserTables, 2006) == 2;
        return (isOver ? 0 : 4) + (isRefused ? 0 : 8) + (worksOn ? 0 : 16);
    });
    EXPECT_EQ(result, 0);
}

TEST_F(TransactionTest, TheSameNameIsStoredOnceByTwoProcesses) {
    constexpr int Names = 40;
    std::array<int, 2> accepted{};
    std::array<pid_t, 2> children{};
    for (std::size_t i = 0; i < children.size(); ++i)
        children[i] = StartChild([&] {
            int count = 0;
            for (int name = 1; name <= Names; ++name)
                count += Add(name + static_cast<int>(i) * 1000, "N" + std::to_string(name));
            return count;
        });
    for (std::size_t i = 0; i < children.size(); ++i)
        accepted[i] = WaitForChild(children[i]);
    EXPECT_EQ(CountInFile(), 1 + accepted[0] + accepted[1]);
    EXPECT_LE(accepted[0] + accepted[1], Names);
    EXPECT_GT(accepted[0] + accepted[1], Names / 2);
}

TEST_F(TransactionTest, AMessageKeepsNobodyWaiting) {
    static std::string path;
    static int written = 0;
    path = m_path;
    SetMessageBoxHandler([](const char*, const char*, unsigned) {
        DatabaseHandle other;
        RecordsetHandle rows;
        if (openDatabase(other.Address(), path.c_str(), 1, 0, 0, "", nullptr) == 1 &&
            openRecordset(other.Address(), rows.Address(), "Pipe", 1, 0) == 1)
            written = deleteRecord(rows.Address(), "Name = 'P1'");
        return 1;
    });
    EXPECT_EQ(Add(1), 1);
    EXPECT_EQ(Add(2, "P1"), 0);
    EXPECT_EQ(written, 1);
    EXPECT_EQ(Add(2, "P1"), 1);
}

} // namespace
