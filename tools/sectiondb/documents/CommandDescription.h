// What the program's commands take, as plain data that pages and completions are written from.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace dbsection {

struct OptionDescription {
    std::vector<std::string> names; ///< with their dashes; of an argument its name alone
    std::string value;              ///< what stands for its value; empty for a flag
    std::string help;
    bool isRequired;
    bool isRepeated;
};

struct CommandDescription {
    std::string name; ///< the words after "sectiondb"; empty for the program itself
    std::string help;
    std::vector<OptionDescription> arguments;
    std::vector<OptionDescription> options;
    std::vector<CommandDescription> commands;

    /// The last word of the name.
    std::string Word() const { return name.substr(name.rfind(' ') + 1); }
};

/// Describes the program, or a command of it.
CommandDescription Describe(const CLI::App& app, const std::string& name = "");

/// The description and those of all commands below it, each before its own.
std::vector<const CommandDescription*> WithAllCommands(const CommandDescription& command);

} // namespace dbsection
