#include "records/CatalogueList.h"

#include "records/NameKey.h"

#include <algorithm>
#include <array>
#include <string>

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
    SectionCatalogue{index, stem, name, density, FamiliesOf##index
#define SECTION_USUAL_NAMES(names) , names
#define SECTION_END_CATALOGUE(index)                                                               \
    }                                                                                              \
    ,
#include "records/Catalogues.def"
};
static_assert(std::ranges::is_sorted(Catalogues, {}, &SectionCatalogue::index));
static_assert(Catalogues[LastCatalogueIndex - 1].index == LastCatalogueIndex);

bool IsCalled(const SectionCatalogue& catalogue, const dbsection::NameKey& wanted) {
    const std::string all =
        std::string(catalogue.stem) + ";" + catalogue.name + ";" + catalogue.usualNames;
    for (std::size_t begin = 0; begin <= all.size();) {
        const std::size_t end = std::min(all.find(';', begin), all.size());
        if (dbsection::NameKey(all.substr(begin, end - begin)) == wanted)
            return true;
        begin = end + 1;
    }
    return false;
}

} // namespace

std::span<const SectionCatalogue> GetCatalogues() { return Catalogues; }

const SectionCatalogue* FindCatalogue(int index) {
    const auto place = std::ranges::find(Catalogues, index, &SectionCatalogue::index);
    return place == Catalogues.end() ? nullptr : &*place;
}

const SectionCatalogue* FindCatalogue(std::string_view name) {
    const dbsection::NameKey wanted(name);
    const auto counted = GetCatalogues().first(LastCatalogueIndex);
    const auto place = std::ranges::find_if(counted, [&](const SectionCatalogue& catalogue) {
        return name == std::to_string(catalogue.index) ||
               (!wanted.IsEmpty() && IsCalled(catalogue, wanted));
    });
    return place == counted.end() ? nullptr : &*place;
}
