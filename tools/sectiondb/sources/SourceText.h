// Text files, as a person names them.
#pragma once

#include <string>

namespace dbsection {

/// The whole text; throws SourceError where the file cannot be read or holds no text.
std::string ReadSourceText(const std::string& path);

} // namespace dbsection
