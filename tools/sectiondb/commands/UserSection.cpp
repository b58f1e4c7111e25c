#include "commands/UserSection.h"

#include "commands/Options.h"
#include "platform/Text.h"
#include "sources/CsvTable.h"

#include <algorithm>
#include <fmt/format.h>
#include <string_view>

namespace dbsection {
namespace {

bool MayBeZero(const LayoutColumn& column) {
    return column.quantity == Quantity::Number || column.quantity == Quantity::Angle ||
           column.quantity == Quantity::Warping ||
           std::string_view(column.name) == "GAP"; // two angles may touch
}

} // namespace

void UserFileOptions::Declare(CLI::App& app) {
    app.add_option("file", path, "Section file")->required();
    DeclarePassword(app, password, "Password of the file");
}

void UserSectionOptions::Declare(CLI::App& app) {
    app.add_option("family", family, "Shape family, e.g. \"Wide Flange\"")->required();
    app.add_option("name", name, "Section name")->required();
    app.add_option("values", values, "COLUMN=VALUE, in the table's units");
    app.add_option("--vessa-name", vessaName, "The analysis program's name");
}

std::map<std::string, double> ParseValues(const UserTable& table,
                                          const std::vector<std::string>& texts) {
    std::map<std::string, double> values;
    for (const std::string& text : texts) {
        const std::size_t equals = text.find('=');
        const std::string title = UpperCase(text.substr(0, equals));
        const auto& properties = table.Properties();
        const auto property = std::ranges::find_if(
            properties, [&](const auto& candidate) { return candidate.column->name == title; });
        if (property == properties.end())
            throw table.Error(fmt::format("\"{}\" names none of its columns; \"sectiondb user list "
                                          "FILE FAMILY\" prints them.",
                                          text));
        const std::optional<double> value =
            equals == std::string::npos ? std::nullopt : ParseNumber(text.substr(equals + 1));
        if (!value || *value < 0 || (*value == 0 && !MayBeZero(*property->column)))
            throw table.Error(fmt::format("\"{}\": the {} must be a number above zero, in {}.",
                                          text, property->column->meaning, property->unit));
        if (!values.try_emplace(title, *value).second)
            throw table.Error(fmt::format("\"{}\": {} is given twice.", text, title));
    }
    return values;
}

std::vector<std::optional<double>> RequireAll(const UserTable& table,
                                              const std::map<std::string, double>& values) {
    std::vector<std::optional<double>> all;
    std::string missing;
    for (const auto& [column, unit] : table.Properties()) {
        const auto place = values.find(column->name);
        if (place == values.end())
            missing += fmt::format("{}{} ({}, in {})", missing.empty() ? "" : ", ", column->name,
                                   column->meaning, unit);
        else
            all.emplace_back(place->second);
    }
    if (!missing.empty())
        throw table.Error("these values are missing: " + missing + ".");
    return all;
}

Table TableOf(const UserTable& table, const std::vector<UserTable::Row>& rows) {
    Table printed({{"Name"}, {"VessaName"}});
    for (const auto& [column, unit] : table.Properties())
        printed.columns.push_back({column->name, LabelOf(unit)});
    for (const UserTable::Row& row : rows) {
        Table::Row& cells = printed.rows.emplace_back();
        cells = {row.name, row.vessaName};
        for (const std::optional<double>& value : row.values)
            cells.push_back(value ? Table::Cell(Figure{*value}) : Table::Cell());
    }
    return printed;
}

} // namespace dbsection
