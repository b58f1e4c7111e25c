// What the library tells of a catalogue, as this program wants it.
#pragma once

#include <dbSectionInterface.h>

#include <memory>
#include <vector>

namespace browser {

using OwnedList = std::unique_ptr<CStringList>;
using OwnedArray = std::unique_ptr<CStringArray>;

struct FreeRecord {
    void operator()(SectionRecord* record) const { SectionDBInterface::FreeSectionData(record); }
};
using OwnedRecord = std::unique_ptr<SectionRecord, FreeRecord>;

/// A shape family; `type` is its section type, the catalogue's own number for it.
struct Family {
    int type;
    CString name;
};

struct Section {
    int record;
    CString name; ///< the analysis program's, by which the library is asked
    CString publicName;
};

/// A property column and the unit in which the catalogue keeps it.
struct Field {
    CString name;
    CString unit;
};

/// Joists are no tables of shapes: they are grouped by series, come without units, and the library
/// offers neither summaries nor selections of them.
inline constexpr int JoistCatalogue = SteelJoistIndex;

/// The catalogue of that number or display name. Throws Refusal.
int FindCatalogue(const CString& numberOrName);

/// Throws Refusal, with the reason, when a catalogue cannot be opened.
void RequireCatalogue(int catalogue);

std::vector<Family> FamiliesOf(int catalogue);
std::vector<Section> SectionsOf(int catalogue, int type);

/// The property columns in table order, texts included.
std::vector<Field> FieldsOf(int catalogue, int type);

/// The library's rows of display values are of this size.
inline constexpr std::size_t MostValues = 16;

/// The columns of the display values in their order: numbers only, the area first.
std::vector<Field> DisplayFieldsOf(int catalogue, int type);

} // namespace browser
