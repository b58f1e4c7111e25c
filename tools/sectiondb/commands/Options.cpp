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

void DeclarePassword(CLI::App& app, PasswordSource& password, const char* meaning) {
    auto* text = app.add_option("--password", password.text,
                                std::string(meaning) + " (default: SECTIONDB_PASSWORD)");
    text->option_text("TEXT");
    app.add_option("--password-file", password.file,
                   "The same in the first line of a file; of - it is asked for on a terminal")
        ->option_text("FILE")
        ->excludes(text);
}

void CatalogueOptions::Declare(CLI::App& app) {
    app.add_option("--folder", m_folder,
                   "Folder of the catalogue files (default: SECTIONDB_FOLDER, or those installed)")
        ->option_text("FOLDER");
    app.add_option("--user", m_userFile,
                   "File of your own sections, the catalogue \"own\" (default: SECTIONDB_USER)")
        ->option_text("FILE");
    DeclarePassword(app, m_password, "Password of the catalogue files");
}

CatalogueFolder CatalogueOptions::Folder() const {
    return {m_folder, ReadPassword(m_password, PasswordUse::Existing), m_userFile};
}

void FormOptions::Declare(CLI::App& app) {
    auto* csv = app.add_flag("--csv", m_csv, "Print comma-separated text");
    app.add_flag("--json", m_json, "Print JSON")->excludes(csv);
}

TableForm FormOptions::Form() const {
    return m_csv ? TableForm::Csv : m_json ? TableForm::Json : TableForm::Text;
}

void LimitOption::Declare(CLI::App& app, const char* meaning) {
    app.add_option_function<std::string>(
           "--limit", [this](const std::string& text) { m_value = LimitOf(text); }, meaning)
        ->option_text("NUMBER");
}

void SymbolOptions::Declare(CLI::App& app) {
    app.add_option_function<std::string>(
           "--symbols", [this](const std::string& name) { m_choice = SymbolsNamed(name); },
           "How properties are called: program, aisc or eurocode")
        ->option_text("SYMBOLS");
}

void UnitOptions::Declare(CLI::App& app) {
    DeclareLength(app);
    app.add_option_function<std::string>(
           "--force",
           [this](const std::string& name) {
               m_choice.force = ChooseUnit(UnitId::Kip, UnitId::Meganewton, name, "force");
           },
           "kip, lb, kg, t, N, daN, kN or MN")
        ->option_text("UNIT");
}

void UnitOptions::DeclareLength(CLI::App& app) {
    app.add_option_function<std::string>(
           "--length",
           [this](const std::string& name) {
               m_choice.length = ChooseUnit(UnitId::Inch, UnitId::Kilometre, name, "length");
           },
           "in, ft, yd, mm, cm, dm, m or km")
        ->option_text("UNIT");
}

} // namespace dbsection
