#include "page/DisplayUnits.h"

#include <array>

namespace dbsection {
namespace {

using namespace UnitId;

constexpr std::array Systems{
    DisplayUnits{"Published", {}, {}, {}, {}},
    DisplayUnits{"US", {Inch, Kip}, {Inch, Kip}, {Inch, Kip}, {Foot, Pound}},
    DisplayUnits{"Metric",
                 {Millimetre, Kilonewton},
                 {Centimetre, Kilonewton},
                 {Millimetre, Newton},
                 {Metre, Kilogram}},
    DisplayUnits{
        "SI", {Millimetre, Newton}, {Millimetre, Newton}, {Millimetre, Newton}, {Metre, Newton}},
};

} // namespace

std::span<const DisplayUnits> GetDisplayUnits() { return Systems; }

const UnitChoice& ChoiceFor(const DisplayUnits& system, std::string_view stored) {
    const UnitDimension dimension = DimensionOf(stored).value_or(UnitDimension{});
    if (dimension.force != 0)
        return dimension.length == -1 ? system.weight : system.stress;
    return dimension.length > 1 ? system.power : system.length;
}

} // namespace dbsection
