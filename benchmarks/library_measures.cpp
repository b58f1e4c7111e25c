// Units and catalogue objects.
#include "Measure.h"

#include "catalogues/Catalogues.h"
#include "dataaccess/Handles.h"
#include "units/UNIT.h"

#include <memory>
#include <stdexcept>

namespace sectionbench {
namespace {

constexpr int WShape = 1;

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

Action SummariseSection(const Catalogues& catalogues) {
    return [american = std::make_shared<American>(catalogues)] {
        int sectionType = 0;
        const std::unique_ptr<SECTIONINFO> section((*american)->GetSectionStructProperty(
            "W12X26", UNIT::Millimetre, UNIT::Kilonewton, &sectionType));
        if (!section || sectionType != WShape)
            throw std::runtime_error("the section was not found");
    };
}

} // namespace

std::vector<Measure> LibraryMeasures() {
    return {
        {"convert a compound unit", ConvertUnit, nullptr, {.microseconds = 1.0}},
        {"summarise a section in mm and kN", SummariseSection, nullptr, {}},
    };
}

} // namespace sectionbench
