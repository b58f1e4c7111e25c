// Picks the lightest shape of a family that is strong enough, and tells of it in two unit systems:
//     values FOLDER CATALOGUE FAMILY PLASTIC-MODULUS UNIT
//     values catalogues American "W Shape" 95.4 in^3
//     values catalogues German "HE Shape" 1000 cm^3
//     values catalogues Japanese "H Shape" 1000 cm^3
#include "sections/Error.h"
#include "sections/Library.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <span>
#include <vector>

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 6) {
        std::cerr << "values FOLDER CATALOGUE FAMILY PLASTIC-MODULUS UNIT\n";
        return 2;
    }
    try {
        const sections::Library library(arguments[1]);
        const auto shapes = library.open(arguments[2]).family(arguments[3]).sections();
        const auto required = sections::Quantity(std::atof(arguments[4]), arguments[5]).as<3>();
        std::vector<sections::Section> strong;
        std::ranges::copy_if(shapes, std::back_inserter(strong), [&](const auto& shape) {
            return shape.majorPlasticModulus() >= required;
        });
        if (strong.empty()) {
            std::cout << "No shape of the family is strong enough.\n";
            return 1;
        }
        const auto beam = std::ranges::min(strong, {}, &sections::Section::weight);
        std::cout << beam.name() << ": " << beam.weight().in("lb/ft") << " lb/ft, "
                  << beam.depth().in("in") << " in deep; " << beam.weight().in("kg/m") << " kg/m, "
                  << beam.depth().in("mm") << " mm deep\n";
        if (const sections::Origin* origin = beam.origin())
            std::cout << "by " << origin->standard << '\n';
        return 0;
    } catch (const sections::Error& error) {
        std::cerr << "values: " << error.what() << '\n';
        return 1;
    }
}
