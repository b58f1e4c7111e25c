#include "commands/Commands.h"
#include "dataaccess/CSectionDatabase.h"
#include "files/CatalogueBuilder.h"
#include "files/Password.h"
#include "output/OutputText.h"
#include "output/Progress.h"
#include "platform/Exceptions.h"
#include "sources/CatalogueSource.h"

#include <fmt/format.h>
#include <fstream>
#include <string_view>

namespace dbsection {
namespace {

std::size_t CountRows(const CatalogueSource& source) {
    std::size_t rows = 0;
    for (const SourceTable& table : source.tables)
        rows += table.rows.size();
    return rows;
}

bool IsPlain(const std::filesystem::path& file) {
    constexpr std::string_view Beginning = "SQLite format 3";
    std::string bytes(Beginning.size(), '\0');
    std::ifstream(file, std::ios::binary).read(bytes.data(), std::ssize(bytes));
    return bytes == Beginning;
}

/// Opens a protected file of the folder, where there is one of that password: the new files then
/// share its salt, and whoever opens them all derives one key.
void OpenOneOf(const std::filesystem::path& folder, const std::string& password) {
    const std::string connect = ConnectText(password);
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".db3" || IsPlain(entry.path()))
            continue;
        try {
            CSectionDatabase().Open(entry.path().c_str(), 0, 1, connect.c_str());
            return;
        } catch (CException* e) { // another password, or none of our files
            e->Delete();
        }
    }
}

void BuildOne(const std::filesystem::path& folder, const BuildOptions& options,
              const std::string& password) {
    const CatalogueSource source = CatalogueSource::Load(folder);
    const std::size_t rows = CountRows(source);
    const auto path = options.output / (source.stem + ".db3");
    {
        Progress progress(source.stem, rows);
        BuildCatalogue(source, path, password, [&] { progress.Advance(); });
    }
    fmt::print("{}: {} tables, {} sections{}\n", PlainText(path.string()), source.tables.size(),
               rows, password.empty() ? "" : ", protected");
}

} // namespace

void Build(const BuildOptions& options) {
    const std::string password = ReadPassword(options.password, PasswordUse::New);
    std::error_code error;
    std::filesystem::create_directories(options.output, error);
    if (error)
        throw CommandError(fmt::format("{}: the folder cannot be made: {}.",
                                       options.output.string(), error.message()));
    if (!password.empty())
        OpenOneOf(options.output, password);
    for (const auto& folder : options.sources)
        BuildOne(folder, options, password);
}

} // namespace dbsection
