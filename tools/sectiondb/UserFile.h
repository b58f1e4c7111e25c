// A file of the user's own sections: user tables, or generic shapes.
#pragma once

#include "records/SectionInfo.h"
#include "sectiondb/CatalogueAccess.h"
#include "sectiondb/Commands.h"

#include <filesystem>
#include <string>
#include <vector>

namespace dbsection {

/// What tells the two kinds of files apart.
struct UserFileKind {
    int index; ///< of the catalogue class: 1001 or 1010
    const char* title;
};

UserFileKind KindOf(bool isGeneric);

/// A table of an open file.
class UserTable {
public:
    /// Throws CommandError where the file cannot be opened, is of another kind or layout, or has no
    /// such family.
    UserTable(const std::filesystem::path& file, const std::string& family);

    /// The properties that a section needs: names and units of the numeric columns in order.
    struct Property {
        const LayoutColumn* column;
        std::string unit;
    };
    const std::vector<Property>& Properties() const { return m_properties; }

    struct Row {
        WORD id;
        std::string name;
        std::string vessaName;
        std::vector<double> values; ///< of the properties
    };
    std::vector<Row> Rows() const;

    const char* Family() const { return m_family.table; }

    /// Adds a row, or changes the one of its identifier. Throws CommandError when it is refused;
    /// then nothing is changed.
    void Add(const Row& row) const { Store(row, &SectionDBBase::AddSectionData); }
    void Update(const Row& row) const { Store(row, &SectionDBBase::UpdateSectionData); }

    /// An error of the table: path, table and what is wrong.
    CommandError Error(const std::string& fault) const;

private:
    void Store(const Row& row, int (SectionDBBase::*store)(WORD, SECTIONINFO*)) const;
    void CheckColumns() const;
    void RequireFreeNames(const Row& row) const;

    std::string m_path;
    OpenCatalogue m_open;
    const SectionFamily& m_family;
    std::vector<Property> m_properties;
};

/// Opens a file of user tables or generic shapes, whichever it is.
OpenCatalogue OpenUserFile(const std::filesystem::path& file);

} // namespace dbsection
