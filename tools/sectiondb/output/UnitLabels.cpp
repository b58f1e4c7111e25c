#include "output/UnitLabels.h"

#include "output/Messages.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

/// The identifier, from the first to the last of its kind, of the unit that a person named.
unsigned int Choose(unsigned int first, unsigned int last, const std::string& name,
                    std::string_view kind) {
    if (name.empty())
        return 0;
    const unsigned int id = UnitIdOf(name, UnitNames::Printed);
    if (id >= first && id <= last)
        return id;
    std::string known;
    for (unsigned int unit = first; unit <= last; ++unit)
        known += fmt::format("{}{}", known.empty() ? "" : ", ", UnitLabel(unit));
    throw UsageError(fmt::format("\"{}\" is no unit of {}; use one of {}.", name, kind, known));
}

} // namespace

UnitChoice ChooseUnits(const std::string& length, const std::string& force) {
    return {Choose(UnitId::Inch, UnitId::Kilometre, length, "length"),
            Choose(UnitId::Kip, UnitId::Meganewton, force, "force")};
}

} // namespace dbsection
