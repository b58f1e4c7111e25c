#include "sections/UserFile.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "dataaccess/DatabaseTransaction.h"
#include "platform/Text.h"
#include "records/SectionNames.h"
#include "sections/CatalogueData.h"
#include "sections/Failures.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

namespace sections {
namespace {

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

} // namespace

/// The file as it was when the change began, and what is being written to it.
struct Change::State {
    State(const std::string& path, const std::string& password) {
        database.Open(path.c_str(), 0, 0, (";PWD=" + password).c_str());
        transaction.emplace(database, dbsection::Purpose::Writing);
        before.emplace(Catalogue(
            std::make_shared<const CatalogueData>(readCatalogue(database, PersonalFile))));
        for (const Family& family : before->families())
            for (const Section& section : family.sections())
                names.insert(dbsection::UpperCase(section.programName()));
    }

    [[noreturn]] void fail(SectionError::Number number, const std::string& fault) const {
        throw Error(number, before->path() + ": " + fault);
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
    void requireNames(const std::string& name, const std::string& programName,
                      std::string_view present) const {
        if (const std::string fault = dbsection::NameFault(name); !fault.empty())
            fail(SectionError::InvalidName,
                 inQuotes(name) + " cannot be a section's name: " + fault + ".");
        if (const std::string fault = dbsection::VessaNameFault(programName); !fault.empty())
            fail(SectionError::InvalidName, inQuotes(programName) +
                                                " cannot be a section's program name: " + fault +
                                                "; give another one.");
        if (!dbsection::EqualNoCase(programName, present) &&
            names.contains(dbsection::UpperCase(programName)))
            fail(SectionError::DuplicateKey, "there is a section of the program name " +
                                                 inQuotes(programName) +
                                                 " already; give another one.");
    }

    /// The figures and texts of a draft by their place in the table, in the units of its columns.
    std::vector<std::pair<int, COleVariant>> valuesOf(const Family& family,
                                                      const Draft& draft) const {
        std::vector<std::pair<int, COleVariant>> values;
        const std::vector<Column>& columns = family.columns();
        const auto columnOf = [&](const std::string& name, bool isText) {
            const auto column = std::ranges::find_if(columns, [&](const Column& candidate) {
                return dbsection::EqualNoCase(candidate.name, name) &&
                       (candidate.quantity == ::Quantity::Text) == isText;
            });
            if (column == columns.end())
                fail(SectionError::NoSuchItem, "table " + inQuotes(family.name()) + " has no " +
                                                   (isText ? "text" : "figure") + " " + name + ".");
            return column;
        };
        const auto add = [&](auto column, const COleVariant& value) {
            values.emplace_back(BookkeepingColumns + static_cast<int>(column - columns.begin()),
                                value);
        };
        for (const auto& [name, figure] : draft.figures) {
            const auto column = columnOf(name, false);
            add(column, COleVariant(figure.in(column->unit)));
        }
        for (const auto& [name, text] : draft.texts)
            add(columnOf(name, true), COleVariant(text.c_str()));
        return values;
    }

    /// Makes the row of a section current.
    CSectionRecordset& rowOf(const Section& section) {
        CSectionRecordset& rows = rowsOf(section.family().name());
        const std::string condition = "[RECNO] = " + std::to_string(section.recordNumber());
        if (rows.Find(CSectionRecordset::FindFirst, condition.c_str()) == 0)
            fail(SectionError::NoCurrentRecord, inQuotes(section.name()) + " is gone; read anew.");
        if (CCrack::strVARIANT(rows.GetFieldValue(VessaNameColumn)).View() != section.programName())
            fail(SectionError::ChangedByOther,
                 inQuotes(section.name()) + " was changed by another user; read it anew.");
        return rows;
    }

    CSectionDatabase database;
    std::optional<dbsection::DatabaseTransaction> transaction;
    std::optional<Catalogue> before;
    std::unordered_set<std::string> names; ///< program names in capitals
    std::map<std::string, std::unique_ptr<CSectionRecordset>> tables;
};

Change::Change(std::unique_ptr<State> state) : m_state(std::move(state)) {}
Change::Change(Change&&) noexcept = default;
Change& Change::operator=(Change&&) noexcept = default;
Change::~Change() = default;

void Change::add(std::string_view familyName, const Draft& draft) {
    State& state = *m_state;
    translated(state.before->path(), [&] {
        const Family family = state.before->family(familyName);
        const std::string programName =
            draft.programName.empty() ? dbsection::VessaNameOf(draft.name) : draft.programName;
        state.requireNames(draft.name, programName, {});
        const auto values = state.valuesOf(family, draft);
        CSectionRecordset& rows = state.rowsOf(family.name());
        rows.AddNew();
        rows.SetFieldValue(NameColumn, draft.name.c_str());
        rows.SetFieldValue(VessaNameColumn, programName.c_str());
        for (const auto& [place, value] : values)
            rows.SetFieldValue(place, value);
        rows.Update();
        state.names.insert(dbsection::UpperCase(programName));
    });
}

void Change::update(const Section& section, const Draft& draft) {
    State& state = *m_state;
    translated(state.before->path(), [&] {
        const std::string& name = draft.name.empty() ? section.name() : draft.name;
        const std::string& programName =
            draft.programName.empty() ? section.programName() : draft.programName;
        state.requireNames(name, programName, section.programName());
        const auto values = state.valuesOf(section.family(), draft);
        CSectionRecordset& rows = state.rowOf(section);
        rows.Edit();
        rows.SetFieldValue(NameColumn, name.c_str());
        rows.SetFieldValue(VessaNameColumn, programName.c_str());
        for (const auto& [place, value] : values)
            rows.SetFieldValue(place, value);
        rows.Update();
        state.names.erase(dbsection::UpperCase(section.programName()));
        state.names.insert(dbsection::UpperCase(programName));
    });
}

void Change::remove(const Section& section) {
    State& state = *m_state;
    translated(state.before->path(), [&] {
        state.rowOf(section).Delete();
        state.names.erase(dbsection::UpperCase(section.programName()));
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
