// sectiondb: builds section catalogues and looks at them.
#include "commands/Commands.h"
#include "files/CatalogueAccess.h"
#include "files/LibraryFailure.h"
#include "interface/SectionDBInterface.h"
#include "output/OutputText.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <fmt/format.h>
#include <new>
#include <string_view>
#include <system_error>

namespace {

using namespace dbsection;

void AddPasswordOptions(CLI::App& command, PasswordSource& password, const char* meaning) {
    auto* text = command.add_option("--password", password.text,
                                    std::string(meaning) + " (default: SECTIONDB_PASSWORD)");
    text->option_text("TEXT");
    command
        .add_option("--password-file", password.file,
                    "The same in the first line of a file; of - it is asked for on a terminal")
        ->option_text("FILE")
        ->excludes(text);
}

struct CommonOptions {
    std::string folder;
    PasswordSource password;
};

void AddAccessOptions(CLI::App& command, CommonOptions& common) {
    command
        .add_option("--folder", common.folder,
                    "Folder of the catalogue files (default: SECTIONDB_FOLDER)")
        ->option_text("FOLDER");
    AddPasswordOptions(command, common.password, "Password of the catalogue files");
}

void Apply(const CommonOptions& common) {
    if (!common.folder.empty())
        SectionDBInterface::SetProfileDBFolder(CString(common.folder + '\\'));
    SetPassword(common.password);
}

void AddSelectCommand(CLI::App& app, CommonOptions& common, SelectOptions& select) {
    auto* command = app.add_subcommand("select", "Print the sections of a family by criteria");
    command->add_option("catalogue", select.catalogue, "Number, file stem or name")->required();
    command->add_option("family", select.family, "Shape family, e.g. \"W Shape\"")->required();
    command->add_option("--like", select.prefix, "Beginning of the names")->option_text("PREFIX");
    command->add_option("--range", select.range, "Bounds of a field, both included")
        ->option_text("FIELD:LOW:HIGH");
    command->add_option("--sort", select.sort, "Order of the rows")
        ->option_text("FIELD[:desc],...");
    command->add_option("--length", select.length, "in, ft, yd, mm, cm, dm, m or km");
    auto* csv = command->add_flag("--csv", select.csv, "Print comma-separated text");
    command->add_flag("--json", select.json, "Print JSON")->excludes(csv);
    AddAccessOptions(*command, common);
    command->callback([&] {
        Apply(common);
        Select(select);
    });
}

void AddFindCommand(CLI::App& app, CommonOptions& common, std::string& name) {
    auto* command = app.add_subcommand("find", "Find a name in all catalogues");
    command->add_option("name", name, "Section name, e.g. W12X26")->required();
    AddAccessOptions(*command, common);
    command->callback([&] {
        Apply(common);
        Find(name);
    });
}

void AddUserCommands(CLI::App& app, UserOptions& user) {
    auto* group = app.add_subcommand("user", "Keep sections of your own");
    group->require_subcommand(1);
    const auto add = [&](const char* name, const char* text, void (*run)(const UserOptions&)) {
        auto* command = group->add_subcommand(name, text);
        command->add_option("file", user.file, "Section file")->required();
        AddPasswordOptions(*command, user.password, "Password of the file");
        command->callback([&user, run] { run(user); });
        return command;
    };

    auto* create = add("create", "Make a file without sections", CreateUserFile);
    create->add_flag("--generic", user.isGeneric, "Of generic shapes instead of user tables");
    create->add_option("--units", user.units, "metric or US")->default_val("metric");

    auto* list = add("list", "List families, or the sections of one", ListUserFile);
    list->add_option("family", user.family, "Shape family, e.g. \"Wide Flange\"");

    for (const bool isNew : {true, false}) {
        auto* store = isNew ? add("add", "Add a section", AddUserSection)
                            : add("update", "Change a section", UpdateUserSection);
        store->add_option("family", user.family, "Shape family, e.g. \"Wide Flange\"")->required();
        store->add_option("name", user.name, "Section name")->required();
        store->add_option("values", user.values, "COLUMN=VALUE, in the table's units");
        store->add_option("--vessa-name", user.vessaName, "The analysis program's name");
        if (!isNew)
            store->add_option("--rename", user.newName, "New name");
    }
}

int Run(CLI::App& app, int argc, char** argv) {
    CommonOptions common;
    BuildOptions build;
    ListOptions list;
    ShowOptions show;

    auto* buildCommand = app.add_subcommand("build", "Build catalogue files from text sources");
    buildCommand->add_option("sources", build.sources, "Source folders, one per catalogue")
        ->required();
    buildCommand->add_option("-o,--output", build.output, "Folder of the catalogue files")
        ->required();
    AddPasswordOptions(*buildCommand, build.password, "Password to protect the files");
    buildCommand->callback([&] { Build(build); });

    auto* listCommand = app.add_subcommand("list", "List catalogues, families or sections");
    listCommand->add_option("catalogue", list.catalogue, "Number, file stem or name");
    listCommand->add_option("family", list.family, "Shape family, e.g. \"W Shape\"");
    AddAccessOptions(*listCommand, common);
    listCommand->callback([&] {
        Apply(common);
        List(list);
    });

    auto* showCommand = app.add_subcommand("show", "Print every property of a section");
    showCommand->add_option("catalogue", show.catalogue, "Number, file stem or name")->required();
    showCommand->add_option("name", show.name, "Section name, e.g. W12X26")->required();
    showCommand->add_option("--length", show.length, "in, ft, yd, mm, cm, dm, m or km");
    showCommand->add_option("--force", show.force, "kip, lb, kg, t, N, daN, kN or MN");
    showCommand->add_flag("--json", show.json, "Print JSON");
    AddAccessOptions(*showCommand, common);
    showCommand->callback([&] {
        Apply(common);
        Show(show);
    });

    SelectOptions select;
    AddSelectCommand(app, common, select);
    std::string name;
    AddFindCommand(app, common, name);

    UserOptions user;
    AddUserCommands(app, user);

    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) // required here, since an unknown one is named first
            throw CLI::RequiredError("A command");
    } catch (const CLI::ParseError& e) {
        return app.exit(e);
    }
    if (std::fflush(stdout) != 0)
        throw std::system_error(errno, std::generic_category(), "the output cannot be written");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        KeepMessages();
        CLI::App app("Catalogues of standard structural cross-sections", "sectiondb");
        const int status = Run(app, argc, argv);
        CloseLibraryDatabase();
        SectionDBInterface::ExitSectionDBInterface();
        return status;
    } catch (CException* e) {
        Tell(e->GetMessage().View());
        e->Delete();
    } catch (const std::bad_alloc&) {
        std::fputs("sectiondb: Out of memory.\n", stderr);
    } catch (const std::exception& e) {
        Tell(e.what());
    }
    return 1;
}
