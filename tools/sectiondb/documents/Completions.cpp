#include "documents/Documents.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <set>

namespace dbsection {
namespace {

/// Arguments of a shell, in single quotes.
std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + '\'';
}

template <class Words>
std::string Joined(const Words& words) {
    return fmt::format("{}", fmt::join(words, " "));
}

/// What may follow a command: the commands below it and its options.
std::vector<std::string> WordsAfter(const CommandDescription& command) {
    std::vector<std::string> words;
    for (const CommandDescription& child : command.commands)
        words.push_back(child.Word());
    for (const OptionDescription& option : command.options)
        std::ranges::copy(option.names, std::back_inserter(words));
    return words;
}

/// The options that a value follows, of any command.
std::set<std::string> OptionsWithValue(const CommandDescription& program) {
    std::set<std::string> names;
    for (const CommandDescription* command : WithAllCommands(program))
        for (const OptionDescription& option : command->options)
            if (!option.value.empty())
                names.insert(option.names.begin(), option.names.end());
    return names;
}

constexpr const char* BashFunction = R"(
_sectiondb() {
    local command=sectiondb next i
    for ((i = 1; i < COMP_CWORD; i++)); do
        next="$command ${COMP_WORDS[i]}"
        [[ -v _sectiondb_words[$next] ]] && command=$next
    done
    COMPREPLY=()
    [[ $_sectiondb_with_value == *" ${COMP_WORDS[COMP_CWORD - 1]} "* ]] && return
    mapfile -t COMPREPLY < <(compgen -W "${_sectiondb_words[$command]}" -- "${COMP_WORDS[COMP_CWORD]}")
}
complete -o default -F _sectiondb sectiondb
)";

/// The name of the function that completes what follows a command.
std::string ZshFunction(const CommandDescription& command) {
    std::string name = "_sectiondb" + (command.name.empty() ? "" : '_' + command.name);
    std::ranges::replace(name, ' ', '_');
    return name;
}

/// Text in which nothing ends a part of an argument of _arguments.
std::string ZshText(const std::string& text) {
    std::string escaped;
    for (const char c : text)
        escaped += (std::string_view("[]:\\").find(c) == std::string_view::npos ? "" : "\\") +
                   std::string(1, c);
    return escaped;
}

std::string ZshArguments(const CommandDescription& command) {
    std::string text;
    for (const OptionDescription& option : command.options)
        for (const std::string& name : option.names)
            text +=
                " \\\n    " +
                Quoted(fmt::format(
                    "({}){}[{}]{}", Joined(option.names), name, ZshText(option.help),
                    option.value.empty() ? "" : fmt::format(":{}:_files", ZshText(option.value))));
    return text;
}

std::string ZshCommands(const CommandDescription& command) {
    std::string text = fmt::format("{}() {{\n  local -a commands=(", ZshFunction(command));
    for (const CommandDescription& child : command.commands)
        text += "\n    " + Quoted(fmt::format("{}:{}", child.Word(), child.help));
    return text + fmt::format("\n  )\n  local curcontext=$curcontext state line\n"
                              "  _arguments -C{} \\\n    '1: :->command' '*:: :->words'\n"
                              "  case $state in\n"
                              "    command) _describe command commands ;;\n"
                              "    words) (( $+functions[{}_$line[1]] )) && {}_$line[1] ;;\n"
                              "  esac\n}}\n\n",
                              ZshArguments(command), ZshFunction(command), ZshFunction(command));
}

constexpr const char* FishFunctions = R"fish(# The words of the command line that are no options.
function __sectiondb_words
    string match -v -- '-*' (commandline -opc)[2..]
end
# Whether they are a command and nothing else; whether they begin with it.
function __sectiondb_is
    test "$(__sectiondb_words | string join ' ')" = "$argv[1]"
end
function __sectiondb_in
    string match -q -- "$argv[1] *" "$(__sectiondb_words | string join ' ') "
end
)fish";

std::string FishOption(const CommandDescription& command, const OptionDescription& option) {
    const char* condition = command.commands.empty() ? "in" : "is";
    std::string text =
        fmt::format("complete -c sectiondb -n {}",
                    Quoted(fmt::format("__sectiondb_{} '{}'", condition, command.name)));
    for (const std::string& name : option.names)
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    return text + fmt::format("{} -d {}\n", option.value.empty() ? "" : " -r", Quoted(option.help));
}

} // namespace

std::string BashCompletion(const CommandDescription& program) {
    std::string text = "# Completion of sectiondb for bash.\ndeclare -gA _sectiondb_words=(\n";
    for (const CommandDescription* command : WithAllCommands(program))
        text += fmt::format("    ['sectiondb{}{}']={}\n", command->name.empty() ? "" : " ",
                            command->name, Quoted(Joined(WordsAfter(*command))));
    return text +
           fmt::format(")\n_sectiondb_with_value={}\n",
                       Quoted(' ' + Joined(OptionsWithValue(program)) + ' ')) +
           BashFunction;
}

std::string ZshCompletion(const CommandDescription& program) {
    std::string text = "#compdef sectiondb\n# Completion of sectiondb for zsh.\n\n";
    for (const CommandDescription* command : WithAllCommands(program))
        text += command->commands.empty()
                    ? fmt::format("{}() {{\n  _arguments{} \\\n    '*: :_files'\n}}\n\n",
                                  ZshFunction(*command), ZshArguments(*command))
                    : ZshCommands(*command);
    return text + "_sectiondb \"$@\"\n";
}

std::string FishCompletion(const CommandDescription& program) {
    std::string text = "# Completion of sectiondb for fish.\n" + std::string(FishFunctions);
    for (const CommandDescription* command : WithAllCommands(program)) {
        for (const CommandDescription& child : command->commands)
            text += fmt::format("complete -c sectiondb -f -n {} -a {} -d {}\n",
                                Quoted(fmt::format("__sectiondb_is '{}'", command->name)),
                                child.Word(), Quoted(child.help));
        for (const OptionDescription& option : command->options)
            text += FishOption(*command, option);
    }
    return text;
}

} // namespace dbsection
