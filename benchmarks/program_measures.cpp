// The whole program against a bare one: process start, key derivation, one row, end.
#include "ChildProcess.h"
#include "Measure.h"

namespace sectionbench {
namespace {

std::vector<std::string> ShowCommand(const Catalogues& catalogues) {
    return {SECTIONDB_PROGRAM, "show",
            "American",        "W12X26",
            "--folder",        catalogues.ProtectedFolder(),
            "--password",      Catalogues::Password};
}

Action Show(const Catalogues& catalogues) {
    return [command = ShowCommand(catalogues)] { RunProgram(command); };
}

Action ShowBare(const Catalogues& catalogues) {
    const std::vector<std::string> command{SECTIONDB_BARE_PROGRAM, catalogues.Protected(),
                                           Catalogues::Password, "W12X26"};
    return [command] { RunProgram(command); };
}

} // namespace

std::vector<Measure> ProgramMeasures() {
    return {{"sectiondb show American W12X26", Show, ShowBare, {.ratio = 2.0}}};
}

double ShowPeakMebibytes(const Catalogues& catalogues) {
    return RunProgram(ShowCommand(catalogues));
}

} // namespace sectionbench
