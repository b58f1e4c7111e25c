#include "Bindings.h"
#include "platform/Version.h"
#include "sections/Error.h"
#include "sections/Quantity.h"
#include "units/UnitText.h"

#include <string>

namespace py = pybind11;

namespace bindings {
namespace {

/// The identifier of a unit of length or force; refuses other names.
unsigned int unitOf(const std::string& name, bool (*isOfKind)(unsigned int), const char* kind) {
    const unsigned int id = dbsection::UnitIdOf(name, dbsection::UnitNames::Printed);
    if (!isOfKind(id))
        throw py::value_error("\"" + name + "\" is no unit of " + kind + ".");
    return id;
}

} // namespace

void translateErrors() {
    py::register_exception_translator([](std::exception_ptr failure) {
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (const sections::Error& error) {
            const py::object made = py::module_::import("sectiondb._errors")
                                        .attr("error_of")(error.what(), error.number());
            PyErr_SetObject(py::type::of(made).ptr(), made.ptr());
        }
    });
}

void defineUnits(py::module_& module) {
    module.def("convert", [](double figure, const std::string& unit, const std::string& to) {
        return sections::Quantity(figure, unit).in(to);
    });
    module.def("label", [](const std::string& unit) { return dbsection::LabelOf(unit); });
    module.def("label_in", [](const std::string& unit, const std::string& length,
                              const std::string& force) {
        return dbsection::LabelOf(unit, {unitOf(length, dbsection::UnitId::IsLength, "length"),
                                         unitOf(force, dbsection::UnitId::IsForce, "force")});
    });
}

} // namespace bindings

PYBIND11_MODULE(_native, module) {
    bindings::translateErrors();
    module.def("version", [] { return dbsection_version(); });
    bindings::defineUnits(module);
    bindings::defineSections(module);
    bindings::defineNames(module);
    bindings::defineExports(module);
    bindings::defineUserFiles(module);
}
