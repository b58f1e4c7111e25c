// Searching tables for a name which came from outside.
#pragma once

#include "dataaccess/DataAccess.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// How the texts of a column are compared with a name: both as they are, the text in capitals, or
/// both in capitals.
enum class NameMatch { Exactly, InCapitals, InAnyCase };

struct NameQuestion {
    /// A host's name may be null, and is empty then.
    NameQuestion(const char* searchedColumn, NameMatch howAlike, const char* wantedName)
        : column(searchedColumn),
          match(howAlike),
          name(wantedName == nullptr ? "" : wantedName) {}

    const char* column;
    NameMatch match;
    const char* name;
};

/// The condition of a statement that asks it.
CString ConditionOf(const NameQuestion& question);

/// The rows of a table that answer a question.
struct RowsOfName {
    std::string_view table;
    NameQuestion question;
    std::string_view restriction{}; ///< what else is asked of them, with its " AND "; maybe empty
};

/// The statement that reads them.
std::string StatementFor(const RowsOfName& rows);

/// Whether a name can stand between quotes in a statement, where a quote in it would end the text.
/// One that cannot is reported as a statement that failed to open.
bool IsSearchable(const char* name);

/// Opens a statement that holds `name` between quotes. A name that is not searchable counts as a
/// failed open: the recordset that was there is closed.
int OpenByName(CSectionDatabase** db, CSectionRecordset** rs, const CString& name,
               const CString& sql, int openType);

/// Opens the rows of a name, which is held to be searchable in the same way.
int OpenByName(CSectionDatabase** db, CSectionRecordset** rs, const RowsOfName& rows, int openType);

/// The same of a searchable name.
int OpenRows(CSectionDatabase** db, CSectionRecordset** rs, const RowsOfName& rows, int openType);

/// The number of rows that answer a question in a table.
struct NameRows {
    CString table;
    int count;
};

/// What a table is asked, by its name.
using QuestionFor = std::function<NameQuestion(std::string_view table)>;

/// What the rows that are kept in memory tell of names (DataAccess.h).
class KeptNames {
public:
    /// The user tables that have rows of a name, in table order. Nothing where that is not told, or
    /// a host observes the statements, which are to be opened then.
    static std::optional<std::vector<NameRows>> Find(const CSectionDatabase& database,
                                                     const QuestionFor& questionFor);

    /// The same of a file that was opened for writing with that connect text, and closed.
    static std::optional<std::vector<NameRows>> Find(const CString& fileName, const char* connect,
                                                     const NameQuestion& question);
};

} // namespace dbsection
