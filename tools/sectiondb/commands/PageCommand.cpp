#include "commands/Command.h"
#include "commands/Options.h"
#include "files/WholeFile.h"
#include "output/Escapes.h"
#include "output/Messages.h"
#include "output/Progress.h"
#include "page/Page.h"
#include "page/PageData.h"
#include "records/CatalogueList.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>

namespace dbsection {
namespace {

class Page : public Command {
    void Declare(CommandLine& line) override {
        line.Add("catalogues", m_names, "Numbers, file stems or names (default: all of the folder)")
            .Value("CATALOGUE ...");
        line.Add("-o,--output", m_output, "Name of the page").Value("FILE.html").Required();
        m_catalogues.Declare(line);
    }

    void Run() const override {
        RequireEnding(m_output, ".html", "a page");
        const std::vector<sections::Catalogue> catalogues = Open(m_catalogues.Folder());
        std::size_t size = 0;
        for (const sections::Catalogue& catalogue : catalogues)
            size += catalogue.size();
        WriteWholeFile(m_output, PageOf(DataOf(catalogues, size)), "the page");
        fmt::print("{}: {}, {}\n", PlainText(m_output), Counted(catalogues.size(), "catalogue"),
                   Counted(size, "section"));
    }

    /// Those that were named, or all; without those that hold no section.
    std::vector<sections::Catalogue> Open(const CatalogueFolder& folder) const {
        std::vector<sections::Catalogue> catalogues;
        std::set<std::string> paths;
        const auto add = [&](const sections::Catalogue& catalogue) {
            if (catalogue.size() > 0 && paths.insert(catalogue.path()).second)
                catalogues.push_back(catalogue);
        };
        for (const std::string& name : m_names)
            add(folder.Open(name));
        if (m_names.empty()) {
            CatalogueFaults faults;
            std::ranges::for_each(OpenAll(folder, faults), add);
            faults.ThrowIfAny();
        }
        std::ranges::stable_sort(catalogues, {}, &sections::Catalogue::number);
        if (catalogues.empty()) {
            folder.RequireNamed();
            throw CommandError(fmt::format("There are no sections for the page in the folder "
                                           "\"{}\"; \"sectiondb list\" tells what it holds.",
                                           folder.Path()));
        }
        return catalogues;
    }

    static std::string DataOf(const std::vector<sections::Catalogue>& catalogues,
                              std::size_t size) {
        Progress progress("page", size);
        PageData data([&] { progress.Advance(); });
        std::string opened;
        for (const sections::Catalogue& catalogue : catalogues) {
            const bool isProtected = IsProtected(catalogue.path());
            data.Add(catalogue, isProtected);
            if (isProtected)
                opened += (opened.empty() ? "" : ", ") + catalogue.name();
        }
        if (!opened.empty())
            Tell(fmt::format("The page is not protected: without a password it shows what was "
                             "protected by one ({}).",
                             opened));
        return data.Json();
    }

    std::vector<std::string> m_names;
    std::string m_output;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("page", "Write a page of all sections for browsers", Make<Page>);

} // namespace
} // namespace dbsection
