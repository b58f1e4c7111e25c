// What names the folder of the catalogue files.
#pragma once

#include <string>
#include <vector>

namespace dbsection {

struct FolderChoice {
    std::string setting; ///< what names the folder
    std::string path;    ///< empty: it names none
    std::string remark;  ///< "used" of the one that won, or why it did not
};

/// The choices in the order of their rank. `given`: the folder of --folder, or empty.
std::vector<FolderChoice> FolderChoices(const std::string& given);

/// The same for a message: "--folder: not given; SECTIONDB_FOLDER: /srv, used; ...".
std::string ListOf(const std::vector<FolderChoice>& choices);

} // namespace dbsection
