#include "commands/Command.h"

#include "platform/Version.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <array>
#include <string_view>

namespace dbsection {
namespace {

struct Group {
    const char* name;
    const char* help;
};

constexpr std::array Groups{Group{"sources", "Look at the text sources of catalogues"},
                            Group{"user", "Keep sections of your own"}};

constinit const CommandEntry* lastEntry = nullptr;

std::vector<const CommandEntry*> EntriesByName() {
    std::vector<const CommandEntry*> entries;
    for (const CommandEntry* entry = lastEntry; entry != nullptr; entry = entry->next)
        entries.push_back(entry);
    std::ranges::sort(entries, {},
                      [](const CommandEntry* entry) -> std::string_view { return entry->name; });
    return entries;
}

CLI::App& GroupOf(CLI::App& program, const std::string& name) {
    const auto made =
        program.get_subcommands([&](const CLI::App* app) { return app->get_name() == name; });
    if (!made.empty())
        return *made.front();
    const auto place = std::ranges::find(Groups, name, &Group::name);
    return *program.add_subcommand(name, place->help)->require_subcommand(1);
}

} // namespace

CommandEntry::CommandEntry(const char* itsName, const char* itsHelp, Maker itsMaker) noexcept
    : name(itsName),
      help(itsHelp),
      make(itsMaker),
      next(lastEntry) {
    lastEntry = this;
}

std::vector<std::unique_ptr<Command>> AddCommands(CLI::App& program) {
    program.name("sectiondb")->description("Catalogues of standard structural cross-sections");
    program.set_version_flag("--version", std::string("sectiondb ") + dbsection_version(),
                             "Print the version and exit");
    std::vector<std::unique_ptr<Command>> commands;
    for (const CommandEntry* entry : EntriesByName()) {
        const std::string name = entry->name;
        const std::size_t blank = name.find(' ');
        CLI::App& parent =
            blank == std::string::npos ? program : GroupOf(program, name.substr(0, blank));
        CLI::App& app =
            *parent.add_subcommand(name.substr(blank + 1), entry->help); // npos + 1 is 0
        Command& command = *commands.emplace_back(entry->make());
        CommandLine line(app);
        command.Declare(line);
        app.callback([&command] { command.Run(); });
    }
    return commands;
}

} // namespace dbsection
