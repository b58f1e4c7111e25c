// A folder of catalogues.
//
//     const sections::Library installed;
//     const sections::Catalogue american = installed.open("American");
//     const sections::Library ours("/srv/catalogues", "secret");
//
// Libraries know nothing of each other, nor of the settings of SectionDBInterface; two of them may
// be used by two threads at once, and one by several.
#pragma once

#include "platform/Export.h"
#include "sections/Catalogue.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sections {

class DBSECTION_API Library {
public:
    /// The catalogues of SECTIONDB_FOLDER, or else those that were installed with this library.
    Library();

    /// The password opens protected files; an empty one means that of SECTIONDB_PASSWORD.
    explicit Library(std::filesystem::path folder, std::string password = {});

    /// Where the files are looked for; empty where there is no such folder.
    const std::filesystem::path& folder() const { return m_folder; }

    /// The numbers of the catalogues that have a file in the folder.
    std::vector<int> numbers() const;

    /// The display name of a catalogue; throws Error for a number that is none.
    static std::string nameOf(int number);

    /// The number of a catalogue by its number, file stem, display name or a usual name ("US",
    /// "AISC", "EN"), in whatever spelling; throws Error.
    static int numberOf(std::string_view name);

    /// Reads a catalogue. Throws Error where it has no file, or Catalogue::read does.
    Catalogue open(int number) const;
    Catalogue open(std::string_view name) const { return open(numberOf(name)); }

private:
    std::filesystem::path m_folder;
    std::string m_password;
};

} // namespace sections
