#include "records/CatalogueList.h"

#include <algorithm>
#include <array>

namespace {

// Densities in kg/m^3.
constexpr double Steel = 7851.535;
constexpr double Aluminium = 2712.6; // 0.098 lb/in^3

constexpr ShapeType::Code ShapeOf(LayoutId layout) {
    constexpr std::array shapes{
#define SECTION_LAYOUT(id, name, shape) ShapeType::shape,
#include "records/Layouts.def"
    };
    return shapes[static_cast<std::size_t>(layout)];
}

#define SECTION_CATALOGUE(index, Class, Record, stem, name, density)                               \
    constexpr std::array FamiliesOf##index {
#define SECTION_FAMILY(member, layout, table, type) SECTION_FAMILY_ALIKE(layout, table, type)
#define SECTION_FAMILY_ALIKE(layout, table, type)                                                  \
    SectionFamily{table, type, LayoutId::layout, ShapeOf(LayoutId::layout)},
#define SECTION_SHAPED_FAMILY(member, layout, table, type, shape)                                  \
    SectionFamily{table, type, LayoutId::layout, ShapeType::shape},
#define SECTION_END_CATALOGUE(index)                                                               \
    }                                                                                              \
    ;
#include "records/Catalogues.def"

constexpr std::array Catalogues{
#define SECTION_CATALOGUE(index, Class, Record, stem, name, density)                               \
    SectionCatalogue{index, stem, name, density, FamiliesOf##index},
#include "records/Catalogues.def"
};
static_assert(std::ranges::is_sorted(Catalogues, {}, &SectionCatalogue::index));
static_assert(Catalogues[LastCatalogueIndex - 1].index == LastCatalogueIndex);

} // namespace

std::span<const SectionCatalogue> GetCatalogues() { return Catalogues; }

const SectionCatalogue* FindCatalogue(int index) {
    const auto place = std::ranges::find(Catalogues, index, &SectionCatalogue::index);
    return place == Catalogues.end() ? nullptr : &*place;
}
