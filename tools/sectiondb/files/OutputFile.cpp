#include "files/OutputFile.h"

#include "output/Messages.h"
#include "platform/FileSystem.h"

#include <fmt/format.h>
#include <system_error>

namespace dbsection {

void RequireEnding(const std::string& path, std::string_view ending, const char* what) {
    if (!path.ends_with(ending))
        throw UsageError(fmt::format("{}: the name of a {} ends with {}.", path, what, ending));
}

void WriteWhole(const std::string& path, std::string_view content, const char* what) {
    if (const int error = ReplaceFile(path.c_str(), content); error != 0)
        throw CommandError(fmt::format("{}: the {} cannot be written: {}; name another file.", path,
                                       what, std::generic_category().message(error)));
}

} // namespace dbsection
