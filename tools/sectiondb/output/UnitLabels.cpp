#include "output/UnitLabels.h"

#include "output/Messages.h"

#include <fmt/format.h>

namespace dbsection {

unsigned int ChooseUnit(unsigned int first, unsigned int last, const std::string& name,
                        std::string_view kind) {
    const unsigned int id = UnitIdOf(name, UnitNames::Printed);
    if (id >= first && id <= last)
        return id;
    std::string known;
    for (unsigned int unit = first; unit <= last; ++unit)
        known += fmt::format("{}{}", known.empty() ? "" : ", ", UnitLabel(unit));
    throw UsageError(fmt::format("\"{}\" is no unit of {}; use one of {}.", name, kind, known));
}

} // namespace dbsection
