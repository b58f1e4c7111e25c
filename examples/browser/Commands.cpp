#include "Commands.h"

#include "Print.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace browser {
namespace {

struct Command {
    const char* word;
    const char* arguments; ///< in brackets when they may be missing
    const char* help;
    Action* run;
};

Action Help, Quit;

constexpr std::array Table{
    Command{"catalogues", "", "the catalogues and whether they are there", Catalogues},
    Command{"use", "CATALOGUE", "choose a catalogue by number or name", Use},
    Command{"families", "", "the shape families: number, name, sections", Families},
    Command{"family", "FAMILY", "choose a family by number or name", ChooseFamily},
    Command{"names", "", "the sections: the program's name and the public one", Names},
    Command{"fields", "", "the properties and the units they are kept in", Fields},
    Command{"units", "[LENGTH FORCE]", "choose the units of values, as in units mm kN",
            ChooseUnits},
    Command{"show", "NAME", "the values of a section", Show},
    Command{"all", "", "the values of all sections", ShowAll},
    Command{"summary", "NAME", "the design properties of a section", Summary},
    Command{"angle", "NAME", "the principal axes of an angle section", PrincipalAngle},
    Command{"draw", "NAME", "the shape of a section of the catalogue", Draw},
    Command{"find", "NAME", "the sections of that name, however it is typed, in all catalogues",
            Find},
    Command{"prefer", "NAME... | all | none", "keep a subset of the family", Prefer},
    Command{"preferred", "", "the subset that is kept", Preferred},
    Command{"help", "", "this list", Help},
    Command{"quit", "", "the end", Quit}};

void Help(Session& /*session*/, const Arguments& /*arguments*/) {
    std::vector<Row> rows;
    rows.reserve(Table.size());
    for (const Command& command : Table)
        rows.push_back({command.word + (" " + CString(command.arguments)), command.help});
    PrintTable(rows, "l");
}

void Quit(Session& session, const Arguments& /*arguments*/) { session.isOver = true; }

/// The words of a line; one in quotes may hold blanks.
Arguments WordsOf(const CString& line) {
    std::istringstream input{std::string(line.View())};
    Arguments words;
    for (std::string word; input >> std::quoted(word);)
        words.emplace_back(word);
    return words;
}

void CheckArguments(const Command& command, const Arguments& arguments) {
    const std::string_view expected = command.arguments;
    const bool isWrong =
        arguments.empty() ? !expected.empty() && expected.front() != '[' : expected.empty();
    if (isWrong)
        throw Refusal("Write \"" + CString(command.word) + (expected.empty() ? "" : " ") +
                      command.arguments + "\".");
}

} // namespace

void Execute(Session& session, const CString& line) {
    Arguments words = WordsOf(line);
    if (words.empty())
        return;
    const CString word = words.front();
    const auto command = std::ranges::find_if(
        Table, [&](const Command& each) { return IsSameName(each.word, word); });
    if (command == Table.end())
        throw Refusal("There is no command " + Quoted(word) + "; \"help\" lists them.");
    words.erase(words.begin());
    CheckArguments(*command, words);
    command->run(session, words);
}

CString Joined(const Arguments& arguments) {
    CString name;
    for (const CString& argument : arguments)
        name += (name.IsEmpty() ? "" : " ") + argument;
    return name;
}

} // namespace browser
