#include "sources/SourceText.h"

#include "sources/SourceError.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace dbsection {

std::string ReadSourceText(const std::string& path) {
    const auto fail = [&](int line, const std::string& reason) {
        throw SourceError({path, line, "", ""}, reason);
    };
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        fail(0, "this is a folder; name a file of comma-separated text");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        fail(0, "the file cannot be read: " + std::generic_category().message(errno));
    std::ostringstream content;
    content << file.rdbuf();
    std::string text = std::move(content).str();
    if (file.bad())
        fail(0, "the file cannot be read");
    if (const std::size_t zero = text.find('\0'); zero != std::string::npos)
        fail(1 + static_cast<int>(std::ranges::count(text.substr(0, zero), '\n')),
             "this is no text, but binary data; name a file of comma-separated text");
    return text;
}

} // namespace dbsection
