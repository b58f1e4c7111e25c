#include "Bindings.h"
#include "sections/NameIndex.h"

#include <pybind11/stl.h>
#include <string>
#include <tuple>
#include <vector>

namespace py = pybind11;

namespace bindings {
namespace {

using Hits = std::vector<std::tuple<sections::Section, std::string, std::string>>;

Hits hitsOf(const std::vector<sections::Hit>& found) {
    Hits hits;
    hits.reserve(found.size());
    for (const sections::Hit& hit : found)
        hits.emplace_back(hit.section, nameOf(hit.match), hit.name);
    return hits;
}

} // namespace

void defineNames(py::module_& module) {
    using sections::NameIndex;
    py::class_<NameIndex>(module, "NameIndex")
        .def(py::init<std::vector<sections::Catalogue>>())
        .def("find", [](const NameIndex& index,
                        std::string_view typed) { return hitsOf(index.find(typed)); })
        .def("nearest", [](const NameIndex& index, std::string_view typed, std::size_t count) {
            return hitsOf(index.nearest(typed, count));
        });
}

} // namespace bindings
