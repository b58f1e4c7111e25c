// Catalogues of the data folder, built by the program once for all tests of a suite.
#pragma once

#include "ProgramSupport.h"

#include <memory>
#include <vector>

namespace testsupport {

/// A suite on a folder of catalogues, which its SetUpTestSuite builds.
template <class Test = testing::Test>
class OnBuiltCatalogues : public Test {
protected:
    static void Build(const std::vector<std::string>& stems, const std::string& options = "") {
        if (!folder)
            folder = std::make_unique<TempFolder>();
        std::string command = "build -o " + folder->Path();
        for (const std::string& stem : stems)
            command.append(" ").append(Quote(SECTIONDB_DATA_DIR "/" + stem));
        ASSERT_TRUE(Ended(Program(command + " " + options), 0));
    }
    static void BuildAll() { Build({""}); }
    static void TearDownTestSuite() { folder.reset(); }

    /// Runs a command of the program on the folder.
    static Outcome On(const std::string& arguments) {
        return Program(arguments + " --folder " + folder->Path());
    }

    static inline std::unique_ptr<TempFolder> folder;
};

} // namespace testsupport
