#include "commands/Command.h"
#include "commands/ListFaults.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"
#include "output/Escapes.h"
#include "output/Messages.h"
#include "output/Progress.h"
#include "platform/Text.h"
#include "sources/CsvTable.h"
#include "sources/SourceText.h"
#include "sources/SourceUnits.h"

#include <algorithm>
#include <fmt/format.h>

namespace dbsection {
namespace {

/// A column of the list, and what it is in the family.
struct ListColumn {
    std::string title; ///< in the list
    std::string name;
    Quantity quantity;
    std::string unit;
};

/// Reads the sections of a list: a line of columns, one of units, and a line for each section.
class SectionList {
public:
    SectionList(const CsvTable& csv, const sections::Family& family) : m_csv(csv) {
        if (!m_csv.Has(NameTitle))
            throw m_csv.ColumnError(NameTitle, "the column is missing");
        if (m_csv.Records().empty())
            throw m_csv.LineError(2, "the line of units is missing");
        for (const std::string& title : m_csv.Columns())
            if (title != NameTitle && title != ProgramNameTitle)
                m_columns.push_back(ColumnOf(title, family));
    }

    std::span<const CsvTable::Record> Records() const { return m_csv.Records().subspan(1); }

    sections::Draft DraftOf(const CsvTable::Record& record) const {
        sections::Draft draft{.name = m_csv.RequiredText(record, NameTitle)};
        if (m_csv.Has(ProgramNameTitle))
            draft.programName = m_csv.Text(record, ProgramNameTitle);
        for (const ListColumn& column : m_columns) {
            const std::string& text = m_csv.Text(record, column.title);
            if (text.empty())
                continue;
            if (column.quantity == Quantity::Text)
                draft.texts.emplace(column.name, text);
            else
                draft.figures.emplace(
                    column.name,
                    sections::Quantity(m_csv.Number(record, column.title), column.unit));
        }
        return draft;
    }

private:
    static constexpr const char* NameTitle = "Name";
    static constexpr const char* ProgramNameTitle = "VessaName";

    ListColumn ColumnOf(const std::string& title, const sections::Family& family) const {
        const CsvTable::Record& units = m_csv.Records().front();
        ListColumn column{title, title, Quantity::Text, m_csv.Text(units, title)};
        const bool isText = std::ranges::any_of(family.columns(), [&](const auto& candidate) {
            return candidate.quantity == Quantity::Text && EqualNoCase(candidate.name, title);
        });
        if (!isText) {
            try {
                const FigureTitle figure = FindFigure(family, title);
                column.name = figure.name;
                column.quantity = figure.quantity;
            } catch (const CommandError&) {
                throw m_csv.ColumnError(title, "not a column of the table \"" + family.name() +
                                                   "\", nor a parameter of its geometry");
            }
        }
        if (const auto fault = UnitFault(column.unit, column.quantity, UnitNames::Printed);
            !fault.empty())
            throw m_csv.Error(units, title, fault);
        return column;
    }

    const CsvTable& m_csv;
    std::vector<ListColumn> m_columns;
};

class UserImport : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        line.Add("family", m_family, "Shape family, e.g. \"Wide Flange\"").Required();
        line.Add("list", m_list,
                 "Comma-separated text: a line of columns, one of units, the sections")
            .Value("FILE.csv")
            .Required();
        m_bound.Declare(line);
    }

    void Run() const override {
        const double bound = m_bound.Share();
        const CsvTable csv(m_list, ReadSourceText(m_list));
        sections::Change change = m_file.File().change();
        const sections::Family family = FindFamily(change.read(), m_family);
        const SectionList list(csv, family);
        std::int64_t last = 0;
        ListFaults faults;
        {
            Progress progress("import", list.Records().size());
            for (const CsvTable::Record& record : list.Records()) {
                try {
                    sections::Draft draft = list.DraftOf(record);
                    draft.asPublished = bound;
                    last = Add(change, family, draft);
                } catch (const SourceError& error) {
                    faults.Add(error.what());
                } catch (const std::runtime_error& error) {
                    faults.Add(
                        csv.LineError(record.line, WithoutTable(error.what(), family)).what());
                }
                progress.Advance();
            }
        }
        faults.ThrowIfAny(m_list, "nothing is imported");
        change.commit();
        fmt::print("{}: {} added to the table \"{}\"\n", PlainText(m_file.path.string()),
                   Counted(list.Records().size(), "section"), family.name());
        TellOfNumber(last);
    }

    static std::int64_t Add(sections::Change& change, const sections::Family& family,
                            const sections::Draft& draft) {
        RequireVessaName(draft);
        const sections::Draft whole = completed(family, draft).draft;
        RequireAll(family, whole);
        return change.add(family.name(), whole);
    }

    /// A fault without the file and table that all faults have.
    static std::string WithoutTable(std::string_view fault, const sections::Family& family) {
        const std::string place = TableError(family, "").what();
        return std::string(fault.starts_with(place) ? fault.substr(place.size()) : fault);
    }

    UserFileOptions m_file;
    std::string m_family;
    std::string m_list;
    PublishedBound m_bound;
};

const CommandEntry entry("user import", "Add the sections of a list, all or none",
                         Make<UserImport>);

} // namespace
} // namespace dbsection
