// Units and catalogue objects.
#include "Measure.h"

#include "catalogues/Catalogues.h"
#include "dataaccess/Handles.h"
#include "units/UNIT.h"

#include <array>
#include <memory>
#include <stdexcept>

namespace sectionbench {
namespace {

/// The American catalogue with the protected file attached.
class American {
public:
    explicit American(const Catalogues& catalogues) {
        if (openDatabase(m_database.Address(), catalogues.Protected().c_str(), 1, 0, 0,
                         Catalogues::Password, nullptr) != 1)
            throw std::runtime_error("the catalogue cannot be opened");
        m_catalogue.SetDatabase(m_database.Get());
    }

    AISCSectionDB* operator->() { return &m_catalogue; }

private:
    DatabaseHandle m_database;
    AISCSectionDB m_catalogue;
};

Action ConvertUnit(const Catalogues& /*catalogues*/) {
    return
        [] { Keep(UNIT::ConvertUnitTo(1.0, "KIPS/INCHES^2", UNIT::Kilonewton, UNIT::Millimetre)); };
}

struct Wanted {
    const char* name;
    int type;
};
constexpr Wanted OfFirstTable{"W12X26", 1};
constexpr Wanted OfLateTable{"PIPE26STD", 10};

Action Summarise(const Catalogues& catalogues, const Wanted& wanted) {
    return [american = std::make_shared<American>(catalogues), &wanted] {
        int sectionType = 0;
        const std::unique_ptr<SECTIONINFO> section((*american)->GetSectionStructProperty(
            wanted.name, UNIT::Millimetre, UNIT::Kilonewton, &sectionType));
        Require(section && sectionType == wanted.type, "summarise a section");
    };
}

Action Display(const Catalogues& catalogues, const Wanted& wanted) {
    return [american = std::make_shared<American>(catalogues), &wanted] {
        int sectionType = 0;
        int recordNumber = 0;
        std::array<float, 16> values{};
        Require((*american)->GetSectionDataForGUI(AmericanIndex, wanted.name, &sectionType,
                                                  &recordNumber, values.data(), UNIT::Millimetre,
                                                  UNIT::Kilonewton) == 1 &&
                    sectionType == wanted.type,
                "display a section");
        Keep(values);
    };
}

} // namespace

std::vector<Measure> LibraryMeasures() {
    using Files = const Catalogues&;
    return {
        {"convert a compound unit", ConvertUnit, nullptr, {.microseconds = 1.0}},
        {"summarise a W shape in mm and kN",
         [](Files files) { return Summarise(files, OfFirstTable); },
         nullptr,
         {.microseconds = 6}},
        {"summarise a pipe in mm and kN",
         [](Files files) { return Summarise(files, OfLateTable); },
         nullptr,
         {.microseconds = 6}},
        {"display values of a W shape",
         [](Files files) { return Display(files, OfFirstTable); },
         nullptr,
         {.microseconds = 6}},
        {"display values of a pipe",
         [](Files files) { return Display(files, OfLateTable); },
         nullptr,
         {.microseconds = 6}},
    };
}

} // namespace sectionbench
