// Names as people type them.
#include "records/NameKey.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using dbsection::NameDistance;
using dbsection::NameKey;

TEST(NameKeyTest, BringsSpellingsToOneForm) {
    const std::vector<std::pair<const char*, std::vector<const char*>>> forms{
        {"W 12x26",
         {"W12X26", "w 12x26", "W12 x 26", "W12*26", "W-12-26.0", "W12\u00D726", " W12X26 "}},
        {"HEA 200", {"HE 200 A", "hea200", "HE-A 200", "HEA 200,0"}},
        {"IPE 300", {"IPE300 ", "IPE-300", "ipe\u00A0300"}},
        {"L 2.5x2x0.188", {"L2-1/2X2X3/16", "L 2 1/2 x 2 x 3/16", "l 2.5*2*.188", "L2,5x2x.1875"}},
        {"UB 305x165x40", {"UB305X165X40", "305 x 165 x 40 UB", "305UB165x40.0"}},
        {"CHS 88.9x3.2", {"CHS88.9X3.2", "88,9x3,2 CHS"}},
        {"HSS 6x4x0.25", {"HSS6X4X1/4", "HSS6X4X.250"}},
        {"PIPEXS 0.75", {"Pipe3/4XS", "pipe 3/4 XS"}},
        {"S 800x137x43", {"800S137-43"}},
        {"ISMC* 300x46.2", {"ISMC 300* x 46.2", "ismc300*X46.2"}},
        {"DOUGLASFIRLARCHNO 2x2x4", {"Douglas Fir-Larch No.2 2x4", "DOUGLASFIR-LARCH-NO2-2X4"}},
        {"ДВУТАВР 20", {"Двутавр 20", "ДВУТАВР 20", "двутавр-20"}},
        {"Б 45x1", {"45Б1", "45б1"}},
        {"Φ 139.8x6", {"φ139.8x6", "\u2300 139,8\u04456", "Ø139.8 x 6.0"}},
        {"ÄŽ 5", {"äž 5"}},
    };
    for (const auto& [form, spellings] : forms)
        for (const char* spelling : spellings)
            EXPECT_EQ(NameKey(spelling).Text(), form) << spelling;
}

TEST(NameKeyTest, TellsSectionsApart) {
    const std::vector<std::pair<const char*, const char*>> others{
        {"W12X26", "W12X2.6"},
        {"HE 200 A", "HE 200 B"},
        {"IPE 300", "IPE A 300"},
        {"ISMC 125", "ISMC 125*"},
        {"L2-1/2X2X3/16", "L2X1/2X3/16"},

        {"Pipe4XS", "Pipe4XXS"},
        {"45Б1", "45К1"},
        {"W12X26", "WT12X26"},
    };
    for (const auto& [left, right] : others)
        EXPECT_FALSE(NameKey(left) == NameKey(right)) << left << " and " << right;
}

TEST(NameKeyTest, ComesToAnEndWithAnyText) {
    for (const char* odd : {"", " ", "---", "\xD0", "\xFF\xFE", "1/0", "/", "99999999999999999999",
                            ".", "1/", "x", "xxx", "\xF0\x9F"})
        EXPECT_LE(NameKey(odd).Text().size(), 20U) << odd;
    EXPECT_TRUE(NameKey(" - ").IsEmpty());
}

TEST(NameKeyTest, CountsTheChangesBetweenNames) {
    EXPECT_EQ(NameDistance("IPE 300", "IPE 300", 3), 0);
    EXPECT_EQ(NameDistance("IPE 310", "IPE 300", 3), 1);
    EXPECT_EQ(NameDistance("IEP 300", "IPE 300", 3), 1);
    EXPECT_EQ(NameDistance("PE 300", "IPE 3000", 3), 2);
    EXPECT_GT(NameDistance("IPE 300", "HEA 200", 3), 3);
    EXPECT_GT(NameDistance("IPE", "W 12x26", 3), 3);
    EXPECT_LT(NumbersApart(NameKey("UB 305x165x41"), NameKey("UB 305x165x40")),
              NumbersApart(NameKey("UB 305x165x41"), NameKey("UB 305x165x46")));
}
