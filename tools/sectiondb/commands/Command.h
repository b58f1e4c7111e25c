// A command of the program. Each has a file of its own in this folder, which registers it; nothing
// else names it:
//
//     class Find : public Command {
//         void Declare(CommandLine& line) override; // its arguments and options
//         void Run() const override;            // prints its result to stdout
//         ...
//     };
//     const CommandEntry entry("find", "Find a name in all catalogues", Make<Find>);
#pragma once

#include "commands/CommandLine.h"
#include <memory>
#include <vector>

namespace dbsection {

class Command {
public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    virtual void Declare(CommandLine& line) = 0;

    /// Throws CommandError, and UsageError where the command line itself is wrong.
    virtual void Run() const = 0;
};

/// Registers a command for the life of the program.
class CommandEntry {
public:
    using Maker = std::unique_ptr<Command> (*)();

    /// A name of two words is that of a group and of a command in it.
    CommandEntry(const char* itsName, const char* itsHelp, Maker itsMaker) noexcept;
    CommandEntry(const CommandEntry&) = delete;
    CommandEntry& operator=(const CommandEntry&) = delete;

    const char* const name;
    const char* const help;
    const Maker make;
    const CommandEntry* const next;
};

template <class Made>
std::unique_ptr<Command> Make() {
    return std::make_unique<Made>();
}

/// Describes the program and adds all commands to it, by their names; parsing then runs the one
/// that is named. What is returned must live as long.
std::vector<std::unique_ptr<Command>> AddCommands(CLI::App& program);

} // namespace dbsection
