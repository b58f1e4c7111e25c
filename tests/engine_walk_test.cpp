// The engine on the published catalogues: every row in every unit, and many calls in a row.
#include "BuiltCatalogues.h"
#include "EngineSupport.h"
#include "units/UNIT.h"

#include <fstream>
#include <memory>
#include <unistd.h>

using namespace testsupport;

namespace {

constexpr int American = 1;
constexpr int British = 3;
constexpr int European = 7;
constexpr std::int32_t SortedSlot = 1;

/// The rows of a table as they are stored: names and columns.
struct StoredTable {
    std::vector<std::string> names;
    std::vector<std::vector<double>> rows;
    std::vector<CString> units;
};

StoredTable ReadTable(int catalogue, int type) {
    StoredTable table;
    const CString name = Facade::GetTableFromSectionType(catalogue, type);
    const std::unique_ptr<CStringArray> units(UNIT::GetFieldUnitList(gblSectionDatabase, name));
    table.units.assign(units->begin(), units->end());
    CSectionRecordset rows(gblSectionDatabase);
    rows.Open(CSectionRecordset::Snapshot, "Select * From [" + name + "]");
    for (; !rows.IsEOF(); rows.MoveNext()) {
        table.names.emplace_back(rows.GetFieldValue(VessaNameColumn).strVal);
        std::vector<double> row;
        for (int column = 0; column < rows.GetFieldCount(); ++column)
            row.push_back(dbsection::NumberIn(rows.GetFieldValue(column)).value_or(0));
        table.rows.push_back(row);
    }
    return table;
}

class EngineOnCatalogues : public OnBuiltCatalogues<EngineCallTest> {
protected:
    static void SetUpTestSuite() { Build({"AISCSections", "BritishSections", "EuropeanSections"}); }

    EngineOnCatalogues() { Facade::SetProfileDBFolder(folder->Path().c_str()); }

    static std::int32_t List(std::int32_t catalogue, std::int32_t type, std::int32_t unit) {
        const std::int32_t keys[] = {-1, 0};
        const auto list = Ask(GETSORTEDSECTIONS, catalogue, type, keys, 1, unit);
        EXPECT_EQ(list.err, 0);
        return list.count;
    }

    static void ExpectRow(const EngineAnswer& answer, const StoredTable& table, std::size_t row,
                          unsigned unit) {
        ASSERT_EQ(answer.status, 1);
        ASSERT_EQ(answer.name, table.names[row]);
        const std::vector<double>& stored = table.rows[row];
        for (std::size_t column = BookkeepingColumns; column < stored.size(); ++column) {
            const auto factor =
                static_cast<float>(UNIT::ConvertUnitTo(1.0, table.units[column], 2001, unit));
            EXPECT_EQ(answer.values[column - BookkeepingColumns],
                      static_cast<float>(stored[column] * static_cast<double>(factor)))
                << answer.name << ", column " << column;
        }
    }
};

TEST_F(EngineOnCatalogues, WalksEveryRowBothWaysInEveryUnit) {
    std::size_t walked = 0;
    for (const int catalogue : {American, British, European}) {
        Open(catalogue);
        for (int type = 1; type <= 24; ++type) {
            if (Facade::GetTableFromSectionType(catalogue, type).IsEmpty())
                continue;
            const StoredTable table = ReadTable(catalogue, type);
            for (std::int32_t unit = 1001; unit <= 1008; ++unit) {
                SCOPED_TRACE(testing::Message() << catalogue << "/" << type << " in " << unit);
                ASSERT_EQ(List(catalogue, type, unit), std::ssize(table.rows));
                for (std::size_t row = 0; row < table.rows.size(); ++row)
                    ExpectRow(Move(row == 0 ? GETFIRSTSECTION : GETNEXTSECTION, SortedSlot), table,
                              row, static_cast<unsigned>(unit));
                EXPECT_EQ(Move(GETNEXTSECTION, SortedSlot).status, 0);
                for (std::size_t row = table.rows.size(); row-- > 0;)
                    ExpectRow(Move(row + 1 == table.rows.size() ? GETLASTSECTION : GETPREVSECTION,
                                   SortedSlot),
                              table, row, static_cast<unsigned>(unit));
                walked += table.rows.size();
            }
        }
    }
    EXPECT_GT(walked, 8U * 3400U);
}

/// Resident memory in bytes.
long Resident() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

TEST_F(EngineOnCatalogues, KeepsItsMemoryOverManyCalls) {
    constexpr int Calls = 100000;
    Open(American);
    const auto call = [&](int i) {
        const std::int32_t unit = 1001 + i % 8;
        switch (i % 10) {
        case 0:
            EXPECT_EQ(List(American, i % 3 + 1, unit) > 0, true);
            break;
        case 1:
            EXPECT_EQ(Get(American, 1, "W12X26+W14X22", unit).count, 1);
            break;
        case 2:
            EXPECT_EQ(Get(American, 6, "no such channel", unit).count, 0);
            break;
        case 3:
            Move(GETLASTSECTION, SortedSlot);
            break;
        case 4:
            if (i % 1000 == 4)
                Open(i % 2000 == 4 ? British : American);
            break;
        default:
            Move(GETNEXTSECTION, i % 12 - 1);
            break;
        }
    };
    for (int i = 0; i < Calls / 10; ++i)
        call(i);
    const long before = Resident();
    for (int i = 0; i < Calls; ++i)
        call(i);
#ifdef __SANITIZE_ADDRESS__
    constexpr long Most = 512L << 20; // the sanitizer keeps what is freed for a while
#else
    constexpr long Most = 4L << 20;
#endif
    EXPECT_LT(Resident() - before, Most);
}

} // namespace
