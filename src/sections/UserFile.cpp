#include "sections/UserFile.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "dataaccess/DatabaseTransaction.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "records/SectionNames.h"
#include "sections/CatalogueData.h"
#include "sections/Failures.h"
#include "sections/TakenNames.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace sections {
namespace {

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

NamedPlace placeOf(const Section& section) {
    return {section.family().name(), section.name(), section.programName()};
}

} // namespace

/// The file as it was when the change began, and what is being written to it.
struct Change::State {
    State(const std::string& path, const std::string& password) {
        if (const unsigned attributes = GetFileAttributesA(path.c_str());
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
            throw Error(SectionError::ReadOnly,
                        path + ": the file is read-only; make it writable.");
        database.Open(path.c_str(), 0, 0, CSectionDatabase::ConnectText(password));
        transaction.emplace(database, dbsection::Purpose::Writing);
        before.emplace(read());
        for (const Family& family : before->families())
            for (const Section& section : family.sections()) {
                names.add(placeOf(section));
                std::int64_t& last = lastNumbers[family.name()];
                last = std::max(last, section.recordNumber());
            }
    }

    Catalogue read() {
        return Catalogue(
            std::make_shared<const CatalogueData>(readCatalogue(database, PersonalFile)));
    }

    [[noreturn]] void fail(SectionError::Number number, const std::string& table,
                           const std::string& fault) const {
        failInTable(number, before->path(), table, fault);
    }

    /// The rows of a family's table, to be changed.
    CSectionRecordset& rowsOf(const std::string& table) {
        std::unique_ptr<CSectionRecordset>& rows = tables[table];
        if (!rows) {
            rows = std::make_unique<CSectionRecordset>(&database);
            rows->Open(CSectionRecordset::Table, table.c_str());
        }
        return *rows;
    }

    /// Throws where a section cannot have the names.
    void requireNames(const NamedPlace& place, const NamedPlace* present = nullptr) const {
        if (const auto fault = names.fault(place, present))
            fail(fault->number, place.table, fault->text);
    }

    /// The record number of the next section of a table.
    std::int32_t nextNumber(const std::string& table) const {
        const auto last = lastNumbers.find(table);
        const std::int64_t number = last == lastNumbers.end() ? 0 : last->second;
        if (number >= std::numeric_limits<std::int32_t>::max())
            fail(SectionError::RuleBroken, table,
                 "its last record number is " + std::to_string(number) +
                     ", and there is none behind it; begin another file.");
        return static_cast<std::int32_t>(number + 1);
    }

    /// The figures and texts of a draft by their place in the table, in the units of its columns.
    std::vector<std::pair<int, COleVariant>> valuesOf(const Family& family,
                                                      const Draft& draft) const {
        std::vector<std::pair<int, COleVariant>> values;
        const std::vector<Column>& columns = family.columns();
        const auto columnOf = [&](const std::string& name, bool isText) {
            return std::ranges::find_if(columns, [&](const Column& candidate) {
                return dbsection::EqualNoCase(candidate.name, name) &&
                       (candidate.quantity == ::Quantity::Text) == isText;
            });
        };
        const auto add = [&](auto column, const COleVariant& value) {
            values.emplace_back(BookkeepingColumns + static_cast<int>(column - columns.begin()),
                                value);
        };
        for (const auto& [name, figure] : draft.figures)
            if (const auto column = columnOf(name, false); column != columns.end())
                add(column, COleVariant(figure.in(column->unit))); // or else it is a parameter
        for (const auto& [name, text] : draft.texts) {
            const auto column = columnOf(name, true);
            if (column == columns.end())
                fail(SectionError::NoSuchItem, family.name(), "it has no text " + name + ".");
            add(column, COleVariant(text.c_str()));
        }
        return values;
    }

    /// Makes the row of a section current.
    CSectionRecordset& rowOf(const Section& section) {
        const std::string& table = section.family().name();
        const std::string number = std::to_string(section.recordNumber());
        CSectionRecordset& rows = rowsOf(table);
        if (rows.Find(CSectionRecordset::FindFirst, ("[RECNO] = " + number).c_str()) == 0)
            fail(SectionError::NoCurrentRecord, table,
                 inQuotes(section.name()) + " is gone; read anew.");
        if (CCrack::strVARIANT(rows.GetFieldValue(VessaNameColumn)).View() != section.programName())
            fail(SectionError::ChangedByOther, table,
                 inQuotes(section.name()) + " was changed by another user; read it anew.");
        return rows;
    }

    /// Writes the edit buffer of a row.
    static void store(CSectionRecordset& rows, const NamedPlace& place,
                      const std::vector<std::pair<int, COleVariant>>& values) {
        rows.SetFieldValue(NameColumn, place.name.c_str());
        rows.SetFieldValue(VessaNameColumn, place.programName.c_str());
        for (const auto& [column, value] : values)
            rows.SetFieldValue(column, value);
        rows.Update();
    }

    CSectionDatabase database;
    std::optional<dbsection::DatabaseTransaction> transaction;
    std::optional<Catalogue> before;
    TakenNames names;
    std::map<std::string, std::int64_t> lastNumbers; ///< by table
    std::map<std::string, std::unique_ptr<CSectionRecordset>> tables;
};

Change::Change(std::unique_ptr<State> state) : m_state(std::move(state)) {}
Change::Change(Change&&) noexcept = default;
Change& Change::operator=(Change&&) noexcept = default;
Change::~Change() = default;

Catalogue Change::read() const {
    return translated(m_state->before->path(), [&] { return m_state->read(); });
}

std::int64_t Change::add(std::string_view familyName, const Draft& draft) {
    State& state = *m_state;
    return translated(state.before->path(), [&] {
        const Family family = state.before->family(familyName);
        const NamedPlace place{family.name(), draft.name,
                               draft.programName.empty() ? dbsection::VessaNameOf(draft.name)
                                                         : draft.programName};
        state.requireNames(place);
        const auto values = state.valuesOf(family, completed(family, draft).draft);
        const std::int32_t number = state.nextNumber(place.table);
        CSectionRecordset& rows = state.rowsOf(place.table);
        rows.AddNew();
        rows.SetFieldValue(IdentifierColumn, COleVariant(number));
        State::store(rows, place, values);
        state.names.add(place);
        state.lastNumbers[place.table] = number;
        return number;
    });
}

void Change::update(const Section& section, const Draft& draft) {
    State& state = *m_state;
    translated(state.before->path(), [&] {
        const NamedPlace old = placeOf(section);
        const NamedPlace place{old.table, draft.name.empty() ? old.name : draft.name,
                               draft.programName.empty() ? old.programName : draft.programName};
        state.requireNames(place, &old);
        const auto values =
            state.valuesOf(section.family(), completed(section.family(), draft, &section).draft);
        CSectionRecordset& rows = state.rowOf(section);
        rows.Edit();
        State::store(rows, place, values);
        state.names.remove(old);
        state.names.add(place);
    });
}

void Change::remove(const Section& section) {
    State& state = *m_state;
    translated(state.before->path(), [&] {
        state.rowOf(section).Delete();
        state.names.remove(placeOf(section));
    });
}

void Change::commit() {
    translated(m_state->before->path(), [&] { m_state->transaction->Commit(); });
}

UserFile::UserFile(std::string path, std::string password)
    : m_path(std::move(path)),
      m_password(std::move(password)) {}

Catalogue UserFile::read() const {
    return Catalogue(
        std::make_shared<const CatalogueData>(readCatalogue(m_path, PersonalFile, m_password)));
}

Change UserFile::change() const {
    return Change(
        translated(m_path, [&] { return std::make_unique<Change::State>(m_path, m_password); }));
}

} // namespace sections
