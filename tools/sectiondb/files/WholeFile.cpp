#include "files/WholeFile.h"

#include "output/Messages.h"
#include "platform/FileSystem.h"

#include <fmt/format.h>
#include <system_error>

namespace dbsection {

void RequireEnding(const std::string& path, std::string_view ending, std::string_view kind) {
    if (!path.ends_with(ending))
        throw UsageError(fmt::format("{}: the name of {} ends with {}.", path, kind, ending));
}

void WriteWholeFile(const std::string& path, std::string_view text, std::string_view content) {
    if (const int error = ReplaceFile(path.c_str(), text); error != 0)
        FailToWrite(path, content, error);
}

void FailToWrite(const std::string& path, std::string_view content, int error) {
    throw CommandError(fmt::format("{}: {} cannot be written: {}; name another file.", path,
                                   content, std::generic_category().message(error)));
}

} // namespace dbsection
