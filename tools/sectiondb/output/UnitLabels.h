// Units as a person names them.
#pragma once

#include "units/UnitText.h"

#include <string>
#include <string_view>

namespace dbsection {

/// The identifier, from the first to the last of its kind, of the unit that a person named, e.g.
/// "mm". Throws UsageError.
unsigned int ChooseUnit(unsigned int first, unsigned int last, const std::string& name,
                        std::string_view kind);

} // namespace dbsection
