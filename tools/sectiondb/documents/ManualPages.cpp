#include "documents/Documents.h"
#include "platform/Version.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>

namespace dbsection {
namespace {

constexpr const char* ProgramText = R"(.SH ENVIRONMENT
.TP
.B SECTIONDB_FOLDER
Folder of the catalogue files, unless \fB\-\-folder\fR names one. Where neither is given, the
catalogues that were installed with the program are used; \fBsectiondb where\fR tells which they are.
.TP
.B SECTIONDB_PASSWORD
Password of protected files. See \fB\-\-password\-file\fR for ways that keep it to yourself.
.TP
.B SECTIONDB_INI
Settings file that replaces catalogues by files of your own.
.TP
.B SECTIONDB_DBI
File of the selections of sections.
.SH EXIT STATUS
.TP
.B 0
What was asked for is printed whole.
.TP
.B 1
Something failed; the message on stderr tells what, on which file, and what to do.
.TP
.B 2
The command line is wrong: an unknown option, a missing argument, a name that is no unit.
)";

/// Text in which nothing is a request or an escape.
std::string Plain(const std::string& text) {
    std::string plain;
    for (const char c : text)
        plain += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    return plain.find_first_of(".'") == 0 ? "\\&" + plain : plain;
}

std::string Heading(const std::string& page, const std::string& help) {
    std::string title = page;
    std::ranges::transform(title, title.begin(), [](char c) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    });
    return fmt::format(".TH {} 1 \"\" \"sectiondb {}\" \"Section catalogues\"\n"
                       ".SH NAME\n{} \\- {}\n",
                       Plain(title), DBSECTION_VERSION, Plain(page), Plain(help));
}

std::string Synopsis(const CommandDescription& command) {
    std::string text = fmt::format(".SH SYNOPSIS\n.B sectiondb {}\n", Plain(command.name));
    if (!command.commands.empty())
        return text + ".I COMMAND\n[\\fIARGUMENT\\fR...]\n";
    for (const OptionDescription& argument : command.arguments)
        text += fmt::format("{}\\fI{}\\fR{}{}\n", argument.isRequired ? "" : "[",
                            Plain(argument.names.front()), argument.isRepeated ? "..." : "",
                            argument.isRequired ? "" : "]");
    return text + "[\\fIOPTION\\fR...]\n";
}

std::string Entry(const std::string& tag, const std::string& help) {
    return fmt::format(".TP\n{}\n{}\n", tag, Plain(help));
}

std::string Options(const CommandDescription& command) {
    std::string text;
    if (!command.arguments.empty())
        text += ".SH ARGUMENTS\n";
    for (const OptionDescription& argument : command.arguments)
        text += Entry(fmt::format("\\fI{}\\fR", Plain(argument.names.front())), argument.help);
    text += ".SH OPTIONS\n";
    for (const OptionDescription& option : command.options) {
        std::string names;
        for (const std::string& name : option.names)
            names += fmt::format("{}\\fB{}\\fR", names.empty() ? "" : ", ", Plain(name));
        if (!option.value.empty())
            names += fmt::format(" \\fI{}\\fR", Plain(option.value));
        text += Entry(names, option.help + (option.isRequired ? " (required)" : ""));
    }
    return text;
}

} // namespace

std::string PageName(const CommandDescription& command) {
    std::string name = "sectiondb" + (command.name.empty() ? "" : '-' + command.name);
    std::ranges::replace(name, ' ', '-');
    return name;
}

std::string ProgramPage(const CommandDescription& program) {
    std::string text = Heading("sectiondb", program.help) + Synopsis(program) + ".SH COMMANDS\n";
    for (const CommandDescription* command : WithAllCommands(program))
        if (command->commands.empty())
            text += Entry(fmt::format("\\fBsectiondb {}\\fR", Plain(command->name)), command->help);
    text += Options(program) + ProgramText + ".SH SEE ALSO\n";
    for (const CommandDescription* command : WithAllCommands(program))
        if (command->commands.empty())
            text += fmt::format(".BR {} (1)\n", Plain(PageName(*command)));
    return text;
}

std::string CommandPage(const CommandDescription& command) {
    return Heading(PageName(command), command.help) + Synopsis(command) + Options(command) +
           ".SH SEE ALSO\n.BR sectiondb (1)\n";
}

} // namespace dbsection
