// Section names, as the engine and a front end pass them: a section is found by its own name alone.
#include "Fuzz.h"

#include "engine/SectionEngine.h"
#include "faults/World.h"
#include "interface/SectionDBInterface.h"

#include <array>
#include <memory>

using Facade = SectionDBInterface;

namespace {

constexpr std::int32_t American = 1, WShape = 1, Joists = 21, Millimetre = 1004;

void Begin() {
    static const bool isBegun = [] {
        const std::string& folder = fuzz::Folder().Path();
        faults::MakeWorld(folder, "");
        Facade::SetProfileDBFolder(folder.c_str());
        Facade::SetINIFileName((folder + "/Custom.Ini").c_str());
        return true;
    }();
    static_cast<void>(isBegun);
}

/// As the interface reads a name: without blanks and NULs at its end, in capitals.
std::string Plain(std::string_view text) {
    std::string name(text);
    while (!name.empty() && (name.back() == ' ' || name.back() == '\0'))
        name.pop_back();
    return fuzz::Upper(name);
}

int CountOf(std::string_view name) {
    std::int32_t catalogue = American, type = WShape, unit = Millimetre;
    std::int32_t count = -1, valueCount = -1, err = -1;
    std::array<float, 17> values{};
    GETSECTION(&catalogue, &type, name.data(), static_cast<std::int32_t>(name.size()), &unit,
               values.data(), &count, &valueCount, &err);
    return count;
}

void AskOtherwise(const std::string& name) {
    CUIntArray types;
    Facade::GetSectionTypeFromVessaName(American, name.c_str(), types);
    Facade::GetSectionTypeFromPublicName(American, name.c_str(), types);
    for (const unsigned type : types)
        fuzz::Require(type == 1 || type == 8 || type == 13 || type == 15,
                      "the type of " + name + " is one of the catalogue's");
    CString table;
    Facade::GetTableNameFromSection(American, name.c_str(), table);
    int shape = 0;
    std::array<float, 16> values{};
    Facade::GetSectionDataForGUI(American, name.c_str(), &shape, values.data(), "", 1004, 2005);
    int type = 0;
    Facade::FreeSectionData(Facade::GetSectionData(Joists, name.c_str(), type, ""));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Begin();
    const std::string_view text = fuzz::AsText(data, size);
    std::int32_t err = 0;
    OPENSECTIONDATABASE(&American, &err);
    const int count = CountOf(text);
    const std::string name = Plain(text);
    // A name of two sections, or one that ends at a NUL within it, is another matter.
    if (name.find_first_of(std::string("+\0", 2)) == std::string::npos && name.find(' ') != 0)
        fuzz::Require(count == (name == "W12X26" || name == "W4X13" ? 1 : 0),
                      "\"" + name + "\" is found " + std::to_string(count) + " times");
    AskOtherwise(fuzz::AsArgument(data, size));
    return 0;
}
