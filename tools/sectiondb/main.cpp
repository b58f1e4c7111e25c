// sectiondb: builds section catalogues and looks at them.
#include "interface/SectionDBInterface.h"
#include "platform/MessageBox.h"
#include "sectiondb/CatalogueAccess.h"
#include "sectiondb/Commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

namespace {

using namespace dbsection;

/// The program tells in its own words what failed.
int StaySilent(const char* /*text*/, const char* /*caption*/, unsigned /*flags*/) { return 0; }

struct CommonOptions {
    std::string folder;
    std::string password;
};

void AddAccessOptions(CLI::App& command, CommonOptions& common) {
    command
        .add_option("--folder", common.folder,
                    "Folder of the catalogue files (default: SECTIONDB_FOLDER)")
        ->option_text("FOLDER");
    command
        .add_option("--password", common.password,
                    "Password of the catalogue files (default: SECTIONDB_PASSWORD)")
        ->option_text("TEXT");
}

void Apply(const CommonOptions& common) {
    if (!common.folder.empty())
        SectionDBInterface::SetProfileDBFolder(CString(common.folder + '\\'));
    if (!common.password.empty())
        SectionDBInterface::SetSectionDBPassword(ConnectText(common.password).c_str());
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
    buildCommand
        ->add_option("--password", build.password,
                     "Protect the files (default: SECTIONDB_PASSWORD)")
        ->envname("SECTIONDB_PASSWORD");
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

    app.require_subcommand(1);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    int status = 1;
    try {
        SetMessageBoxHandler(StaySilent);
        CLI::App app("Catalogues of standard structural cross-sections", "sectiondb");
        status = Run(app, argc, argv);
        SectionDBInterface::ExitSectionDBInterface();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "sectiondb: %s\n", e.what());
    }
    return status;
}
