#include "commands/Command.h"
#include "commands/Options.h"
#include "output/Messages.h"
#include "sources/FamiliesPage.h"
#include "sources/MisprintCount.h"
#include "sources/SourcePages.h"
#include "sources/TablePlans.h"
#include "sources/ValidationPage.h"

#include <fmt/format.h>
#include <map>
#include <set>
#include <span>

namespace dbsection {
namespace {

/// A command on the folder of all sources.
class SourcesCommand : public Command {
protected:
    void Declare(CommandLine& line) override {
        line.Add("sources", m_sources, "Folder of the catalogues and their families")
            .Default("data");
    }

    const std::filesystem::path& Sources() const { return m_sources; }

private:
    std::filesystem::path m_sources;
};

class Corrections : public SourcesCommand {
    void Run() const override {
        fmt::print("{}", CorrectionsPage(SourceFamilies(Sources() / SourceFamilies::FolderName)));
    }
};

class CatalogueList : public SourcesCommand {
    void Run() const override {
        SourceLibrary library;
        std::vector<CatalogueSource> catalogues;
        for (const auto& folder : CatalogueFolders({Sources()}))
            catalogues.push_back(CatalogueSource::Load(folder, library));
        fmt::print("{}", CataloguesPage(catalogues));
    }
};

/// The families that a catalogue shows, each once.
std::set<const SourceFamily*> FamiliesOf(const std::filesystem::path& catalogue,
                                         SourceLibrary& library) {
    std::set<const SourceFamily*> families;
    SourceFolder texts(catalogue);
    for (const TablePlan& plan : ReadTablePlans(texts, CatalogueOf(catalogue), library))
        families.insert(plan.families.begin(), plan.families.end());
    return families;
}

/// Counts the misprints that the checks of each catalogue would let pass.
class Check : public SourcesCommand {
    void Declare(CommandLine& line) override {
        SourcesCommand::Declare(line);
        m_form.Declare(line);
    }

    void Run() const override {
        SourceLibrary library;
        std::map<const SourceFamily*, MisprintCount> counts;
        bool isSharp = true;
        Table table({{"catalogue"},
                     {"families"},
                     {"swaps"},
                     {"swapsPassed"},
                     {"percent"},
                     {"shifts"},
                     {"shiftsPassed"}});
        for (const auto& folder : CatalogueFolders({Sources()})) {
            const auto families = FamiliesOf(folder, library);
            MisprintCount count;
            for (const SourceFamily* family : families) {
                if (!counts.contains(family))
                    counts[family] = CountMisprints(*family);
                count += counts[family];
            }
            isSharp = isSharp && count.IsSharp();
            if (!families.empty())
                table.rows.push_back({folder.filename().string(), static_cast<int>(families.size()),
                                      count.swaps, count.swapsPassed,
                                      fmt::format("{:.2f}", 100 * count.PassedShare()),
                                      count.shifts, count.shiftsPassed});
        }
        Print(table, m_form.Form());
        if (!isSharp)
            throw CommandError("More than 2 % of the swapped digits of a catalogue, or shifted "
                               "decimal points, would pass.");
    }

    FormOptions m_form;
};

/// A page about all families that a catalogue shows, by name, and a picture of it.
class FamilyPages : public SourcesCommand {
protected:
    using Write = std::string (*)(std::span<const SourceFamily* const> families);

    FamilyPages(Write page, Write plot) : m_page(page), m_plot(plot) {}

    /// What stands behind the families.
    virtual std::string PageEnd() const { return {}; }

private:
    void Declare(CommandLine& line) override {
        SourcesCommand::Declare(line);
        line.AddFlag("--plot", m_isPlot, "The picture of the page, as SVG");
    }

    void Run() const override {
        SourceLibrary library;
        std::map<std::string, const SourceFamily*> byName;
        for (const auto& folder : CatalogueFolders({Sources()}))
            for (const SourceFamily* family : FamiliesOf(folder, library))
                byName.emplace(family->name, family);
        std::vector<const SourceFamily*> families;
        families.reserve(byName.size());
        for (const auto& [name, family] : byName)
            families.push_back(family);
        if (m_isPlot)
            fmt::print("{}", m_plot(families));
        else
            fmt::print("{}{}", m_page(families), PageEnd());
    }

    Write m_page;
    Write m_plot;
    bool m_isPlot = false;
};

class Validation : public FamilyPages {
public:
    Validation() : FamilyPages(ValidationPage, ValidationPlot) {}

private:
    std::string PageEnd() const override {
        return FiniteElementsPart(SourceFolder(Sources()).Read("_finite_elements.csv"));
    }
};

class Families : public FamilyPages {
public:
    Families() : FamilyPages(FamiliesPage, FamiliesPlot) {}
};

const CommandEntry families("sources families", "Print the page of all families, drawn",
                            Make<Families>);
const CommandEntry validation("sources validation", "Print the page of all deviations",
                              Make<Validation>);
const CommandEntry check("sources check", "Count the misprints that would pass", Make<Check>);
const CommandEntry corrections("sources corrections", "Print the page of all corrections",
                               Make<Corrections>);
const CommandEntry catalogues("sources catalogues", "Print the page of all catalogues",
                              Make<CatalogueList>);

} // namespace
} // namespace dbsection
