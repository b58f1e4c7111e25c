#include "commands/Options.h"

#include "output/Messages.h"

#include <charconv>
#include <fmt/format.h>
#include <system_error>

namespace dbsection {

namespace {

std::size_t LimitOf(const std::string& text) {
    std::size_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || value == 0)
        throw UsageError(fmt::format("The limit \"{}\" is no whole number above 0.", text));
    return value;
}

Symbols SymbolsNamed(const std::string& name) {
    if (const auto symbols = SymbolsOf(name))
        return *symbols;
    throw UsageError(fmt::format("\"{}\" are no symbols; use program, aisc or eurocode.", name));
}

} // namespace

void DeclarePassword(CommandLine& line, PasswordSource& password, const char* meaning) {
    auto text = line.Add("--password", password.text,
                         std::string(meaning) + " (default: SECTIONDB_PASSWORD)");
    text.Value("TEXT");
    line.Add("--password-file", password.file,
             "The same in the first line of a file; of - it is asked for on a terminal")
        .Value("FILE")
        .Excludes(text);
}

void CatalogueOptions::Declare(CommandLine& line) {
    line.Add("--folder", m_folder,
             "Folder of the catalogue files (default: SECTIONDB_FOLDER, or those installed)")
        .Value("FOLDER");
    line.Add("--user", m_userFile,
             "File of your own sections, the catalogue \"own\" (default: SECTIONDB_USER)")
        .Value("FILE");
    DeclarePassword(line, m_password, "Password of the catalogue files");
}

CatalogueFolder CatalogueOptions::Folder() const {
    return {m_folder, ReadPassword(m_password, PasswordUse::Existing), m_userFile};
}

void FormOptions::Declare(CommandLine& line) {
    auto csv = line.AddFlag("--csv", m_csv, "Print comma-separated text");
    line.AddFlag("--json", m_json, "Print JSON").Excludes(csv);
}

TableForm FormOptions::Form() const {
    return m_csv ? TableForm::Csv : m_json ? TableForm::Json : TableForm::Text;
}

void LimitOption::Declare(CommandLine& line, const char* meaning) {
    line.AddTaken(
            "--limit", [this](const std::string& text) { m_value = LimitOf(text); }, meaning)
        .Value("NUMBER");
}

void SymbolOptions::Declare(CommandLine& line) {
    line.AddTaken(
            "--symbols", [this](const std::string& name) { m_choice = SymbolsNamed(name); },
            "How properties are called: program, aisc or eurocode")
        .Value("SYMBOLS");
}

void UnitOptions::Declare(CommandLine& line) {
    DeclareLength(line);
    line.AddTaken(
            "--force",
            [this](const std::string& name) {
                m_choice.force = ChooseUnit(UnitId::Kip, UnitId::Meganewton, name, "force");
            },
            "kip, lb, kg, t, N, daN, kN or MN")
        .Value("UNIT");
}

void UnitOptions::DeclareLength(CommandLine& line) {
    line.AddTaken(
            "--length",
            [this](const std::string& name) {
                m_choice.length = ChooseUnit(UnitId::Inch, UnitId::Kilometre, name, "length");
            },
            "in, ft, yd, mm, cm, dm, m or km")
        .Value("UNIT");
}

} // namespace dbsection
