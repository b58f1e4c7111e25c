// Statements of callers: a statement that the library opens has the rows that the engine finds, and
// none writes.
#include "Shapes.h"

namespace {

/// What the library understands beyond the engine: the name of a table, a record identifier by its
/// other name, and a restriction that is left empty.
bool IsBeyondTheEngine(const std::string& sql) {
    const std::string text = fuzz::Upper(fuzz::Trimmed(sql));
    return !text.starts_with("SELECT") || text.find("ID") != std::string::npos ||
           text.find("WHERE") != std::string::npos;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Shapes& shapes = fuzz::Shapes::Get();
    const std::string sql = fuzz::AsArgument(data, size);
    const long version = shapes.reference.Version();
    RecordsetHandle rows;
    const int opened = openRecordset(shapes.database.Address(), rows.Address(), sql.c_str(), 2, 0);
    if (opened == 1 && !rows->IsEOF())
        rows->MoveLast();
    const auto expected = shapes.reference.CountRows(sql);
    if (opened == 1 && expected)
        fuzz::Require(rows->GetRecordCount() == *expected,
                      "the rows are those that the engine finds: " + sql);
    if (opened == 1 && !expected)
        fuzz::Require(IsBeyondTheEngine(sql), "what is opened is a statement: " + sql);
    fuzz::Require(shapes.reference.Version() == version, "a statement writes nothing: " + sql);
    return 0;
}
