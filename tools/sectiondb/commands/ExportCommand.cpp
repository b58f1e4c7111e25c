#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "exchange/Exchange.h"
#include "files/StreamedFile.h"
#include "files/WholeFile.h"
#include "output/Escapes.h"
#include "output/Messages.h"
#include "output/Progress.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <iterator>
#include <optional>

namespace dbsection {
namespace {

std::string KnownFormats() {
    std::string known;
    for (const ExchangeFormat& format : ExchangeFormats())
        known.append(known.empty() ? "" : ", ").append(format.name);
    return known;
}

const ExchangeFormat& FormatNamed(const std::string& name) {
    const ExchangeFormat* const format = FindExchangeFormat(name);
    if (format == nullptr)
        throw UsageError(
            fmt::format("There is no format \"{}\"; the formats are {}.", name, KnownFormats()));
    return *format;
}

ExchangeLength LengthNamed(const std::string& name) {
    if (EqualNoCase(name, "mm"))
        return ExchangeLength::Millimetre;
    if (!EqualNoCase(name, "in"))
        throw UsageError(fmt::format("\"{}\" is no unit of exported files; use mm or in.", name));
    return ExchangeLength::Inch;
}

void AddAll(std::vector<sections::Section>& chosen, const sections::Family& family) {
    std::ranges::copy(family.sections(), std::back_inserter(chosen));
}

/// What is to be exported.
struct Chosen {
    std::vector<sections::Section> sections;
    bool isByFamily = false; ///< so that single sections may be left out
};

Chosen ChooseAll(const std::vector<sections::Catalogue>& catalogues) {
    Chosen chosen{.sections = {}, .isByFamily = true};
    for (const sections::Catalogue& catalogue : catalogues)
        for (const sections::Family& family : catalogue.families())
            AddAll(chosen.sections, family);
    return chosen;
}

/// Each name is a family's, or else a section's.
Chosen Choose(const sections::Catalogue& catalogue, const std::vector<std::string>& names) {
    Chosen chosen;
    const std::vector<sections::Family> families = catalogue.families();
    for (const std::string& name : names) {
        const auto family = std::ranges::find_if(
            families, [&](const sections::Family& each) { return EqualNoCase(each.name(), name); });
        if (family != families.end()) {
            AddAll(chosen.sections, *family);
            chosen.isByFamily = true;
        } else
            std::ranges::copy(SectionsNamed(catalogue, name), std::back_inserter(chosen.sections));
    }
    return chosen;
}

class Export : public Command {
    void Declare(CommandLine& line) override {
        line.Add("format", m_format, KnownFormats()).Required();
        line.Add("catalogue", m_catalogue, "Number, file stem or name, or \"all\"").Required();
        line.Add("names", m_names, "Families or sections (default: all)").Value("FAMILY|NAME ...");
        line.Add("-o,--output", m_output, "Name of the file").Value("FILE").Required();
        line.AddTaken(
                "--length", [this](const std::string& name) { m_length = LengthNamed(name); },
                "mm (with N) or in (with kip); without it mm, and in "
                "spreadsheets the units of the catalogue")
            .Value("UNIT");
        m_symbols.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const ExchangeFormat& format = FormatNamed(m_format);
        RequireEnding(m_output, format.suffix, fmt::format("a file of format {}", format.name));
        ExchangeOptions options{m_length, m_symbols.Choice()};
        const Chosen chosen = FindSections();
        std::vector<std::string> faults;
        if (chosen.isByFamily)
            options.leaveOut = [&](const sections::Error& fault) {
                faults.emplace_back(fault.what());
            };
        WriteFile(format, chosen.sections, options, faults);
        fmt::print("{}: {}\n", PlainText(m_output),
                   Counted(chosen.sections.size() - faults.size(), "section"));
        if (!faults.empty())
            Tell(fmt::format("{} left out; the first one: {}", Counted(faults.size(), "section"),
                             faults.front()));
    }

    Chosen FindSections() const {
        const CatalogueFolder folder = m_catalogues.Folder();
        const bool isAll = EqualNoCase(m_catalogue, "all");
        if (!isAll && !m_names.empty())
            return Choose(folder.Open(m_catalogue), m_names);
        if (!isAll)
            return ChooseAll({folder.Open(m_catalogue)});
        if (!m_names.empty())
            throw UsageError("Name the catalogue of the families and sections, in place of all.");
        folder.RequireThere();
        CatalogueFaults faults;
        const std::vector<sections::Catalogue> catalogues = OpenAll(folder, faults);
        faults.ThrowIfAny();
        return ChooseAll(catalogues);
    }

    /// `faults` are those that are found while it is written.
    void WriteFile(const ExchangeFormat& format, std::span<const sections::Section> sections,
                   ExchangeOptions options, const std::vector<std::string>& faults) const {
        StreamedFile file(m_output, "the file");
        {
            Progress progress("export", sections.size());
            options.progress = [&] { progress.Advance(); };
            Write(format, sections, options, file.Stream());
        }
        if (faults.size() == sections.size())
            throw CommandError(faults.empty() ? "There are no sections to export."
                                              : "No section can be exported: " + faults.front());
        file.Finish();
    }

    std::string m_format;
    std::string m_catalogue;
    std::vector<std::string> m_names;
    std::string m_output;
    std::optional<ExchangeLength> m_length;
    SymbolOptions m_symbols;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("export", "Write sections for another program", Make<Export>);

} // namespace
} // namespace dbsection
