#include "Bindings.h"
#include "sections/UserFile.h"

#include <map>
#include <optional>
#include <pybind11/stl.h>
#include <string>
#include <utility>

namespace py = pybind11;

namespace bindings {
namespace {

using sections::Change;
using sections::Section;
using sections::UserFile;

using Figures = std::map<std::string, std::pair<double, std::string>>;
using Texts = std::map<std::string, std::string>;

sections::Draft draftOf(std::string name, std::string programName, const Figures& figures,
                        const Texts& texts, double asPublished) {
    sections::Draft draft{
        .name = std::move(name), .programName = std::move(programName), .asPublished = asPublished};
    for (const auto& [column, figure] : figures)
        draft.figures.emplace(column, sections::Quantity(figure.first, figure.second));
    draft.texts.insert(texts.begin(), texts.end());
    return draft;
}

/// A change until it is committed or given up, either of which lets others write again.
class OpenChange {
public:
    explicit OpenChange(Change change) : m_change(std::move(change)) {}

    Change& operator*() {
        if (!m_change)
            throw py::value_error("The change is over; begin another one.");
        return *m_change;
    }
    void commit() {
        (**this).commit();
        m_change.reset();
    }
    void giveUp() { m_change.reset(); }

private:
    std::optional<Change> m_change;
};

} // namespace

void defineUserFiles(py::module_& module) {
    py::class_<OpenChange>(module, "Change")
        .def("read", [](OpenChange& change) { return (*change).read(); })
        .def("add",
             [](OpenChange& change, std::string_view family, std::string name,
                std::string programName, const Figures& figures, const Texts& texts,
                double asPublished) {
                 return (*change).add(family, draftOf(std::move(name), std::move(programName),
                                                      figures, texts, asPublished));
             })
        .def("update",
             [](OpenChange& change, const Section& section, std::string name,
                std::string programName, const Figures& figures, const Texts& texts,
                double asPublished) {
                 (*change).update(section, draftOf(std::move(name), std::move(programName), figures,
                                                   texts, asPublished));
             })
        .def("remove",
             [](OpenChange& change, const Section& section) { (*change).remove(section); })
        .def("commit", &OpenChange::commit)
        .def("give_up", &OpenChange::giveUp);

    py::class_<UserFile>(module, "UserFile")
        .def(py::init<std::string, std::string>())
        .def("read", &UserFile::read)
        .def("change", [](const UserFile& file) { return OpenChange(file.change()); });
}

} // namespace bindings
