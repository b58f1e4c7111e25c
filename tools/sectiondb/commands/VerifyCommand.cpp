#include "commands/Command.h"
#include "commands/Options.h"
#include "output/Messages.h"
#include "output/Progress.h"
#include "records/CatalogueList.h"
#include "sections/UserFile.h"
#include "verification/FileVerification.h"

#include <filesystem>
#include <fmt/format.h>

namespace dbsection {
namespace {

std::string TextOf(const TableVerdict& table, const Finding& finding) {
    std::string place = table.table;
    for (const std::string& part : {finding.section, finding.column})
        if (!part.empty())
            place += ", " + part;
    return place + ": " + finding.fault;
}

/// What was found: a line for each table; the faults themselves are in a column for programs, on
/// stderr for a person.
class Report {
public:
    explicit Report(TableForm form) : m_form(form) {
        if (form != TableForm::Text)
            m_table.columns.push_back({"details"});
    }

    void Verify(const sections::Catalogue& catalogue, const std::string& password) {
        Progress progress(catalogue.name(), catalogue.families().size());
        for (const TableVerdict& verdict :
             VerifyCatalogue(catalogue, password, [&] { progress.Advance(); }))
            Add(catalogue.name(), verdict);
    }

    void Print() const {
        dbsection::Print(m_table, m_form);
        constexpr std::size_t Most = 100;
        for (std::size_t i = 0; m_form == TableForm::Text && i < m_faults.size() && i < Most; ++i)
            Tell(m_faults[i]);
    }

    /// Throws CommandError.
    void ThrowIfAmiss() const {
        if (!m_faults.empty())
            throw CommandError(fmt::format("{} faults; --json tells all of them. Build the "
                                           "catalogue anew, or mend what it is built from.",
                                           m_faults.size()));
    }

private:
    void Add(const std::string& catalogue, const TableVerdict& verdict) {
        Table::Row row{catalogue,
                       verdict.table,
                       static_cast<int>(verdict.sections),
                       verdict.rows.figures,
                       verdict.rows.exceptions,
                       static_cast<int>(verdict.rows.findings.size())};
        std::string details;
        for (const Finding& finding : verdict.rows.findings) {
            const std::string text = TextOf(verdict, finding);
            details += (details.empty() ? "" : "\n") + text;
            m_faults.push_back(fmt::format("{}, {}", catalogue, text));
        }
        if (m_form != TableForm::Text)
            row.emplace_back(details);
        else if (verdict.sections == 0 && verdict.rows.findings.empty())
            return;
        m_table.rows.push_back(std::move(row));
    }

    TableForm m_form;
    Table m_table{
        {{"catalogue"}, {"table"}, {"sections"}, {"compared"}, {"exceptions"}, {"faults"}}};
    std::vector<std::string> m_faults;
};

class Verify : public Command {
    void Declare(CommandLine& line) override {
        line.Add("catalogue", m_what,
                 "Number, file stem or name, or a file (default: all catalogues)");
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const CatalogueFolder folder = m_catalogues.Folder();
        Report report(m_form.Form());
        CatalogueFaults faults;
        if (std::filesystem::is_regular_file(m_what) || m_what.ends_with(".db3"))
            report.Verify(FileNamed(m_what, folder), folder.Password());
        else if (!m_what.empty())
            report.Verify(folder.Open(m_what), folder.Password());
        else
            for (int number = 1; number <= LastCatalogueIndex; ++number)
                faults.Try([&] {
                    if (!folder.FileOf(number).empty())
                        report.Verify(folder.Open(number), folder.Password());
                });
        report.Print();
        faults.ThrowIfAny();
        report.ThrowIfAmiss();
    }

    /// A file by its stem, or else a person's own.
    static sections::Catalogue FileNamed(const std::filesystem::path& file,
                                         const CatalogueFolder& folder) {
        for (const SectionCatalogue& catalogue : GetCatalogues())
            if (*catalogue.stem != '\0' && file.stem() == catalogue.stem)
                return sections::Catalogue::read(file.string(), catalogue.index, folder.Password());
        return sections::UserFile(file.string(), folder.Password()).read();
    }

    std::string m_what; // empty: all catalogues
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("verify", "Check files, names, units and every figure", Make<Verify>);

} // namespace
} // namespace dbsection
