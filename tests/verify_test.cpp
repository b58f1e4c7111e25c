// Faults that are planted in a built file, one at a time, and what is said of each.
#include "DataAccessSupport.h"
#include "ProgramSupport.h"

#include <filesystem>

using namespace testsupport;

namespace {

struct Planted {
    const char* statement;
    const char* finding; ///< a part of what is said
};

class VerifyTest : public testing::Test {
protected:
    VerifyTest() {
        if (Program("build " SECTIONDB_DATA_DIR "/EuropeanSections -o " + m_folder.Path()).status !=
            0)
            throw std::runtime_error("the catalogue could not be built");
    }

    Outcome Verify(const std::string& options = "") const {
        return Program("verify European --folder " + m_folder.Path() + options);
    }

    /// Plants each fault in a file that is sound, and expects that it is found, and told.
    void Plant(const std::vector<Planted>& faults, const std::string& file,
               const std::string& catalogue) const {
        const std::string sound = m_folder.File("sound");
        std::filesystem::copy(file, sound);
        const std::string verify = "verify " + catalogue + " --folder " + m_folder.Path();
        for (const Planted& planted : faults) {
            std::filesystem::copy(sound, file, std::filesystem::copy_options::overwrite_existing);
            ASSERT_EQ(RunStockProgram(m_folder, file, std::string(planted.statement) + ";\n"), "");
            EXPECT_TRUE(Ended(Program(verify), 1, planted.finding)) << planted.statement;
        }
    }

    const TempFolder m_folder;
    const std::string m_file = m_folder.File("EuropeanSections.db3");
};

} // namespace

TEST_F(VerifyTest, FindsWhatIsPlanted) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program is not installed";
    const Outcome sound = Verify();
    ASSERT_EQ(sound.status, 0) << sound.output;
    const std::vector<Planted> faults{
        // figures
        {"UPDATE [IPE Shape] SET TF = TW, TW = TF WHERE Name = 'IPE 300'",
         "IPE 300, IY: it is 604"},
        {"UPDATE [IPE Shape] SET D = BF, BF = D WHERE Name = 'IPE 300'", "IPE 300"},
        {"UPDATE [HE Shape] SET IZ = IZ / 10 WHERE Name = 'HE 200 A'",
         "HE 200 A, IZ: it is 369 cm^4, geometry gives 3692"},
        {"UPDATE [HE Shape] SET AX = AX * 10 WHERE Name = 'HE 200 A'", "HE 200 A, AX: it is 538"},
        {"UPDATE [HE Shape] SET ZZ = 492.5 WHERE Name = 'HE 200 A'", "HE 200 A, ZZ: it is 492.5"},
        {"UPDATE [HE Shape] SET IZ = 3629 WHERE Name = 'HE 200 A'", "HE 200 A, IZ: it is 3629"},
        {"UPDATE [HE Shape] SET IZ = IY, IY = IZ WHERE Name = 'HE 200 A'", "HE 200 A, IY"},
        {"UPDATE [HE Shape] SET ZY = 24.4 WHERE Name = 'HE 200 A'",
         "its plastic modulus about the minor axis"},
        {"UPDATE [IPE Shape] SET AX = -53.8 WHERE Name = 'IPE 300'", "AX: it is negative: -53.8"},
        {"UPDATE [IPE Shape] SET IX = 0 WHERE Name = 'IPE 300'", "IPE 300, IX: it is 0"},
        {"UPDATE [IPE Shape] SET CW = CW * 1.2 WHERE Name = 'IPE AA 80'", "IPE AA 80, CW"},
        {"UPDATE [IPE Shape] SET TW = 200 WHERE Name = 'IPE 300'", "contradict each other"},
        {"UPDATE [Angle] SET CZ = CZ * 10 WHERE RECNO = 1", ", CZ: it is "},
        // units
        {"UPDATE [Field Units] SET Unit8 = 'MM^4' WHERE TableName = 'IPE Shape'", "IPE 300, IZ"},
        {"UPDATE [Field Units] SET Unit8 = 'CM^3' WHERE TableName = 'IPE Shape'",
         "IZ: its unit is \"CM^3\": not a unit of length^4"},
        {"UPDATE [Field Units] SET Unit4 = 'FURLONG' WHERE TableName = 'IPE Shape'",
         "D: its unit is \"FURLONG\": not a known unit"},
        // names and rows
        {"UPDATE [IPE Shape] SET Name = 'ipe 300' WHERE Name = 'IPE 330'",
         "ipe 300: its name stands twice in the family"},
        {"UPDATE [IPE Shape] SET VessaName = 'HE200A' WHERE Name = 'IPE 330'",
         "its program name HE200A stands in the family"},
        {"DELETE FROM [~Sections] WHERE TableName = 'IPE Shape' AND Record = 3",
         "the file does not tell its standard and edition"},
        {"UPDATE [~Families] SET Standard = 'EN 10365:1999'", "~Families: it is not what the file"},
        {"DELETE FROM [IPE Shape] WHERE Name = 'IPE 330'",
         "IPE Shape: its rows are not those it was built with"},
        {"UPDATE DBInfo SET Checksums = NULL",
         "the file: the checksums that it was built with are missing"},
        {"PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = "
         "replace(sql, '([AX])', '([D])') WHERE name = 'IPE Shape by [AX]'",
         "the file: damaged: row 1 missing from index IPE Shape by [AX]"},
        {"UPDATE [HE Shape] SET ZZ = 430.01 WHERE Name = 'HE 200 A'",
         "HE 200 A: it is not what the catalogue was built with"},
    };
    Plant(faults, m_file, "European");
}

TEST_F(VerifyTest, HoldsAPersonsOwnSectionsAgainstGeometryAndThemselves) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program is not installed";
    const std::string mine = m_folder.File("mine.db3");
    ASSERT_EQ(Program("user create " + mine).status, 0);
    ASSERT_EQ(Program("user add " + mine + " Pipe P100 OD=100 T=10 AX=28.4 I=290 Z=81.3").status,
              0);
    ASSERT_EQ(Program("user add " + mine +
                      " General R100 AX=50 D=100 B=50 IZ=416.7 IX=286 IY=104.2 SZ=83.33 SY=41.67 "
                      "ZZ=83 ZY=124 AZ=41.7 AY=41.7")
                  .status,
              0);
    const Outcome sound = Program("verify " + mine);
    ASSERT_EQ(sound.status, 0) << sound.output;
    const std::vector<Planted> faults{
        {"UPDATE [Pipe] SET AX = 28.5",
         "AX: it is 28.5 cm^2, geometry gives 28.2743 cm^2: 0.792 % apart, at most 0.5 %"},
        {"UPDATE [General] SET IZ = 6000",
         "R100: its radius of gyration about the major axis, 109.5"},
        {"UPDATE [General] SET ZZ = 82", "R100: its plastic modulus about the major axis"},
        {"UPDATE [General] SET ZY = 126", "R100: its plastic modulus about the minor axis"},
    };
    Plant(faults, mine, mine);
}

TEST_F(VerifyTest, TellsProgramsAndTakesFiles) {
    EXPECT_TRUE(Ended(Verify(" --json"), 0, R"("table": "IPE Shape", "sections": 68)"));
    EXPECT_EQ(Program("verify " + m_file).status, 0);
    EXPECT_EQ(Program("verify Atlantean --folder " + m_folder.Path()).status, 1);

    const std::string mine = m_folder.File("mine.db3");
    ASSERT_EQ(Program("user create " + mine).status, 0);
    EXPECT_EQ(Program("verify " + mine).status, 0);
    WriteFile(mine, std::string(4096, 'x'));
    EXPECT_EQ(Program("verify " + mine).status, 1);
}
