// The page of all sections: one file with its style, script and data.
#pragma once

#include <string>
#include <string_view>

namespace dbsection {

/// The page that shows `data`, as PageData gives it.
std::string PageOf(std::string_view data);

} // namespace dbsection
