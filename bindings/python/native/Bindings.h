// The parts of the extension module sectiondb._native, which the Python package builds on.
#pragma once

#include <pybind11/pybind11.h>

namespace bindings {

/// Failures of the library raise what sectiondb._errors makes of them.
void translateErrors();

void defineUnits(pybind11::module_& module);
void defineSections(pybind11::module_& module); ///< sections, families, catalogues, libraries
void defineNames(pybind11::module_& module);    ///< names as people type them
void defineExports(pybind11::module_& module);  ///< sections for other programs
void defineUserFiles(pybind11::module_& module);

} // namespace bindings
