// Feeds the inputs of the given folders to a target, without a fuzzer: what once was found stays
// found.
#include "Fuzz.h"

int main(int argumentCount, char** arguments) {
    int count = 0;
    for (int i = 1; i < argumentCount; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            const std::string input = testsupport::ReadFile(entry.path());
            std::printf("%s\n", entry.path().c_str());
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()),
                                   input.size());
            ++count;
        }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
