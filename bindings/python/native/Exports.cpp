#include "Bindings.h"
#include "exchange/Exchange.h"

#include <optional>
#include <pybind11/stl.h>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace bindings {
namespace {

using sections::Section;

dbsection::Symbols symbolsOf(const std::string& name) {
    if (const auto symbols = dbsection::SymbolsOf(name))
        return *symbols;
    throw py::value_error("\"" + name + "\" are no symbols; use program, aisc or eurocode.");
}

std::optional<dbsection::ExchangeLength> lengthOf(const std::string& name) {
    if (name.empty())
        return std::nullopt;
    if (name != "mm" && name != "in")
        throw py::value_error("\"" + name + "\" is no unit of exports; use mm or in.");
    return name == "mm" ? dbsection::ExchangeLength::Millimetre : dbsection::ExchangeLength::Inch;
}

const dbsection::ExchangeFormat& formatOf(const std::string& name) {
    if (const auto* format = dbsection::FindExchangeFormat(name))
        return *format;
    std::string known;
    for (const dbsection::ExchangeFormat& format : dbsection::ExchangeFormats())
        known.append(known.empty() ? "" : ", ").append(format.name);
    throw py::value_error("There is no format \"" + name + "\"; the formats are " + known + ".");
}

/// The file, and why sections were left out of it, where they may be.
std::pair<py::bytes, std::vector<std::string>>
exportedIn(const std::string& format, const std::vector<Section>& sections,
           const std::string& length, const std::string& symbols, bool mayLeaveOut) {
    std::vector<std::string> faults;
    dbsection::ExchangeOptions options{.length = lengthOf(length), .symbols = symbolsOf(symbols)};
    if (mayLeaveOut)
        options.leaveOut = [&](const sections::Error& fault) { faults.emplace_back(fault.what()); };
    const dbsection::ExchangeFormat& writer = formatOf(format);
    std::ostringstream file;
    {
        const py::gil_scoped_release others;
        Write(writer, sections, options, file);
    }
    return {py::bytes(file.str()), std::move(faults)};
}

/// Symbol, figure and unit of all that a section keeps or that follows from it.
std::vector<std::tuple<std::string, double, std::string>> figuresOf(const Section& section,
                                                                    const std::string& symbols) {
    const dbsection::Symbols chosen = symbolsOf(symbols);
    std::vector<std::tuple<std::string, double, std::string>> figures;
    const auto add = [&](const std::string& column, const std::optional<sections::Quantity>& kept) {
        if (kept)
            figures.emplace_back(SymbolOf(column, chosen), kept->figure(), kept->unit());
    };
    const sections::Family family = section.family();
    for (const sections::Column& column : family.columns())
        add(column.name, section.find(column.name));
    const auto columns = family.derivedColumns();
    const auto derived = section.allDerived();
    for (std::size_t i = 0; i < derived.size(); ++i)
        add(columns[i].name, derived[i]);
    return figures;
}

} // namespace

void defineExports(py::module_& module) {
    module.def("export", exportedIn);
    module.def("figures", figuresOf);
    module.def("axes", [](const std::string& symbols) { return AxesOf(symbolsOf(symbols)); });
}

} // namespace bindings
