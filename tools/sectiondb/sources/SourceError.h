// What is wrong with a text source, and where.
#pragma once

#include <stdexcept>
#include <string>

namespace dbsection {

/// A place in a text source. Parts that a fault does not have are left empty or 0.
struct SourcePlace {
    std::string file;
    int line = 0; ///< counted from 1
    std::string column;
    std::string value;
};

/// what() reads: data/AISCSections/W Shape.csv:17: column AX: "7.6x": not a number
class SourceError : public std::runtime_error {
public:
    SourceError(const SourcePlace& place, const std::string& reason);
};

} // namespace dbsection
