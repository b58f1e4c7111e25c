// The C++ interface of values against a table of the program's own.
#include "Measure.h"

#include "sections/Library.h"

#include <memory>
#include <unordered_map>

namespace sectionbench {
namespace {

sections::Catalogue OpenAmerican(const Catalogues& catalogues) {
    return sections::Library(catalogues.PlainFolder()).open("American");
}

Action AreaByName(const Catalogues& catalogues) {
    return [american = OpenAmerican(catalogues), &names = catalogues.Names(),
            next = std::size_t{0}]() mutable {
        Keep(american.at(names[next++ % names.size()]).area().in(pow<2>(sections::units::mm)));
    };
}

/// What a program would compile in: structures in an array, and where a name stands in it.
struct Row {
    const char* name;
    double values[11];
};

Action AreaInArray(const Catalogues& catalogues) {
    auto rows = std::make_shared<std::vector<Row>>();
    auto places = std::make_shared<std::unordered_map<std::string, std::size_t>>();
    for (std::size_t i = 0; i < catalogues.Names().size(); ++i) {
        rows->push_back({catalogues.Names()[i].c_str(), {catalogues.Areas()[i]}});
        places->emplace(catalogues.Names()[i], i);
    }
    return [rows, places, &names = catalogues.Names(), next = std::size_t{0}]() mutable {
        constexpr double SquareInch = 25.4 * 25.4;
        Keep((*rows)[places->at(names[next++ % names.size()])].values[0] * SquareInch);
    };
}

} // namespace

std::vector<Measure> ValueMeasures() {
    return {
        {"an area by name through values", AreaByName, nullptr, {.microseconds = 0.15}},
        {"the same; an array behind a hash table", AreaByName, AreaInArray, {.ratio = 2}},
    };
}

} // namespace sectionbench
