#include "Bindings.h"
#include "drawing/Drawing.h"
#include "records/SectionLayout.h"
#include "sections/Library.h"

#include <array>
#include <filesystem>
#include <optional>
#include <pybind11/stl.h>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

namespace py = pybind11;

namespace bindings {
namespace {

using sections::Catalogue;
using sections::Family;
using sections::Library;
using sections::Section;

/// A property that follows from the columns, in a unit of its dimension.
struct Property {
    std::string_view name;
    double (*in)(const Section& section, std::string_view unit);
};

template <auto Member>
constexpr Property propertyOf(std::string_view name) {
    return {name, [](const Section& section, std::string_view unit) {
                return (section.*Member)().in(unit);
            }};
}

constexpr std::array Properties{
    propertyOf<&Section::area>("area"),
    propertyOf<&Section::depth>("depth"),
    propertyOf<&Section::width>("width"),
    propertyOf<&Section::flangeThickness>("flange_thickness"),
    propertyOf<&Section::webThickness>("web_thickness"),
    propertyOf<&Section::thickness>("thickness"),
    propertyOf<&Section::majorInertia>("major_inertia"),
    propertyOf<&Section::minorInertia>("minor_inertia"),
    propertyOf<&Section::torsionConstant>("torsion_constant"),
    propertyOf<&Section::warpingConstant>("warping_constant"),
    propertyOf<&Section::majorPlasticModulus>("major_plastic_modulus"),
    propertyOf<&Section::minorPlasticModulus>("minor_plastic_modulus"),
    propertyOf<&Section::majorElasticModulus>("major_elastic_modulus"),
    propertyOf<&Section::minorElasticModulus>("minor_elastic_modulus"),
    propertyOf<&Section::majorRadius>("major_radius"),
    propertyOf<&Section::minorRadius>("minor_radius"),
    propertyOf<&Section::centroidHeight>("centroid_height"),
    propertyOf<&Section::centroidOffset>("centroid_offset"),
    propertyOf<&Section::weight>("weight"),
};

double propertyIn(const Section& section, std::string_view name, std::string_view unit) {
    for (const Property& property : Properties)
        if (property.name == name)
            return property.in(section, unit);
    throw py::attribute_error(std::string(name));
}

/// What a column keeps: a figure, a text, or nothing.
using Kept = std::variant<std::monostate, double, std::string>;

Kept keptIn(const Section& section, std::string_view column) {
    if (const auto quantity = section.find(column))
        return quantity->figure();
    if (const auto text = section.findText(column))
        return std::string(*text);
    return {};
}

const char* kindOf(::Quantity quantity) {
    switch (quantity) {
    case ::Quantity::Text:
        return "text";
    case ::Quantity::Number:
        return "number";
    case ::Quantity::Angle:
        return "angle";
    default:
        return "measure";
    }
}

/// Standard, remark, what was left out, and production.
std::optional<std::array<std::string, 4>> originOf(const Section& section) {
    const sections::Origin* const origin = section.origin();
    if (origin == nullptr)
        return std::nullopt;
    return std::array{origin->standard, origin->remark, origin->leftOut, origin->production};
}

std::vector<std::pair<std::string, bool>> aliasesOf(const Section& section) {
    std::vector<std::pair<std::string, bool>> aliases;
    for (const sections::Alias& alias : section.aliases())
        aliases.emplace_back(alias.name, alias.isSuperseded);
    return aliases;
}

std::string svgOf(const Section& section, std::string title, std::string subtitle,
                  std::vector<std::pair<std::string, std::string>> values) {
    return Svg(dbsection::DrawSection(
        section.outline(),
        {.title = std::move(title), .subtitle = std::move(subtitle), .values = std::move(values)}));
}

Section sectionAt(const Family& family, std::size_t row) {
    if (row >= family.size())
        throw py::index_error("there is no such row");
    return family[row];
}

/// Name, unit as it is kept, meaning, kind.
using ColumnParts = std::tuple<std::string, std::string, std::string, const char*>;

std::vector<ColumnParts> columnsOf(const Family& family) {
    std::vector<ColumnParts> columns;
    columns.reserve(family.columns().size());
    for (const sections::Column& column : family.columns())
        columns.emplace_back(column.name, column.unit, column.meaning, kindOf(column.quantity));
    return columns;
}

} // namespace

void defineSections(py::module_& module) {
    py::class_<Section>(module, "Section")
        .def_property_readonly("name", &Section::name)
        .def_property_readonly("program_name", &Section::programName)
        .def_property_readonly("record_number", &Section::recordNumber)
        .def_property_readonly("family", &Section::family)
        .def_property_readonly("principal_angle", &Section::principalAngle)
        .def_property_readonly("is_changed", &Section::isChanged)
        .def_property_readonly("origin", originOf)
        .def_property_readonly("aliases", aliasesOf)
        .def("kept", keptIn)
        .def("property", propertyIn)
        .def("source", [](const Section& section,
                          std::string_view column) { return nameOf(section.source(column)); })
        .def("svg", svgOf);

    py::class_<Family>(module, "Family")
        .def_property_readonly("name", &Family::name)
        .def_property_readonly(
            "shape", [](const Family& family) { return GetSectionLayout(family.layout()).name; })
        .def_property_readonly("section_type", &Family::sectionType)
        .def_property_readonly("catalogue", &Family::catalogue)
        .def_property_readonly("columns", columnsOf)
        .def_property_readonly("standards", &Family::standards)
        .def("find", &Family::find)
        .def("__len__", &Family::size)
        .def("__getitem__", sectionAt);

    py::class_<Catalogue>(module, "Catalogue")
        .def_property_readonly("number", &Catalogue::number)
        .def_property_readonly("name", &Catalogue::name)
        .def_property_readonly("path", &Catalogue::path)
        .def_property_readonly("standard", &Catalogue::standard)
        .def_property_readonly("layout_version", &Catalogue::layoutVersion)
        .def_property_readonly("families", &Catalogue::families)
        .def("family", &Catalogue::family)
        .def("find", py::overload_cast<std::string_view>(&Catalogue::find, py::const_));

    py::class_<Library>(module, "Library")
        .def(py::init([](const std::string& folder, std::string password) {
            return Library(folder.empty() ? Library().folder() : std::filesystem::path(folder),
                           std::move(password));
        }))
        .def_property_readonly("folder",
                               [](const Library& library) { return library.folder().string(); })
        .def_property_readonly("numbers", &Library::numbers)
        .def("open",
             [](const Library& library, int number) {
                 const py::gil_scoped_release others;
                 return library.open(number);
             })
        .def_static("name_of", &Library::nameOf)
        .def_static("number_of", &Library::numberOf);
}

} // namespace bindings
