#include "dataaccess/sqlite/WholeFiles.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>

namespace dbsection {
namespace {

constexpr std::size_t Capacity = 64; // more than there are catalogues

constinit std::array<std::optional<FileVersion>, Capacity> files;
constinit std::size_t oldest = 0;
constinit std::mutex guard;

} // namespace

bool WholeFiles::Contains(const FileVersion& version) {
    const std::lock_guard lock(guard);
    return std::ranges::find(files, std::optional(version)) != files.end();
}

void WholeFiles::Add(const FileVersion& version) {
    const std::lock_guard lock(guard);
    const auto place = std::ranges::find_if(
        files, [&](const auto& file) { return file && file->IsOfSameFile(version); });
    if (place != files.end())
        *place = version;
    else
        files[oldest++ % Capacity] = version;
}

} // namespace dbsection
