#include "files/TableChecksum.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionRecordset.h"
#include "files/Sha256.h"

#include <bit>
#include <cstdint>
#include <fmt/format.h>

namespace dbsection {
namespace {

/// A value so that no two, nor two sequences of them, look the same.
std::string Canonical(const COleVariant& value) {
    if (value.vt == VT_NULL)
        return "n";
    if (const auto number = NumberIn(value); number && value.vt != VT_BSTR)
        return fmt::format("d{:016x}", std::bit_cast<std::uint64_t>(*number));
    const CString text = CCrack::strVARIANT(value);
    return fmt::format("t{}:{}", text.View().size(), text.View());
}

} // namespace

std::string ChecksumOf(CSectionDatabase& database, const std::string& table) {
    CSectionRecordset rows(&database);
    rows.Open(CSectionRecordset::Snapshot, fmt::format("Select * From [{}]", table).c_str());
    Sha256 hash;
    hash.Add(table + "\n");
    for (int column = 0; column < rows.GetFieldCount(); ++column) {
        CSectionFieldInfo field;
        rows.GetFieldInfo(column, field);
        hash.Add(fmt::format("{}\n", field.m_strName.View()));
    }
    for (; !rows.IsEOF(); rows.MoveNext()) {
        for (int column = 0; column < rows.GetFieldCount(); ++column)
            hash.Add(Canonical(rows.GetFieldValue(column)));
        hash.Add("\n");
    }
    return hash.Hex();
}

std::string ChecksumsOf(CSectionDatabase& database) {
    std::string lines;
    for (int index = 0; index < database.GetTableDefCount(); ++index) {
        CSectionTableDefInfo info;
        database.GetTableDefInfo(index, info);
        const std::string table(info.m_strName.View());
        if ((info.m_lAttributes & SystemTableBits) == 0 && table != "DBInfo")
            lines += fmt::format("{}  {}\n", ChecksumOf(database, table), table);
    }
    return lines;
}

} // namespace dbsection
