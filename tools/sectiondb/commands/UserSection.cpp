#include "commands/UserSection.h"

#include "commands/Options.h"
#include "files/SectionColumns.h"
#include "geometry/RowJudgement.h"
#include "platform/Text.h"
#include "records/SectionNames.h"
#include "sources/CsvTable.h"
#include "sources/SourceUnits.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>

namespace dbsection {
namespace {

/// The unit of a parameter: that of the table's lengths, or what goes with it.
std::string UnitOf(const GeometryParameter& parameter, const sections::Family& family) {
    const auto length =
        std::ranges::find(family.columns(), Quantity::Length, &sections::Column::quantity);
    const UnitSystem* const system =
        length == family.columns().end() ? nullptr : FindUnitSystemOfLength(length->unit);
    return UnitOf(parameter.quantity, system == nullptr ? *FindUnitSystem("metric") : *system);
}

/// "AX (cross-sectional area, in CM^2)".
std::string Described(const sections::Family& family, const std::string& name) {
    const FigureTitle title = FindFigure(family, name);
    const bool isPlain = title.quantity == Quantity::Number;
    return fmt::format("{} ({}{})", title.name, title.meaning, isPlain ? "" : ", in " + title.unit);
}

std::string Listed(const sections::Family& family, const std::vector<std::string>& names,
                   const char* separator) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : separator) + Described(family, name);
    return text;
}

/// The model of a section, and what it was not told: "rolled angle (toe 0.5 assumed; ends not
/// given)".
std::string ModelOf(const sections::Completion& whole, const sections::Draft& given) {
    std::string unknown;
    for (const GeometryParameter& parameter : whole.model->parameters) {
        if (given.figures.contains(parameter.name))
            continue;
        const auto assumed = whole.parameters.find(parameter.name);
        unknown += unknown.empty() ? "" : "; ";
        unknown += assumed == whole.parameters.end()
                       ? fmt::format("{} not given", parameter.name)
                       : fmt::format("{} {} assumed", parameter.name, assumed->second);
    }
    return whole.model->name + (unknown.empty() ? "" : " (" + unknown + ")");
}

/// What the models of the layout miss, e.g. "AX (...); or radius (...)"; empty where one of them
/// knows enough, or there is none.
std::string MissingForGeometry(const sections::Family& family, const sections::Draft& draft) {
    Figures given;
    for (const auto& [name, figure] : draft.figures)
        given.emplace(FindFigure(family, name).name, 0);
    std::string text;
    for (const auto& names : MissingFor(family.layout(), given, given)) {
        if (names.empty())
            return "";
        text += (text.empty() ? "" : "; or ") + Listed(family, names, " and ");
    }
    return text;
}

std::string MissingColumns(const sections::Family& family, const sections::Draft& draft) {
    std::vector<std::string> names;
    for (const sections::Column& column : family.columns()) {
        const bool isOfLayout = !column.meaning.empty();
        const bool isGiven = std::ranges::any_of(draft.figures, [&](const auto& figure) {
            return EqualNoCase(figure.first, column.name);
        });
        if (isOfLayout && column.quantity != Quantity::Text && !isGiven)
            names.push_back(column.name);
    }
    return Listed(family, names, ", ");
}

/// "COLUMN=VALUE".
std::pair<std::string, sections::Quantity> ParseValue(const sections::Family& family,
                                                      const std::string& text) {
    const std::size_t equals = text.find('=');
    const FigureTitle title = FindFigure(family, text.substr(0, equals));
    const std::optional<double> value =
        equals == std::string::npos ? std::nullopt : ParseNumber(text.substr(equals + 1));
    if (!value)
        throw TableError(family, fmt::format("\"{}\": the {} must be a number, in {}.", text,
                                             title.meaning, title.unit));
    return {title.name, {*value, title.unit}};
}

} // namespace

void UserFileOptions::Declare(CommandLine& line) {
    line.Add("file", path, "Section file").Required();
    DeclarePassword(line, password, "Password of the file");
}

sections::UserFile UserFileOptions::File() const {
    return sections::UserFile(path.string(), ReadPassword(password, PasswordUse::Existing));
}

void PublishedBound::Declare(CommandLine& line) {
    line.Add("--as-published", m_percent,
             "Keep figures that are up to so much from what the dimensions give")
        .Value("PERCENT");
}

double PublishedBound::Share() const {
    if (!(m_percent >= 0 && m_percent < 100))
        throw UsageError(fmt::format(
            "--as-published {}: give a bound above 0 and below 100 percent.", m_percent));
    return m_percent / 100;
}

void UserSectionOptions::Declare(CommandLine& line) {
    line.Add("family", family, "Shape family, e.g. \"Wide Flange\"").Required();
    line.Add("name", name, "Section name").Required();
    line.Add("values", values,
             "COLUMN=VALUE, in the table's units; or, to have the rest computed, a parameter "
             "of the geometry such as radius=15");
    line.Add("--vessa-name", vessaName, "The analysis program's name");
    bound.Declare(line);
}

sections::Draft UserSectionOptions::Draft(const sections::Family& ofFamily,
                                          const std::string& newName) const {
    sections::Draft draft{.name = newName, .programName = vessaName, .asPublished = bound.Share()};
    for (const std::string& text : values) {
        const auto [column, figure] = ParseValue(ofFamily, text);
        if (!draft.figures.try_emplace(column, figure).second)
            throw TableError(ofFamily, fmt::format("\"{}\": {} is given twice.", text, column));
    }
    return draft;
}

CommandError TableError(const sections::Family& family, const std::string& fault) {
    CommandError error(
        fmt::format("{}: table \"{}\": {}", family.catalogue().path(), family.name(), fault));
    return error;
}

FigureTitle FindFigure(const sections::Family& family, const std::string& name) {
    for (const sections::Column& column : family.columns())
        if (column.quantity != Quantity::Text && EqualNoCase(column.name, name))
            return {column.name, column.meaning, column.quantity, column.unit};
    if (const GeometryParameter* parameter = FindParameter(family.layout(), name))
        return {parameter->name, parameter->meaning, parameter->quantity,
                UnitOf(*parameter, family)};
    throw TableError(family,
                     fmt::format("\"{}\" names none of its columns; \"sectiondb user list FILE "
                                 "FAMILY\" prints them.",
                                 name));
}

sections::Section FindSection(const sections::Family& family, const std::string& name) {
    const sections::Sections all = family.sections();
    const auto isNamed = [&name](const std::string& candidate) {
        return EqualNoCase(candidate, name);
    };
    for (const auto names : {&sections::Section::name, &sections::Section::programName})
        if (const auto place = std::ranges::find_if(all, isNamed, names); place != all.end())
            return *place; // a public name goes before
    throw TableError(family, fmt::format("there is no section \"{}\".", name));
}

void RequireAll(const sections::Family& family, const sections::Draft& completed) {
    const std::string columns = MissingColumns(family, completed);
    if (columns.empty())
        return;
    const std::string needed = MissingForGeometry(family, completed);
    throw TableError(
        family, fmt::format("these values are missing: {}.", needed.empty() ? columns : needed));
}

void RequireVessaName(const sections::Draft& draft) {
    if (!NameFault(draft.name).empty())
        return;
    const std::string name =
        draft.programName.empty() ? VessaNameOf(draft.name) : draft.programName;
    if (const std::string fault = VessaNameFault(name); !fault.empty())
        throw CommandError(fmt::format(
            "\"{}\" cannot be a section's VessaName: {}; choose another one with --vessa-name.",
            name, fault));
}

void TellOfNumber(std::int64_t recordNumber) {
    if (recordNumber > sections::LastRecordNumber)
        Tell(fmt::format("The record numbers of the table go up to {}; analysis engines know those "
                         "up to {} only, and do not see the sections beyond.",
                         recordNumber, sections::LastRecordNumber));
}

void PrintSection(const sections::Family& family, std::int64_t recordNumber,
                  const sections::Draft& given, const sections::Completion& whole) {
    const auto section =
        std::ranges::find(family.sections(), recordNumber, &sections::Section::recordNumber);
    Print(TableOf({{*section}}, ColumnsOf(family)), TableForm::Text);
    std::string computed;
    for (const auto& [name, figure] : whole.draft.figures)
        if (!given.figures.contains(name))
            computed += (computed.empty() ? "" : ", ") + name;
    if (!computed.empty())
        fmt::print("Computed as {}: {}\n", ModelOf(whole, given), computed);
}

} // namespace dbsection
