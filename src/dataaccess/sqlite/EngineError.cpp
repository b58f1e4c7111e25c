#include "dataaccess/sqlite/EngineError.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace dbsection {
namespace {

struct Meaning {
    int code;
    SectionError::Number whileReading;
    SectionError::Number whileWriting;
    const char* text;
};

using namespace SectionError;

// Extended codes stand before the primary codes that they refine.
constexpr std::array Meanings{
    Meaning{SQLITE_CONSTRAINT_NOTNULL, ValueRequired, ValueRequired,
            "a column that must have a value has none; set every required column"},
    Meaning{SQLITE_CONSTRAINT_PRIMARYKEY, DuplicateKey, DuplicateKey,
            "another row has the same key; choose a key that is not taken"},
    Meaning{SQLITE_CONSTRAINT_UNIQUE, DuplicateKey, DuplicateKey,
            "another row has the same value in a column without duplicates; choose another value"},
    Meaning{SQLITE_CONSTRAINT_ROWID, DuplicateKey, DuplicateKey,
            "another row has the same key; choose a key that is not taken"},
    Meaning{SQLITE_CONSTRAINT, ValueRequired, ValueRequired,
            "a value breaks a rule of the table; correct it"},
    Meaning{SQLITE_MISMATCH, WrongValueType, WrongValueType,
            "a value is not of the column's type; correct it"},
    Meaning{SQLITE_TOOBIG, Damaged, WrongValueType,
            "a value is longer than a file may hold; shorten it, or replace the damaged file"},
    Meaning{SQLITE_BUSY, InUse, LockedWhileWriting,
            "another program is using the file; close it there, or try again"},
    Meaning{SQLITE_LOCKED, InUse, LockedWhileWriting,
            "the table is in use by this program; close its recordsets first"},
    Meaning{SQLITE_READONLY, ReadOnly, ReadOnly,
            "it cannot be written; open it for writing, and give the file and its folder write "
            "permission"},
    Meaning{SQLITE_FULL, DiskFull, DiskFull,
            "the disk is full, and nothing was changed; free some space and try again"},
    Meaning{SQLITE_CORRUPT, Damaged, Damaged, "the file is damaged; replace it by a good copy"},
    Meaning{SQLITE_FORMAT, Damaged, Damaged, "the file is damaged; replace it by a good copy"},
    Meaning{SQLITE_NOTADB, Damaged, Damaged, "the file is damaged; replace it by a good copy"},
    Meaning{SQLITE_CANTOPEN, Io, ReadOnly,
            "the file or its journal cannot be opened; check the permissions of the file and its "
            "folder"},
    Meaning{SQLITE_ERROR, BadStatement, BadStatement,
            "the statement cannot be carried out; correct it"},
    Meaning{SQLITE_INTERRUPT, QueryTooComplex, QueryTooComplex,
            "the statement works too long for one row of its result; restrict it, or ask for fewer "
            "tables at once"},
    Meaning{SQLITE_PERM, Io, Io, "access was denied; check the permissions of the file"},
};

constexpr Meaning Unexplained{SQLITE_IOERR, Io, Io,
                              "reading or writing the file failed; check the disk"};

const Meaning& MeaningOf(int code) {
    const auto matches = [code](const Meaning& meaning) {
        return meaning.code == code || meaning.code == (code & 0xFF);
    };
    const auto place = std::ranges::find_if(Meanings, matches);
    return place == Meanings.end() ? Unexplained : *place;
}

std::string Shortened(const std::string& sql) {
    constexpr std::size_t Longest = 200;
    return sql.size() <= Longest ? sql : sql.substr(0, Longest) + "...";
}

std::string After(std::string_view message, std::string_view prefix) {
    return message.starts_with(prefix) ? std::string(message.substr(prefix.size())) : std::string();
}

} // namespace

void Fail(SectionError::Number number, const std::string& description) {
    throw new CSectionException(number, CString(description));
}

void FailFromEngine(int code, sqlite3* database, const std::string& subject, Activity activity) {
    if ((code & 0xFF) == SQLITE_NOMEM)
        throw CMemoryException::Instance();
    const int extended = database != nullptr && (sqlite3_errcode(database) & 0xFF) == (code & 0xFF)
                             ? sqlite3_extended_errcode(database)
                             : code;
    if (extended == SQLITE_CONSTRAINT_CHECK && database != nullptr)
        Fail(RuleBroken, subject + ": a value breaks the rule \"" +
                             After(sqlite3_errmsg(database), "CHECK constraint failed: ") +
                             "\"; correct it.");
    const Meaning& meaning = MeaningOf(extended);
    Fail(activity == Activity::Writing ? meaning.whileWriting : meaning.whileReading,
         subject + ": " + meaning.text + ".");
}

std::string UnknownColumn(const std::string& engineMessage) {
    const std::string name = After(engineMessage, "no such column: ");
    return name.substr(name.rfind('.') + 1);
}

void FailFromStatement(int code, const std::string& engineMessage, const std::string& sql,
                       const std::string& subject, SectionError::Number unknownName) {
    if ((code & 0xFF) != SQLITE_ERROR && (code & 0xFF) != SQLITE_AUTH)
        FailFromEngine(code, nullptr, subject, Activity::Reading);
    const std::string where = subject + ": \"" + Shortened(sql) + "\": ";
    if (const std::string table = After(engineMessage, "no such table: "); !table.empty())
        Fail(NoSuchTable, where + "there is no table \"" + table + "\" in the file.");
    if (const std::string column = UnknownColumn(engineMessage); !column.empty())
        Fail(unknownName, where + "there is no column \"" + column + "\"; check its name.");
    Fail(BadStatement,
         where + engineMessage + ". Only one statement that reads tables can be run; correct it.");
}

} // namespace dbsection
