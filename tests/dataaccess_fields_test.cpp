// Tables, their fields, and field values as variants and as text.
#include "DataAccessSupport.h"

#include "dataaccess/CCrack.h"

using namespace testsupport;

namespace {

class FieldsTest : public DataAccessTest {
protected:
    FieldsTest() {
        CreateCatalogue(m_path);
        EXPECT_EQ(Open(m_db, m_path), 1);
    }

    std::string m_path = m_folder.File("shapes.db3");
    DatabaseHandle m_db;
};

TEST_F(FieldsTest, EveryFieldTypeKeepsItsValues) {
    using namespace SectionField;
    TableDefHandle table;
    ASSERT_EQ(createNewTableDef(m_db.Get(), table.Address(), "Types"), 1);
    const struct {
        Type type;
        COleVariant value;
        VARTYPE stored;
        const char* text;
    } cases[] = {
        {Boolean, COleVariant::Bool(true), VT_BOOL, "TRUE"},
        {Byte, COleVariant(std::uint8_t{255}), VT_UI1, "0xFF"},
        {Byte, COleVariant(" 10 "), VT_UI1, "0x0A"},
        {Integer, COleVariant(std::int16_t{-32768}), VT_I2, "-32768"},
        {Long, COleVariant(2147483647), VT_I4, "2147483647"},
        {Long, COleVariant(7.0), VT_I4, "7"},
        {Currency, COleVariant::Currency(-123456789), VT_CY, "-12345.6789"},
        {Currency, COleVariant("12"), VT_CY, "12"},
        {Single, COleVariant(1.5F), VT_R4, "1.500000e+00"},
        {Single, COleVariant("3"), VT_R4, "3.000000e+00"},
        {Double, COleVariant("1e-300"), VT_R8, "1.000000e-300"},
        {Double, COleVariant(4), VT_R8, "4.000000e+00"},
        {Date, COleVariant::Date(36526.5), VT_DATE, "01 01 00"},
        {Text, COleVariant("\xC3\xA9'\"%;"), VT_BSTR, "\xC3\xA9'\"%;"},
        {Text, COleVariant("007"), VT_BSTR, "007"},
        {LongBinary, COleVariant::Bytes(CString("\0\xFF\0", 3)), VT_ARRAY | VT_UI1,
         "Array of VT_UI1"},
        {Memo, COleVariant(""), VT_BSTR, ""},
        {Guid, COleVariant("{6B29FC40-CA47}"), VT_BSTR, "{6B29FC40-CA47}"},
        {Double, COleVariant::Null(), VT_NULL, "NULL"},
    };
    int count = 0;
    for (const auto& c : cases)
        ASSERT_EQ(AddField(table.Get(), ("c" + std::to_string(count++)).c_str(), c.type), 1);
    ASSERT_EQ(appendTableDef(m_db.Get(), table.Get()), 1);
    {
        Rows rows(m_db, "Types", 1);
        rows->AddNew();
        for (int i = 0; i < count; ++i)
            rows->SetFieldValue(i, cases[i].value);
        rows->Update();
    }
    Rows rows(m_db, "Select * From [Types]", 4);
    for (int i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        CSectionFieldInfo field;
        EXPECT_EQ(getFieldInfo(table.Get(), &field, i, 1), 1);
        EXPECT_EQ(field.m_nType, cases[i].type);
        rows->GetFieldInfo(i, field);
        EXPECT_EQ(field.m_nType, cases[i].type);
        const COleVariant value = rows->GetFieldValue(i);
        EXPECT_EQ(value.vt, cases[i].stored);
        EXPECT_EQ(CCrack::strVARIANT(value), cases[i].text);
    }
    EXPECT_EQ(rows->GetFieldValue(15).strVal, CString("\0\xFF\0", 3));
}

TEST_F(FieldsTest, TablesAreListedAsTheyWereMade) {
    for (const char* name : {"zebra", "~scratch", "MSysObjects", "alpha"})
        CreateShapeTable(m_db.Get(), name);
    EXPECT_EQ(getTableCount(m_db.Address()), 3);
    const std::pair<const char*, std::int32_t> expected[] = {{"Shape", 0},
                                                             {"zebra", 0},
                                                             {"~scratch", 1},
                                                             {"MSysObjects", SystemTableBits},
                                                             {"alpha", 0}};
    CSectionTableDefInfo info;
    int index = 0;
    for (const auto& [name, attributes] : expected) {
        ASSERT_EQ(getTableInfo(m_db.Get(), &info, index++, 1), 1);
        EXPECT_EQ(info.m_strName, name);
        EXPECT_EQ(info.m_lAttributes, attributes);
        EXPECT_EQ(info.m_lRecordCount, index == 1 ? 5 : 0);
    }
    EXPECT_EQ(getTableInfo(m_db.Get(), &info, index, 0), 0);
    EXPECT_EQ(TakeQuietError(), 0);
    EXPECT_EQ(getTableInfo(m_db.Get(), &info, index, 1), 0);
    EXPECT_EQ(TakeQuietError(), 3265);
    EXPECT_EQ(IsExistentTable(m_db.Get(), "ZEBRA"), 1);
    EXPECT_EQ(deleteTable(m_db.Get(), "Zebra"), 1);
    EXPECT_EQ(deleteTable(m_db.Get(), "zebra"), 0);
    EXPECT_EQ(getTableCount(m_db.Address()), 2);
    EXPECT_EQ(getTableFromRecord(m_path.c_str(), "AX = 4", ""), "Shape");
    EXPECT_EQ(getTableFromRecord(m_path.c_str(), "AX = 44", ""), "");
    EXPECT_TRUE(shownBoxes.empty());
}

TEST_F(FieldsTest, ColumnsComeAndGoWithRowsAndIndexesKept) {
    TableDefHandle table;
    ASSERT_EQ(openTableDef(m_db.Get(), table.Address(), "shape"), 1);
    EXPECT_EQ(AddField(table.Get(), "Extra", SectionField::Long), 1);
    EXPECT_EQ(IsExistentField(table.Get(), "extra"), 1);
    EXPECT_EQ(getFieldCount(table.Get()), 5);
    EXPECT_EQ(deleteField(table.Get(), "VessaName"), 1);
    EXPECT_EQ(deleteField(table.Get(), "VessaName"), 0);
    EXPECT_EQ(TakeQuietError(), 3265);
    CSectionFieldInfo field;
    EXPECT_EQ(getFieldInfo(table.Get(), &field, 1, 1), 1);
    EXPECT_EQ(field.m_strName, "Name");
    EXPECT_EQ(field.m_bRequired, 1);
    Rows rows(m_db, "Shape", 1);
    EXPECT_EQ(rows->GetFieldCount(), 4);
    rows->MoveLast();
    EXPECT_EQ(TextAt(rows, 1), "E");
    EXPECT_EQ(rows->GetFieldValue(0).lVal, 5);
    Rows indexes(m_db, "Select count(*) From sqlite_master WHERE type = 'index'");
    EXPECT_EQ(indexes->GetFieldValue(0).lVal, 1);
}

TEST_F(FieldsTest, FieldsKeepTheirSizeAndRules) {
    using namespace SectionField;
    const auto field = [](const char* name, Type type, int size, int allowEmpty, const char* rule,
                          const char* text, const char* value = "") {
        CSectionFieldInfo info;
        info.m_strName = name;
        info.m_nType = type;
        info.m_lSize = size;
        info.m_bAllowZeroLength = allowEmpty;
        info.m_strValidationRule = rule;
        info.m_strValidationText = text;
        info.m_strDefaultValue = value;
        return info;
    };
    const CSectionFieldInfo fields[] = {
        field("Grade", Text, 40, 0, "[Grade] LIKE 'S%' -- steel", "It's no \"steel\"; take S235"),
        field("Area", Double, 8, 1, "Area > 0 AND (Area < 1e6 OR Area = 1e9)", "", "1.5"),
        field("Note", Memo, 0, 0, "", ""),
        field("Maker's", Text, 255, 1, "length(`Maker's`) IN (2, 3)", "2 or 3 letters"),
    };
    TableDefHandle built;
    ASSERT_EQ(createNewTableDef(m_db.Get(), built.Address(), "Built"), 1);
    ASSERT_EQ(AddField(built.Get(), "RECNO", Long, 1, AutoIncrement), 1);
    TableDefHandle altered;
    ASSERT_EQ(openTableDef(m_db.Get(), altered.Address(), "Shape"), 1);
    for (CSectionFieldInfo info : fields) {
        EXPECT_EQ(createNewField(built.Get(), &info), 1) << info.m_strName;
        EXPECT_EQ(createNewField(altered.Get(), &info), 1) << info.m_strName;
    }
    ASSERT_EQ(appendTableDef(m_db.Get(), built.Get()), 1);
    for (const char* name : {"Built", "Shape"}) {
        TableDefHandle table;
        ASSERT_EQ(openTableDef(m_db.Get(), table.Address(), name), 1);
        if (name == std::string("Shape")) {
            EXPECT_EQ(deleteField(table.Get(), "AX"), 1) << "the others keep theirs";
        }
        for (const CSectionFieldInfo& expected : fields) {
            CSectionFieldInfo info;
            table->GetFieldInfo(expected.m_strName, info);
            EXPECT_EQ(info.m_nType, expected.m_nType);
            EXPECT_EQ(info.m_lSize, expected.m_lSize);
            EXPECT_EQ(info.m_bAllowZeroLength, expected.m_bAllowZeroLength);
            EXPECT_EQ(info.m_strValidationRule, expected.m_strValidationRule);
            EXPECT_EQ(info.m_strValidationText, expected.m_strValidationText);
            EXPECT_EQ(info.m_strDefaultValue, expected.m_strDefaultValue);
        }
    }
    const struct {
        int column;
        const char* value;
        const char* message; ///< null: taken
    } values[] = {
        {1, "S355", nullptr},
        {1, "Al 6061", R"(a value breaks the rule "It's no "steel"; take S235")"},
        {1, "", "a value breaks the rule"},
        {2, "1e9", nullptr},
        {2, "-1", "a value breaks the rule"},
        {3, "", "\"Note must not be empty\""},
        {4, "ABCD", "2 or 3 letters"},
    };
    Rows rows(m_db, "Built", 1);
    for (const auto& [column, value, message] : values) {
        rows->AddNew();
        rows->SetFieldValue(column, value);
        CString told;
        try {
            rows->Update();
        } catch (CSectionException* e) {
            EXPECT_EQ(e->GetErrorNumber(), 3317);
            told = e->GetMessage();
            e->Delete();
        }
        EXPECT_EQ(told.IsEmpty(), message == nullptr) << value;
        EXPECT_GE(told.Find(message == nullptr ? "" : message), 0) << told;
    }
    rows->Requery();
    EXPECT_EQ(getRecordCount(rows.Address()), 2);
}

TEST_F(FieldsTest, RulesThatAreNotOneConditionAreRefused) {
    TableDefHandle table;
    ASSERT_EQ(openTableDef(m_db.Get(), table.Address(), "Shape"), 1);
    const struct {
        const char* rule;
        const char* value;
        int number;
    } cases[] = {
        {"F > ", "", 3075},         {"F > 0); DROP TABLE Shape; --", "", 3075},
        {"F > 0) OR (1", "", 3075}, {"F > 0 /*", "", 3075},
        {"F > ?", "", 3075},        {"AX > 0", "", 3070},
        {"\"x\" = F", "", 3070},    {"load_extension('x')", "", 3075},
        {"F > 0", "-1", 3317},
    };
    for (const auto& [rule, value, number] : cases) {
        CSectionFieldInfo field;
        field.m_strName = "F";
        field.m_nType = SectionField::Double;
        field.m_strValidationRule = rule;
        field.m_strDefaultValue = value;
        EXPECT_EQ(createNewField(table.Get(), &field), 0) << rule;
        EXPECT_EQ(TakeQuietError(), number) << rule;
    }
    EXPECT_EQ(getFieldCount(table.Get()), 4);
    EXPECT_EQ(getTableCount(m_db.Address()), 1);
}

TEST_F(FieldsTest, DeletingAColumnLosesNothingElse) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program, which makes the tables, is missing";
    const std::string rest =
        "Code TEXT DEFAULT 'c' PRIMARY KEY, Mark TEXT COLLATE NOCASE DEFAULT (lower('X')), "
        "D REAL CHECK (D > 0 /* mm */), \"AX of\" VARCHAR(7) REFERENCES Shape";
    const struct {
        std::string definition; ///< of a table with the column AX
        std::string left;       ///< of it without that column; empty: refused
    } cases[] = {
        {"(AX REAL, " + rest + ")", "( " + rest + ")"},
        {"(" + rest + ", 'ax' -- area, in mm2\n INT UNIQUE)", "(" + rest + ")"},
        {"(" + rest + ", AX, UNIQUE (D, Mark)) WITHOUT ROWID",
         "(" + rest + ", UNIQUE (D, Mark)) WITHOUT ROWID"},
        {"(" + rest + ", AX, CONSTRAINT Both CHECK (AX > D))", ""},
        {"(" + rest + ", AX, Z REAL CHECK (Z > [ax]))", ""},
        {"(ID INTEGER PRIMARY KEY AUTOINCREMENT, AX, Mark, D)", ""},
        {"(AX REAL, " + rest + "); CREATE TRIGGER Watch AFTER DELETE ON T BEGIN SELECT 1; END", ""},
    };
    const auto ask = [&](const std::string& sql) { return RunStockProgram(m_folder, m_path, sql); };
    for (const auto& [definition, left] : cases) {
        SCOPED_TRACE(definition);
        ask("DROP TABLE IF EXISTS T; CREATE TABLE T" + definition +
            ";\nINSERT INTO T(Mark, AX, D) VALUES('m', 5, 2);"
            "CREATE INDEX [T by AX] ON T(Mark); CREATE INDEX Second ON T(D) WHERE AX > 1;"
            "CREATE INDEX Third ON T(D, upper(Mark)); CREATE INDEX Fourth ON T(\"ax\");");
        const char* all = "SELECT sql FROM sqlite_master WHERE tbl_name = 'T'; SELECT * FROM T;";
        const std::string before = ask(all);
        TableDefHandle table;
        ASSERT_EQ(openTableDef(m_db.Get(), table.Address(), "T"), 1);
        EXPECT_EQ(deleteField(table.Get(), "AX"), left.empty() ? 0 : 1);
        EXPECT_EQ(TakeQuietError(), left.empty() ? 3265 : 0);
        if (left.empty()) {
            EXPECT_EQ(ask(all), before);
            continue;
        }
        EXPECT_EQ(ask("SELECT sql FROM sqlite_master WHERE name = 'T';"),
                  "CREATE TABLE \"T\" " + left + "\n");
        EXPECT_EQ(ask("SELECT name FROM sqlite_master WHERE type = 'index' AND sql <> '' ORDER BY "
                      "name;"),
                  "AX of Shape\nT by AX\nThird\n");
        EXPECT_EQ(ask("SELECT Mark, D FROM T;"), "m|2.0\n");
    }
}

TEST(CCrackTest, RendersCodesAndValues) {
    EXPECT_STREQ(CCrack::strFieldType(11), "Long Binary");
    EXPECT_STREQ(CCrack::strFieldType(9), "Unknown");
    EXPECT_STREQ(CCrack::strQueryDefType(240), "Action");
    EXPECT_STREQ(CCrack::strQueryDefType(1), "Unknown");
    EXPECT_STREQ(CCrack::strBOOL(-7), "TRUE");
    EXPECT_EQ(CCrack::boolVARIANT(COleVariant::Bool(true)), -1);
    EXPECT_EQ(CCrack::boolVARIANT(COleVariant(1)), 0);
    const CString referenced("text");
    const auto tagged = [](VARTYPE type) {
        COleVariant value;
        value.vt = type;
        return value;
    };
    const std::pair<COleVariant, const char*> cases[] = {
        {COleVariant(), "NULL"},
        {COleVariant::Null(), "NULL"},
        {COleVariant(std::int16_t{-5}), "-5"},
        {COleVariant(std::int32_t{-2147483647 - 1}), "-2147483648"},
        {COleVariant(0.1F), "1.000000e-01"},
        {COleVariant(-12345.678), "-1.234568e+04"},
        {COleVariant(0.0), "0.000000e+00"},
        {COleVariant::Currency(-5), "-0.0005"},
        {COleVariant::Currency(INT64_MIN), "-922337203685477.5808"},
        {COleVariant::Date(0), "12 30 99"},
        {COleVariant::Date(36585.99), "02 29 00"},
        {COleVariant::Date(-1.25), "12 29 99"},
        {COleVariant::Date(1e300), "VT_DATE"},
        {COleVariant(""), ""},
        {COleVariant::Reference(referenced), "text"},
        {COleVariant::Bool(false), "FALSE"},
        {COleVariant(std::uint8_t{10}), "0x0A"},
        {tagged(20), "VT_I8"},
        {tagged(72), "VT_CLSID"},
        {tagged(14), "Fish"},
        {tagged(VT_BYREF | VT_I2), "FishPointer to VT_I2"},
        {tagged(VT_ARRAY | VT_R8), "Array of VT_R8"},
        {tagged(VT_ARRAY | VT_BYREF | VT_BSTR), "Array of Pointer to VT_BSTR"},
        {tagged(VT_BYREF | 14), "FishPointer to "},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(CCrack::strVARIANT(value), text) << value.vt;
}

} // namespace
