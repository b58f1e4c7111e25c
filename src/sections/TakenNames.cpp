#include "sections/TakenNames.h"

#include "platform/Text.h"
#include "records/SectionNames.h"

#include <algorithm>

namespace sections {
namespace {

std::string inQuotes(const std::string& text) { return '"' + text + '"'; }

/// No name holds a line break.
std::string nameInTable(const NamedPlace& place) { return place.table + '\n' + place.name; }

} // namespace

void TakenNames::add(const NamedPlace& place) {
    m_programNames.emplace(dbsection::UpperCase(place.programName), place);
    m_names.insert(nameInTable(place));
}

void TakenNames::remove(const NamedPlace& place) {
    const auto [begin, end] = m_programNames.equal_range(dbsection::UpperCase(place.programName));
    const auto entry = std::find_if(begin, end, [&](const auto& candidate) {
        return candidate.second.table == place.table && candidate.second.name == place.name;
    });
    if (entry != end)
        m_programNames.erase(entry);
    if (const auto name = m_names.find(nameInTable(place)); name != m_names.end())
        m_names.erase(name);
}

std::optional<TakenNames::Fault> TakenNames::nameFault(const NamedPlace& place) const {
    if (const std::string fault = dbsection::NameFault(place.name); !fault.empty())
        return Fault{SectionError::InvalidName,
                     inQuotes(place.name) + " cannot be a section's name: " + fault + "."};
    if (m_names.contains(nameInTable(place)))
        return Fault{SectionError::DuplicateKey,
                     inQuotes(place.name) + ": " + dbsection::DuplicateNameText};
    return std::nullopt;
}

std::optional<TakenNames::Fault> TakenNames::programNameFault(const NamedPlace& place) const {
    if (const std::string fault = dbsection::VessaNameFault(place.programName); !fault.empty())
        return Fault{SectionError::InvalidName, inQuotes(place.programName) +
                                                    " cannot be a section's VessaName: " + fault +
                                                    "; choose another one."};
    const auto other = m_programNames.find(dbsection::UpperCase(place.programName));
    if (other == m_programNames.end())
        return std::nullopt;
    const NamedPlace& taken = other->second;
    return Fault{SectionError::DuplicateKey, "the section " + inQuotes(taken.name) + " of table " +
                                                 inQuotes(taken.table) + " has the VessaName " +
                                                 inQuotes(taken.programName) +
                                                 " already; choose another one."};
}

std::optional<TakenNames::Fault> TakenNames::fault(const NamedPlace& place,
                                                   const NamedPlace* present) const {
    if (present == nullptr || place.name != present->name)
        if (auto fault = nameFault(place))
            return fault;
    if (present == nullptr || !dbsection::EqualNoCase(place.programName, present->programName))
        return programNameFault(place);
    return std::nullopt;
}

} // namespace sections
