// The values of sections in the chosen units.
#include "Commands.h"
#include "Print.h"
#include "Text.h"

#include <array>
#include <iostream>

namespace browser {
namespace {

void PrintTitle(const Session& session, const Section& section) {
    std::cout << section.name << " (" << session.Place() << ")\n";
}

/// Calls by name take the first section of that name in the catalogue: it must be this one.
Section FindByName(const Session& session, const CString& name) {
    const int catalogue = session.Catalogue();
    Section section = session.FindSection(name);
    CUIntArray types;
    SectionDBInterface::GetSectionTypeFromVessaName(catalogue, section.name, types);
    const int first = types.IsEmpty() ? 0 : static_cast<int>(types[0]);
    if (first != 0 && first != session.ChosenFamily().type)
        throw Refusal(section.name + " is also in the family " +
                      SectionDBInterface::GetTableFromSectionType(catalogue, first) +
                      ", which comes first.");
    return section;
}

bool IsAngle(const Session& session) {
    return SectionDBInterface::GetShapeTypeFromSection(
               session.Catalogue(), session.ChosenFamily().type) == ShapeType::Angle;
}

struct SummaryLine {
    const char* label;
    double value;
    const char* unit; ///< any of its kind: it only tells how the label reads
};

std::vector<SummaryLine> LinesOf(const SECTIONINFO& info, bool isAngle) {
    const auto& [first, second] = info.Further;
    return {{"weight per length", info.WeightPerLength, "KIPS/INCHES"},
            {"area", info.Area, "INCHES^2"},
            {"moment of inertia, major axis", info.MajorInertia, "INCHES^4"},
            {"elastic modulus, major axis", info.MajorModulus, "INCHES^3"},
            {"radius of gyration, major axis", info.MajorRadius, "INCHES"},
            {"moment of inertia, minor axis", info.MinorInertia, "INCHES^4"},
            {"elastic modulus, minor axis", info.MinorModulus, "INCHES^3"},
            {"radius of gyration, minor axis", info.MinorRadius, "INCHES"},
            isAngle ? SummaryLine{"least radius of gyration", first, "INCHES"}
                    : SummaryLine{"plastic modulus, major axis", first, "INCHES^3"},
            isAngle ? SummaryLine{"angle of the principal axes", second, "DEGREE"}
                    : SummaryLine{"plastic modulus, minor axis", second, "INCHES^3"},
            {"torsion constant", info.Last, "INCHES^4"}};
}

} // namespace

void Show(Session& session, const Arguments& arguments) {
    const Section section = session.FindSection(Joined(arguments));
    const auto& [length, force] = session.units;
    const int type = session.ChosenFamily().type;
    CString name;
    std::array<float, MostValues> values{};
    if (SectionDBInterface::GetSectionDataForGUI(session.Catalogue(), type, section.record, &name,
                                                 values.data(), "", length, force) != 1)
        throw Refusal(section.name + " cannot be read.");
    PrintTitle(session, section);
    std::vector<Row> rows;
    for (const auto& [field, unit] : DisplayFieldsOf(session.Catalogue(), type))
        rows.push_back({field, Text(values.at(rows.size())), ColumnLabel(unit, session.units)});
    PrintTable(rows, "lrl");
    if (!session.IsPreferred(section))
        std::cout << "It is not among the preferred sections.\n";
}

void ShowAll(Session& session, const Arguments& /*arguments*/) {
    const int catalogue = session.Catalogue();
    const int type = session.ChosenFamily().type;
    const auto& [length, force] = session.units;
    // The library fills one row of values for each section, and makes no room for them.
    const int count = SectionDBInterface::GetSectionCount(catalogue, type);
    const auto values = std::make_unique<float[][MostValues]>(static_cast<std::size_t>(count));
    CStringArray names;
    SectionDBInterface::GetAllSectionDataForGUI(catalogue, type, &names, values.get(), "", length,
                                                force);
    if (names.GetSize() < count)
        throw Refusal("The library does not give all values here; \"show\" one section.");
    std::vector<Row> rows{{"Name"}, {""}};
    for (const auto& [field, unit] : DisplayFieldsOf(catalogue, type)) {
        rows[0].push_back(field);
        rows[1].push_back(ColumnLabel(unit, session.units));
    }
    const std::size_t columns = rows[0].size() - 1;
    for (int i = 0; i < names.GetSize(); ++i) {
        Row& row = rows.emplace_back(Row{names[i]});
        for (std::size_t k = 0; k < columns; ++k)
            row.push_back(Text(values[static_cast<std::size_t>(i)][k]));
    }
    PrintTable(rows, "lr");
}

void Summary(Session& session, const Arguments& arguments) {
    const Section section = FindByName(session, Joined(arguments));
    int type = 0;
    const OwnedRecord record(static_cast<SectionRecord*>(
        SectionDBInterface::GetSectionStructProperty(session.Catalogue(), section.name, type,
                                                     session.units.length, session.units.force,
                                                     "")));
    const auto* info = dynamic_cast<const SECTIONINFO*>(record.get());
    if (info == nullptr)
        throw Refusal("The library has no summary of " + section.name + ".");
    PrintTitle(session, section);
    std::vector<Row> rows;
    for (const auto& [label, value, unit] : LinesOf(*info, IsAngle(session)))
        if (value != 0) // what the table does not keep
            rows.push_back({label, Text(value), ColumnLabel(unit, session.units)});
    PrintTable(rows, "lrl");
}

void PrincipalAngle(Session& session, const Arguments& arguments) {
    const Section section = FindByName(session, Joined(arguments));
    if (!IsAngle(session))
        throw Refusal(section.name + " is no angle section.");
    double angle = 0;
    if (SectionDBInterface::GetSectionPrincipalAngle(session.Catalogue(), section.name, &angle) !=
        1)
        throw Refusal(section.name + " cannot be read.");
    std::cout << section.name << ": principal axes at " << Text(angle) << " deg\n";
}

} // namespace browser
