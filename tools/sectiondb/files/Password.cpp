#include "files/Password.h"

#include "dataaccess/CSectionDatabase.h"
#include "output/Messages.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <fstream>
#include <iostream>
#include <istream>
#include <string_view>
#include <termios.h>
#include <unistd.h>

namespace dbsection {
namespace {

termios shown; ///< how the terminal is while nothing is asked

/// Where the person gives up; the signal comes again and ends the program then.
void ShowInputAgain(int signal) {
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Keeps a terminal from showing what is typed.
class HiddenInput {
public:
    HiddenInput() {
        tcgetattr(STDIN_FILENO, &shown);
        struct sigaction showAgain {};
        showAgain.sa_handler = ShowInputAgain;
        for (std::size_t i = 0; i < Ends.size(); ++i)
            if (sigaction(Ends[i], nullptr, &m_before[i]) == 0 && m_before[i].sa_handler != SIG_IGN)
                sigaction(Ends[i], &showAgain, nullptr);
        termios hidden = shown;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;
    ~HiddenInput() {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown);
        for (std::size_t i = 0; i < Ends.size(); ++i)
            sigaction(Ends[i], &m_before[i], nullptr);
        std::fputs("\n", stderr); // that of the line was not shown either
    }

private:
    static constexpr std::array Ends{SIGINT, SIGQUIT, SIGTERM, SIGHUP};
    std::array<struct sigaction, Ends.size()> m_before{};
};

/// The first line, without its end.
std::string FirstLine(std::istream& input, const std::string& name) {
    std::array<char, 1026> buffer{};
    input.getline(buffer.data(), buffer.size());
    std::string line = buffer.data();
    if (line.ends_with('\r'))
        line.pop_back();
    if (line.empty())
        throw CommandError(fmt::format("{}: there is no password in the first line.", name));
    if (line.size() > buffer.size() - 2)
        throw CommandError(fmt::format("{}: the first line is too long for a password.", name));
    return line;
}

std::string Ask(const char* question) {
    const HiddenInput hidden;
    std::fputs(question, stderr);
    return FirstLine(std::cin, "The terminal");
}

std::string AskFor(PasswordUse use) {
    std::string password = Ask("Password: ");
    if (use == PasswordUse::New && Ask("The same again: ") != password)
        throw CommandError("The two passwords differ; try again.");
    return password;
}

} // namespace

std::string ReadPassword(const PasswordSource& source, PasswordUse use) {
    if (source.text)
        return *source.text;
    if (source.file.empty()) {
        const char* kept = use == PasswordUse::New ? std::getenv("SECTIONDB_PASSWORD") : nullptr;
        return kept == nullptr ? "" : kept;
    }
    if (source.file == "-")
        return isatty(STDIN_FILENO) == 1 ? AskFor(use) : FirstLine(std::cin, "Standard input");
    std::ifstream file(source.file);
    if (!file)
        throw CommandError(
            fmt::format("{}: the file of the password cannot be read.", source.file));
    return FirstLine(file, source.file);
}

std::string ConnectText(const std::string& password) {
    return std::string(CSectionDatabase::ConnectText(password).View());
}

bool IsProtected(const std::filesystem::path& file) {
    constexpr std::string_view PlainBeginning = "SQLite format 3";
    std::string bytes(PlainBeginning.size(), '\0');
    std::ifstream(file, std::ios::binary).read(bytes.data(), std::ssize(bytes));
    return bytes != PlainBeginning;
}

} // namespace dbsection
