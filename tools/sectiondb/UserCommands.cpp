#include "interface/SectionDBInterface.h"
#include "platform/Text.h"
#include "sectiondb/CatalogueBuilder.h"
#include "sectiondb/Commands.h"
#include "sectiondb/CsvTable.h"
#include "sectiondb/OutputText.h"
#include "sectiondb/UserFile.h"
#include "units/UnitText.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <optional>
#include <string_view>

namespace dbsection {
namespace {

using Row = UserTable::Row;

/// The program's name of a section: its public name in capitals without blanks.
std::string VessaNameOf(const std::string& name) {
    std::string vessaName = UpperCase(name);
    std::erase(vessaName, ' ');
    return vessaName;
}

bool MayBeZero(const LayoutColumn& column) {
    return column.quantity == Quantity::Number || column.quantity == Quantity::Angle ||
           column.quantity == Quantity::Warping ||
           std::string_view(column.name) == "GAP"; // two angles may touch
}

/// "COLUMN=VALUE" texts by column, which must be properties of the table.
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

double FreeIdentifier(const UserTable& table) {
    double last = 0;
    for (const Row& row : table.Rows())
        last = std::max(last, row.id);
    if (last >= UserTable::LastIdentifier)
        throw table.Error(fmt::format("its last record number is {}, and no section can be added "
                                      "beyond {}; begin another file.",
                                      last, UserTable::LastIdentifier));
    return last + 1;
}

/// The values of all properties in order.
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

Row FindRow(const UserTable& table, const std::string& name) {
    const std::vector<Row> rows = table.Rows();
    for (const auto kind : {&Row::name, &Row::vessaName}) // a public name goes before
        for (const Row& row : rows)
            if (EqualNoCase(row.*kind, name))
                return row;
    throw table.Error(fmt::format("there is no section \"{}\".", name));
}

void Print(const UserTable& table, const std::vector<Row>& rows) {
    fmt::print("{:<20} {:<20}", "Name", "VessaName");
    for (const auto& [column, unit] : table.Properties())
        fmt::print(" {:>12}", column->name);
    fmt::print("\n{:<20} {:<20}", "", "");
    for (const auto& [column, unit] : table.Properties())
        fmt::print(" {:>12}", PlainText(LabelOf(unit)));
    for (const Row& row : rows) {
        fmt::print("\n{:<20} {:<20}", PlainText(row.name), PlainText(row.vessaName));
        for (const std::optional<double>& value : row.values)
            fmt::print(" {:>12}", value ? FigureText(*value, false) : "");
    }
    fmt::print("\n");
}

} // namespace

void CreateUserFile(const UserOptions& options) {
    const UserFileKind kind = KindOf(options.isGeneric);
    CatalogueSource source;
    source.stem = options.file.stem().string();
    source.title = kind.title;
    source.standard = "None";
    source.sourceNote = "The user's own sections";
    source.units = FindUnitSystem(options.units);
    if (source.units == nullptr)
        throw CommandError(
            fmt::format("\"{}\" is no system of units; give metric or US.", options.units));
    SectionDBInterface::InitSectionDBInterface();
    source.tables = MakeEmptyTables(
        dynamic_cast<const CatalogueSectionDB&>(
            *SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(kind.index))),
        *source.units);
    const std::string password = ReadPassword(options.password, PasswordUse::New);
    BuildCatalogue(
        source, options.file, password, [] {}, Existing::Refuse);
    fmt::print("{}: {} tables{}\n", PlainText(options.file.string()), source.tables.size(),
               password.empty() ? "" : ", protected");
}

void AddUserSection(const UserOptions& options) {
    SetPassword(options.password);
    UserFile file(options.file, UserFile::Purpose::Change);
    const UserTable table(file, options.family);
    Row row{FreeIdentifier(table), options.name,
            options.vessaName.empty() ? VessaNameOf(options.name) : options.vessaName,
            RequireAll(table, ParseValues(table, options.values))};
    table.Add(row);
    file.Commit();
    Print(table, {row});
}

void UpdateUserSection(const UserOptions& options) {
    SetPassword(options.password);
    UserFile file(options.file, UserFile::Purpose::Change);
    const UserTable table(file, options.family);
    Row row = FindRow(table, options.name);
    if (!options.newName.empty())
        row.name = options.newName;
    if (!options.vessaName.empty())
        row.vessaName = options.vessaName;
    auto values = ParseValues(table, options.values);
    for (std::size_t i = 0; i < row.values.size(); ++i)
        if (row.values[i])
            values.try_emplace(table.Properties()[i].column->name, *row.values[i]);
    row.values = RequireAll(table, values);
    table.Update(row);
    file.Commit();
    Print(table, {row});
}

void ListUserFile(const UserOptions& options) {
    SetPassword(options.password);
    const UserFile file(options.file, UserFile::Purpose::Read);
    if (options.family.empty()) {
        ListFamilies(file.Catalogue());
        return;
    }
    const UserTable table(file, options.family);
    Print(table, table.Rows());
}

} // namespace dbsection
