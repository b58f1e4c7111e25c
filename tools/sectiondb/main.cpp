// sectiondb: builds section catalogues and looks at them.
#include "commands/Command.h"
#include "dataaccess/CSectionException.h"
#include "files/LibraryFailure.h"
#include "interface/SectionDBInterface.h"
#include "output/Messages.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <fmt/format.h>
#include <new>
#include <system_error>

namespace {

using namespace dbsection;

/// Exit statuses of what did not succeed.
constexpr int Failure = 1;
constexpr int WrongUsage = 2;

/// Prints the help where it was asked for, or else what is wrong.
int EndParsing(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0)
        return app.exit(error);
    Tell(fmt::format("{}\nRun with --help for more information.", error.what()));
    return WrongUsage;
}

int Run(int argc, char** argv) {
    CLI::App app;
    const auto commands = AddCommands(app);
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) // required here, since an unknown one is named first
            throw CLI::RequiredError("A command");
    } catch (const CLI::ParseError& error) {
        return EndParsing(app, error);
    }
    if (std::fflush(stdout) != 0)
        throw std::system_error(errno, std::generic_category(), "the output cannot be written");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        KeepMessages();
        const int status = Run(argc, argv);
        SectionDBInterface::ExitSectionDBInterface();
        return status;
    } catch (const UsageError& error) {
        Tell(error.what());
        return WrongUsage;
    } catch (CException* e) {
        Tell(e->GetMessage().View());
        e->Delete();
    } catch (const std::bad_alloc&) {
        std::fputs("sectiondb: Out of memory.\n", stderr);
    } catch (const std::exception& e) {
        Tell(e.what());
    }
    return Failure;
}
