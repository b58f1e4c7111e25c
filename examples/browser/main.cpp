// A browser of section catalogues on a terminal: how a front end uses the library.
#include "Commands.h"
#include "Text.h"
#include "Values.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace {

using namespace browser;

constexpr const char* Usage =
    "usage: browser [OPTION VALUE]... [SCRIPT]\n"
    "  --folder FOLDER    the catalogue files (default: SECTIONDB_FOLDER)\n"
    "  --password TEXT    their password (default: SECTIONDB_PASSWORD)\n"
    "  --dbi FILE         keeps the preferred sections (default: SECTIONDB_DBI)\n"
    "Commands come from the terminal, from standard input or from SCRIPT; \"help\" lists them.";

struct Option {
    std::string_view name;
    void (*apply)(const char* value);
};

constexpr std::array Options{
    Option{"--folder", [](const char* folder) { SectionDBInterface::SetProfileDBFolder(folder); }},
    Option{"--password", UsePassword}, Option{"--dbi", SectionDBInterface::SetDBIFileName}};

/// Applies the options and returns the script, or null without one. Throws Refusal.
const char* ApplyOptions(std::span<const char* const> arguments) {
    const char* script = nullptr;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto option = std::ranges::find(Options, arguments[i], &Option::name);
        if (option != Options.end() && i + 1 < arguments.size())
            option->apply(arguments[++i]);
        else if (*arguments[i] != '-' && script == nullptr)
            script = arguments[i];
        else
            throw Refusal(Usage);
    }
    return script;
}

/// Does what one line says; a refusal is told, and false returned.
bool Obey(Session& session, const std::string& line) {
    try {
        Execute(session, CString(line));
        return true;
    } catch (const Refusal& refusal) {
        std::cout << "error: " << refusal.what() << '\n';
        return false;
    }
}

void TalkToPerson() {
    Session session;
    std::string line;
    while (!session.isOver) {
        std::cout << session.Place() << "> " << std::flush;
        if (!std::getline(std::cin, line)) {
            std::cout << '\n';
            return;
        }
        Obey(session, line);
    }
}

/// Runs all commands and echoes them, so that the output reads as a transcript. Returns whether all
/// of them succeeded. Empty lines and lines that begin with # are left out.
bool RunScript(std::istream& script) {
    Session session;
    bool succeeded = true;
    for (std::string line; !session.isOver && std::getline(script, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::cout << "> " << line << std::endl; // before what the library may write to stderr
        succeeded = Obey(session, line) && succeeded;
    }
    return succeeded;
}

int Run(std::span<const char* const> arguments) {
    const char* path = ApplyOptions(arguments);
    if (path == nullptr && ::isatty(STDIN_FILENO) != 0) {
        TalkToPerson();
        return 0;
    }
    if (path == nullptr)
        return RunScript(std::cin) ? 0 : 1;
    std::ifstream script(path);
    if (!script || std::filesystem::is_directory(path))
        throw Refusal("browser: " + CString(path) + " cannot be read.");
    return RunScript(script) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    int status = 1;
    try {
        status = Run({argv + 1, argv + argc});
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
    }
    SectionDBInterface::ExitSectionDBInterface();
    return status;
}
