#include "commands/UserSection.h"

#include "commands/Options.h"
#include "files/SectionColumns.h"
#include "platform/Text.h"
#include "records/SectionNames.h"
#include "sources/CsvTable.h"
#include "units/UnitText.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>

namespace dbsection {
namespace {

bool MayBeZero(const sections::Column& column) {
    return column.quantity == Quantity::Number || column.quantity == Quantity::Angle ||
           column.quantity == Quantity::Warping || column.name == "GAP"; // two angles may touch
}

} // namespace

void UserFileOptions::Declare(CLI::App& app) {
    app.add_option("file", path, "Section file")->required();
    DeclarePassword(app, password, "Password of the file");
}

sections::UserFile UserFileOptions::File() const {
    return sections::UserFile(path.string(), ReadPassword(password, PasswordUse::Existing));
}

void UserSectionOptions::Declare(CLI::App& app) {
    app.add_option("family", family, "Shape family, e.g. \"Wide Flange\"")->required();
    app.add_option("name", name, "Section name")->required();
    app.add_option("values", values, "COLUMN=VALUE, in the table's units");
    app.add_option("--vessa-name", vessaName, "The analysis program's name");
}

CommandError TableError(const sections::Family& family, const std::string& fault) {
    CommandError error(
        fmt::format("{}: table \"{}\": {}", family.catalogue().path(), family.name(), fault));
    return error;
}

Quantities ParseValues(const sections::Family& family, const std::vector<std::string>& texts) {
    Quantities figures;
    for (const std::string& text : texts) {
        const std::size_t equals = text.find('=');
        const std::string title = text.substr(0, equals);
        const auto& columns = family.columns();
        const auto column = std::ranges::find_if(columns, [&](const sections::Column& candidate) {
            return candidate.quantity != Quantity::Text && EqualNoCase(candidate.name, title);
        });
        if (column == columns.end())
            throw TableError(family, fmt::format("\"{}\" names none of its columns; \"sectiondb "
                                                 "user list FILE FAMILY\" prints them.",
                                                 text));
        const std::optional<double> value =
            equals == std::string::npos ? std::nullopt : ParseNumber(text.substr(equals + 1));
        if (!value || *value < 0 || (*value == 0 && !MayBeZero(*column)))
            throw TableError(family,
                             fmt::format("\"{}\": the {} must be a number above zero, in {}.", text,
                                         column->meaning, column->unit));
        if (!figures.try_emplace(column->name, *value, column->unit).second)
            throw TableError(family, fmt::format("\"{}\": {} is given twice.", text, column->name));
    }
    return figures;
}

void RequireAll(const sections::Family& family, const Quantities& figures) {
    std::string missing;
    for (const sections::Column& column : family.columns()) {
        const bool isOfLayout = !column.meaning.empty();
        if (isOfLayout && column.quantity != Quantity::Text && !figures.contains(column.name))
            missing += fmt::format("{}{} ({}, in {})", missing.empty() ? "" : ", ", column.name,
                                   column.meaning, column.unit);
    }
    if (!missing.empty())
        throw TableError(family, "these values are missing: " + missing + ".");
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

void PrintSection(const sections::Family& family, std::int64_t recordNumber) {
    const auto section =
        std::ranges::find(family.sections(), recordNumber, &sections::Section::recordNumber);
    Print(TableOf({{*section}}, ColumnsOf(family)), TableForm::Text);
}

} // namespace dbsection
