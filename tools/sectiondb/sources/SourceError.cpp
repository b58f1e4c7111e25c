#include "sources/SourceError.h"

namespace dbsection {

namespace {

std::string Message(const SourcePlace& place, const std::string& reason) {
    std::string text = place.file;
    if (place.line > 0)
        text += ":" + std::to_string(place.line);
    text += ": ";
    if (!place.column.empty())
        text += "column " + place.column + ": ";
    if (!place.value.empty())
        text += "\"" + place.value + "\": ";
    return text + reason;
}

} // namespace

SourceError::SourceError(const SourcePlace& place, const std::string& reason)
    : std::runtime_error(Message(place, reason)) {}

} // namespace dbsection
