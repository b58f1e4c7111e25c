#include "sectiondb/CatalogueBuilder.h"
#include "sectiondb/CatalogueSource.h"
#include "sectiondb/Commands.h"
#include "sectiondb/OutputText.h"
#include "sectiondb/Password.h"
#include "sectiondb/Progress.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

std::size_t CountRows(const CatalogueSource& source) {
    std::size_t rows = 0;
    for (const SourceTable& table : source.tables)
        rows += table.rows.size();
    return rows;
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
    for (const auto& folder : options.sources)
        BuildOne(folder, options, password);
}

} // namespace dbsection
