#include "output/Messages.h"

#include "output/OutputText.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace dbsection {

void Tell(std::string_view message) {
    while (!message.empty()) {
        const std::size_t end = std::min(message.find('\n'), message.size());
        fmt::print(stderr, "sectiondb: {}\n", PlainText(message.substr(0, end)));
        message.remove_prefix(std::min(end + 1, message.size()));
    }
}

} // namespace dbsection
