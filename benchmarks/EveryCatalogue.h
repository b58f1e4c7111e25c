// All 37 catalogues, made for the run: the tables of each class, a hundred rows a table.
#pragma once

#include "TestSupport.h"

#include <string>
#include <vector>

namespace sectionbench {

class EveryCatalogue {
public:
    /// Stands in the last table of each catalogue, and nowhere else.
    static constexpr const char* LastName = "Last";

    struct Table {
        std::string name;
        int sectionType;
    };
    struct File {
        std::string path;
        std::string keyStatement;
        std::vector<Table> tables;
    };

    /// Makes the files, protected by the password, in a temporary folder.
    explicit EveryCatalogue(const char* password);

    const std::string& Folder() const { return m_folder.Path(); }

    /// By catalogue index, from 1.
    const std::vector<File>& Files() const { return m_files; }

private:
    testsupport::TempFolder m_folder;
    std::vector<File> m_files;
};

} // namespace sectionbench
