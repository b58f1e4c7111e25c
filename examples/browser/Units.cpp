#include "Units.h"

#include "Text.h"

namespace browser {
namespace {

namespace UnitId = dbsection::UnitId;

CString Label(unsigned int unit) { return CString(dbsection::UnitLabel(unit)); }

CString Labels(unsigned int first, unsigned int last) {
    CString list = Label(first);
    for (unsigned int unit = first + 1; unit <= last; ++unit)
        list += ", " + Label(unit);
    return list;
}

} // namespace

void ChooseUnit(Units& units, const CString& name) {
    const unsigned int unit = dbsection::UnitIdOf(name.View(), dbsection::UnitNames::Printed);
    if (unit == 0)
        throw Refusal(Quoted(name) + " is no unit; lengths are " +
                      Labels(UNIT::Inch, UNIT::Kilometre) + "; forces are " +
                      Labels(UNIT::Kip, UNIT::Meganewton) + ".");
    (UnitId::IsLength(unit) ? units.length : units.force) = unit;
}

CString NamesOf(const Units& units) { return Label(units.length) + " and " + Label(units.force); }

CString ColumnLabel(const CString& columnUnit, const Units& units) {
    return CString(dbsection::LabelOf(columnUnit.View(), units));
}

} // namespace browser
