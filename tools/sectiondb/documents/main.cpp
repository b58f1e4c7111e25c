// Writes the manual pages and completions of sectiondb into a folder: sectiondb_documents FOLDER
#include "commands/Command.h"
#include "documents/Documents.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>

namespace {

using namespace dbsection;

void Write(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream << text;
    stream.close();
}

void WriteAll(const std::filesystem::path& folder) {
    CLI::App app;
    const auto commands = AddCommands(app);
    const CommandDescription program = Describe(app);
    Write(folder / "man/sectiondb.1", ProgramPage(program));
    for (const CommandDescription* command : WithAllCommands(program))
        if (command->commands.empty())
            Write(folder / "man" / (PageName(*command) + ".1"), CommandPage(*command));
    Write(folder / "bash/sectiondb", BashCompletion(program));
    Write(folder / "zsh/_sectiondb", ZshCompletion(program));
    Write(folder / "fish/sectiondb.fish", FishCompletion(program));
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 2)
            return 2;
        WriteAll(argv[1]);
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "sectiondb_documents: %s\n", e.what());
        return 1;
    }
}
