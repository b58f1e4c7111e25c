#include "sections/Origin.h"

namespace sections {

const char* nameOf(FigureSource source) {
    switch (source) {
    case FigureSource::Published:
        return "published";
    case FigureSource::Corrected:
        return "corrected";
    case FigureSource::Computed:
        return "computed";
    case FigureSource::NotPublished:
        return "not published";
    case FigureSource::Unknown:
        break;
    }
    return "unknown";
}

} // namespace sections
