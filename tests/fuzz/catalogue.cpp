// Catalogue files with changed bytes: whatever they hold, reading ends well.
//
// The input is a list of changes: two bytes of place, one of length, and as many new bytes.
#include "Fuzz.h"

#include "faults/CatalogueReading.h"
#include "faults/World.h"
#include "interface/SectionDBInterface.h"

#include <array>

namespace {

constexpr std::array Tables{"W Shape", "Rod", "Castellated NonComp Beam", "Field Units", "DBInfo"};
constexpr std::array Families{1, 8, 15};

/// The content of a whole catalogue, in the folder that is the current one from then on.
std::string MakeCatalogue() {
    const std::string& folder = fuzz::Folder().Path();
    const std::string made = folder + "/made";
    std::filesystem::create_directory(made);
    faults::MakeWorld(made, "");
    std::filesystem::current_path(folder);
    SectionDBInterface::SetProfileDBFolder(folder.c_str());
    SectionDBInterface::SetINIFileName((folder + "/none.ini").c_str());
    return testsupport::ReadFile(made + "/AISCSections.db3");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string whole = MakeCatalogue();
    std::string content = whole;
    std::string_view changes = fuzz::AsText(data, size);
    constexpr std::size_t Header = 3;
    while (changes.size() > Header) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(changes[i]); };
        const std::size_t place = (byte(0) * 256U + byte(1)) % content.size();
        const std::string_view bytes = changes.substr(Header, byte(2));
        content.replace(place, bytes.size(), bytes);
        changes.remove_prefix(Header + bytes.size());
    }
    testsupport::WriteFile("AISCSections.db3", content);
    faults::ReadCatalogue("", Tables, Families);
    return 0;
}
