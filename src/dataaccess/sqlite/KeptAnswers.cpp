// Answers from what is kept of a file, and what is kept of it.
#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/Transaction.h"
#include "platform/FileLook.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace dbsection {
namespace {

constexpr const char* AllRows = "SELECT * FROM ";

/// What is read in a version of a file has the same stamp, whatever connection reads it.
CSectionDataStamp StampOf(const KeptFile& file) { return {-file.Number(), 0, 0}; }

KeptAnswer AllOf(const KeptFile& file, const KeptResult& result) {
    return {result.shape, RowsInUse(result.rows, 0, result.rows->Count()), StampOf(file)};
}

std::string KeyOf(const std::string& sql, Editing editing) {
    return (editing == Editing::No ? "read " : "edit ") + sql;
}

/// Appends a table where it has rows of a name; false where that is not told.
bool AppendRows(const KeptTable& table, const NameQuestion& question,
                std::vector<NameRows>& found) {
    const auto count = table.Count(
        TableQuestion::Of(table.Name(), question.column, question.match, question.name));
    if (count.value_or(0) > 0)
        found.push_back({CString(table.Name()), *count});
    return count.has_value();
}

/// Whether the same rows come at any time: these functions know the hour.
bool IsTimeless(const std::string& sql) {
    return !Mentions(sql, "date") && !Mentions(sql, "strftime");
}

} // namespace

/// What is kept of the file as statements would read it now; null where that is not sure. Within a
/// transaction a statement reads what was written in it, or what was there when it began.
///
/// A file with a journal that a killed writer left needs no thought: unless its version changed,
/// what the journal would bring back is what was there.
KeptFile* Connection::Kept() {
    if (!m_file || IsInTransaction())
        return nullptr;
    const auto now = FileVersion::Look(m_path);
    if (!now || !now->IsOfSameFile(*m_file))
        return nullptr;
    if (!m_keptFile || m_keptFile->Version() != *now || m_keptFile->IsRetired())
        m_keptFile = KeptFiles::Find(m_path, *now);
    return m_keptFile.get();
}

/// The same at a row of a statement: while it is under way nobody writes, and what it reads is of
/// that version.
KeptFile* Connection::KeptWhileReading() { return HasWriteAheadLog() ? nullptr : Kept(); }

bool Connection::IsCurrent(const CSectionDataStamp& stamp) {
    if (stamp.connection > 0)
        return stamp == Stamp();
    const KeptFile* file = Kept();
    return file != nullptr && stamp == StampOf(*file);
}

std::optional<KeptAnswer> Connection::Answer(const AskedRows& asked, Editing editing,
                                             Amount amount) {
    KeptFile* file = Kept();
    if (file == nullptr)
        return std::nullopt;
    if (const auto& question = asked.Question())
        return AnswerFromTable(*file, *question, editing, amount);
    const std::string& sql = asked.Statement();
    const std::string key = KeyOf(sql, editing);
    if (const auto kept = file->FindResult(key))
        return AllOf(*file, *kept);
    if (!file->HasBeenAsked(key) || file->IsRefused(key) || !IsTimeless(sql))
        return std::nullopt;
    const auto read = ReadToKeep(*file, sql, editing, Amount::Any);
    if (!read || read->shape->isWholeTable) {
        file->Refuse(key);
        return std::nullopt;
    }
    file->Keep(key, *read);
    KeptFiles::Trim();
    return AllOf(*file, *read);
}

std::optional<LongAnswer> Connection::FindLong(const std::string& sql, Editing editing) {
    const KeptFile* file = Kept();
    if (file == nullptr)
        return std::nullopt;
    auto shape = file->FindLong(KeyOf(sql, editing));
    return shape ? std::optional(LongAnswer{std::move(shape), StampOf(*file)}) : std::nullopt;
}

void Connection::NoteLong(const std::string& sql, Editing editing, const ReadyQuery& query) {
    if (KeptFile* file = KeptWhileReading())
        file->KeepLong(KeyOf(sql, editing), query.lease.Shape());
}

std::int32_t Connection::CountRows(const std::string& table) {
    if (const KeptFile* file = Kept())
        if (const auto known = file->FindCount(table))
            return *known;
    const StatementLease lease = Own("SELECT count(*) FROM " + Quoted(table));
    Step(lease.Get(), table, Activity::Reading);
    const std::int32_t count = sqlite3_column_int(lease.Get(), 0);
    if (KeptFile* file = KeptWhileReading())
        file->KeepCount(table, count);
    return count;
}

/// Rows of a whole table that may be written to are left to be read when they are asked for.
std::optional<KeptAnswer> Connection::AnswerFromTable(KeptFile& file, const TableQuestion& question,
                                                      Editing editing, Amount amount) {
    const bool isWhole = question.rows == TableQuestion::Rows::All;
    if (isWhole && editing != Editing::No)
        return std::nullopt;
    auto table = file.FindTable(question.table);
    if (!table && (isWhole || file.IsWorthKeeping(1)))
        table = KeepTable(file, std::string(question.table), isWhole ? amount : Amount::Any);
    if (!table)
        return std::nullopt;
    const KeptResult& result = editing == Editing::No ? table->ReadOnly() : table->Editable();
    if (isWhole)
        return AllOf(file, result);
    const auto row = table->Find(question);
    if (!row)
        return std::nullopt;
    return KeptAnswer{result.shape, RowsInUse(result.rows, std::max(*row, 0), *row < 0 ? 0 : 1),
                      StampOf(file)};
}

/// Null where the table cannot be kept; the engine then tells why, where it is asked for it. A
/// table of a file that is larger than all that may be kept is not tried.
std::shared_ptr<const KeptTable> Connection::KeepTable(KeptFile& file, const std::string& name,
                                                       Amount amount) {
    const std::string key = (amount == Amount::Few ? "few of " : "table ") + UpperCase(name);
    if (std::cmp_greater(file.Version().Size(), KeptFiles::Limit()) || file.IsRefused(key))
        return nullptr;
    const Transaction moment(*this, Purpose::Reading); // both shapes are of the same tables
    const auto table = FindTable(name);
    const std::string sql = AllRows + Quoted(table.value_or(name));
    auto editable = table ? ReadToKeep(file, sql, Editing::IfPossible, amount) : std::nullopt;
    if (!editable) {
        file.Refuse(key);
        return nullptr;
    }
    const auto shape = Query(sql, Editing::No, SectionError::UnknownNameInStatement).lease.Shape();
    if (shape->tablesVersion != editable->shape->tablesVersion)
        return nullptr;
    if (editable->shape->isWholeTable) { // single rows are not
        auto some = *editable->shape;
        some.isWholeTable = false;
        editable->shape = std::make_shared<const QueryShape>(std::move(some));
    }
    const KeptResult readOnly{shape, editable->rows};
    auto kept = file.Keep(std::make_shared<const KeptTable>(*table, readOnly, *editable));
    KeptFiles::Trim();
    return kept;
}

/// Null where not all of them are kept.
std::shared_ptr<const KeptFile::Tables> Connection::KeepAllTables(KeptFile& file) {
    if (auto all = file.AllTables())
        return all;
    const std::vector<std::string> names = Tables();
    if (!file.IsWorthKeeping(std::ssize(names)))
        return nullptr;
    auto all = std::make_shared<KeptFile::Tables>();
    for (const std::string& name : names) {
        auto table = file.FindTable(name);
        if (!table)
            table = KeepTable(file, name, Amount::Any);
        if (!table)
            return nullptr;
        all->push_back(std::move(table));
    }
    file.SetAllTables(all);
    return all;
}

std::optional<std::vector<NameRows>> Connection::FindRows(const QuestionFor& questionFor) {
    KeptFile* file = Kept();
    const auto tables = file == nullptr ? nullptr : KeepAllTables(*file);
    if (!tables)
        return std::nullopt;
    std::vector<NameRows> found;
    const char* column = nullptr;
    std::vector<std::uint32_t> mayHold;
    for (std::uint32_t number = 0; number < tables->size(); ++number) {
        const KeptTable& table = *(*tables)[number];
        const NameQuestion question = questionFor(table.Name());
        if (question.column != column)
            mayHold = file->TablesThatMayHold(question.column, question.name);
        column = question.column;
        if (std::ranges::binary_search(mayHold, number) && !AppendRows(table, question, found))
            return std::nullopt;
    }
    return found;
}

std::optional<std::vector<NameRows>> Connection::FindKeptRows(const NameQuestion& question) {
    KeptFile* file = Kept();
    const auto tables = file == nullptr ? nullptr : file->AllTables();
    if (!tables)
        return std::nullopt;
    std::vector<NameRows> found;
    for (const std::uint32_t number : file->TablesThatMayHold(question.column, question.name))
        if (!AppendRows(*(*tables)[number], question, found))
            return std::nullopt;
    return found;
}

/// Reads all rows of a statement in the version of the file. Nothing where the file is of another
/// one by now, the engine fails, or the rows are too many.
std::optional<KeptResult> Connection::ReadToKeep(const KeptFile& file, const std::string& sql,
                                                 Editing editing, Amount amount) {
    std::optional<KeptResult> result;
    try {
        const Transaction moment(*this, Purpose::Reading);
        WithFirstRow(sql, editing, [&](const ReadyQuery& query, bool atRow) {
            // Nobody writes to the file from here on.
            if (FileVersion::Find(m_path.c_str()) != file.Version() || !CanBeKept())
                return;
            if (auto rows = ReadAll(query, atRow, amount))
                result = {query.lease.Shape(), std::move(rows)};
        });
    } catch (CSectionException* e) {
        const bool isBusy = e->GetErrorNumber() == SectionError::InUse;
        if (isBusy)
            throw;
        e->Delete();
        result.reset();
    }
    return result;
}

/// Null where the rows are too many.
std::shared_ptr<const RowStore> Connection::ReadAll(const ReadyQuery& query, bool atRow,
                                                    Amount amount) {
    const auto& shape = query.lease.Shape();
    RowStore rows(shape->Width());
    for (; atRow; atRow = NextRow(query)) {
        const std::size_t before = rows.TextSize();
        rows.Append(query.lease.Get(), shape->IsEditable());
        RequireTextsWhole(rows.TextSize() - before);
        if (rows.Size() > KeptFiles::Limit() || (amount == Amount::Few && rows.Count() > FewRows))
            return nullptr;
    }
    return std::make_shared<const RowStore>(rows.Extract(0, rows.Count()));
}

/// Whether the versions of the file tell its content, and texts compare as they are compared here.
bool Connection::CanBeKept() {
    if (HasWriteAheadLog() || !HasAsciiCapitals())
        return false;
    const StatementLease lease = Own("PRAGMA encoding");
    return Step(lease.Get(), m_path, Activity::Reading) && TextAt(lease.Get(), 0) == "UTF-8";
}

} // namespace dbsection
