#include "output/Messages.h"

#include "output/Escapes.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace dbsection {

std::string Counted(std::size_t count, std::string_view thing) {
    return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

void Tell(std::string_view message) {
    while (!message.empty()) {
        const std::size_t end = std::min(message.find('\n'), message.size());
        const std::string line = "sectiondb: " + PlainText(message.substr(0, end)) + '\n';
        std::fputs(line.c_str(), stderr); // where it cannot be written, the exit status tells
        message.remove_prefix(std::min(end + 1, message.size()));
    }
}

} // namespace dbsection
