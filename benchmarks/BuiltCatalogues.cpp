#include "BuiltCatalogues.h"

#include "ChildProcess.h"

#include <chrono>

namespace sectionbench {

BuiltCatalogues::BuiltCatalogues(const char* password) {
    const auto start = std::chrono::steady_clock::now();
    m_peakMebibytes = RunProgram({SECTIONDB_PROGRAM, "build", SECTIONDB_DATA_DIR, "--output",
                                  m_folder.Path(), "--password", password});
    m_seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace sectionbench
