#include "commands/Command.h"
#include "commands/Options.h"
#include "dataaccess/CSectionDatabase.h"
#include "files/CatalogueBuilder.h"
#include "files/Password.h"
#include "output/Escapes.h"
#include "output/Messages.h"
#include "output/Progress.h"
#include "platform/Exceptions.h"
#include "sources/CatalogueSource.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

/// Opens a protected file of the folder, where there is one of that password: the new files then
/// share its salt, and whoever opens them all derives one key.
void OpenOneOf(const std::filesystem::path& folder, const std::string& password) {
    const std::string connect = ConnectText(password);
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".db3" || !IsProtected(entry.path()))
            continue;
        try {
            CSectionDatabase().Open(entry.path().c_str(), 0, 1, connect.c_str());
            return;
        } catch (CException* e) { // another password, or none of our files
            e->Delete();
        }
    }
}

void BuildOne(const std::filesystem::path& folder, SourceLibrary& library,
              const std::filesystem::path& output, const std::string& password) {
    const CatalogueSource source = CatalogueSource::Load(folder, library);
    const std::size_t sections = source.CountSections();
    const auto path = output / (source.stem + ".db3");
    {
        Progress progress(source.stem, sections);
        BuildCatalogue(source, path, password, [&] { progress.Advance(); });
    }
    fmt::print("{}: {}, {}{}\n", PlainText(path.string()), Counted(source.tables.size(), "table"),
               Counted(sections, "section"), password.empty() ? "" : ", protected");
}

class Build : public Command {
    void Declare(CommandLine& line) override {
        line.Add("sources", m_sources, "Folders of catalogues, or of all of them").Required();
        line.Add("-o,--output", m_output, "Folder of the catalogue files").Required();
        DeclarePassword(line, m_password, "Password to protect the files");
    }

    void Run() const override {
        const std::string password = ReadPassword(m_password, PasswordUse::New);
        std::error_code error;
        std::filesystem::create_directories(m_output, error);
        if (error)
            throw CommandError(fmt::format("{}: the folder cannot be made: {}.", m_output.string(),
                                           error.message()));
        if (!password.empty())
            OpenOneOf(m_output, password);
        SourceLibrary library;
        for (const auto& folder : CatalogueFolders(m_sources))
            BuildOne(folder, library, m_output, password);
    }

    std::vector<std::filesystem::path> m_sources;
    std::filesystem::path m_output;
    PasswordSource m_password;
};

const CommandEntry entry("build", "Build catalogue files from text sources", Make<Build>);

} // namespace
} // namespace dbsection
