#include "output/UnitLabels.h"

#include "output/Messages.h"
#include "platform/Text.h"
#include "units/UNIT.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace dbsection {
namespace {

struct UnitLabel {
    unsigned int id;
    std::string_view label;
};

constexpr std::array LengthLabels{
    UnitLabel{1001, "in"}, UnitLabel{1002, "ft"}, UnitLabel{1003, "yd"}, UnitLabel{1004, "mm"},
    UnitLabel{1005, "cm"}, UnitLabel{1006, "dm"}, UnitLabel{1007, "m"},  UnitLabel{1008, "km"},
};

constexpr std::array ForceLabels{
    UnitLabel{2001, "kip"}, UnitLabel{2002, "lb"},  UnitLabel{2003, "kg"}, UnitLabel{2004, "t"},
    UnitLabel{2005, "N"},   UnitLabel{2006, "daN"}, UnitLabel{2007, "kN"}, UnitLabel{2008, "MN"},
};

using Labels = std::array<UnitLabel, 8>;

std::string_view LabelOf(const Labels& labels, unsigned int id) {
    const auto place = std::ranges::find(labels, id, &UnitLabel::id);
    return place == labels.end() ? std::string_view() : place->label;
}

unsigned int Choose(const Labels& labels, const std::string& name, std::string_view kind) {
    if (name.empty())
        return 0;
    std::string known;
    for (const UnitLabel& unit : labels) {
        if (EqualNoCase(unit.label, name))
            return unit.id;
        known += fmt::format("{}{}", known.empty() ? "" : ", ", unit.label);
    }
    // The names that catalogues use are understood too.
    const unsigned int id = UNIT::StringToId(CString(name));
    if (!LabelOf(labels, id).empty())
        return id;
    throw UsageError(fmt::format("\"{}\" is no unit of {}; use one of {}.", name, kind, known));
}

/// One factor of a compound unit with its exponent in the chosen unit.
std::string FactorLabel(std::string_view factor, const UnitChoice& choice) {
    const unsigned int id = UNIT::StringToId(CString(factor));
    const std::size_t caret = std::min(factor.find('^'), factor.size());
    std::string_view label = LabelOf(LengthLabels, id);
    if (!label.empty())
        label = choice.length == 0 ? label : LabelOf(LengthLabels, choice.length);
    else if (label = LabelOf(ForceLabels, id); !label.empty())
        label = choice.force == 0 ? label : LabelOf(ForceLabels, choice.force);
    else
        label = factor.substr(0, caret);
    return std::string(label) + std::string(factor.substr(caret));
}

std::string LabelFor(std::string_view stored, const UnitChoice& choice) {
    std::string label;
    while (!stored.empty()) {
        const std::size_t end = std::min(stored.find_first_of("/."), stored.size());
        label += FactorLabel(stored.substr(0, end), choice);
        if (end < stored.size())
            label += stored[end];
        stored.remove_prefix(std::min(end + 1, stored.size()));
    }
    return label;
}

/// The unit of each kind in which a stored value is kept; any unit where it has none.
UnitChoice StoredUnits(std::string_view stored) {
    UnitChoice units{LengthLabels[0].id, ForceLabels[0].id};
    while (!stored.empty()) {
        const std::size_t end = std::min(stored.find_first_of("/."), stored.size());
        const unsigned int id = UNIT::StringToId(CString(stored.substr(0, end)));
        if (!LabelOf(LengthLabels, id).empty())
            units.length = id;
        else if (!LabelOf(ForceLabels, id).empty())
            units.force = id;
        stored.remove_prefix(std::min(end + 1, stored.size()));
    }
    return units;
}

} // namespace

UnitChoice ChooseUnits(const std::string& length, const std::string& force) {
    return {Choose(LengthLabels, length, "length"), Choose(ForceLabels, force, "force")};
}

LabelledValue InChosenUnits(double value, std::string_view stored, const UnitChoice& choice) {
    if (EqualNoCase(stored, "NUMBER") || stored.empty())
        return {value, ""};
    if (EqualNoCase(stored, "DEGREE") || EqualNoCase(stored, "DEG"))
        return {value, "deg"};
    const UnitChoice own = StoredUnits(stored);
    const unsigned int length = choice.length == 0 ? own.length : choice.length;
    const unsigned int force = choice.force == 0 ? own.force : choice.force;
    return {UNIT::ConvertUnitTo(value, CString(stored), force, length), LabelFor(stored, choice)};
}

} // namespace dbsection
