// A file of the user's own sections: user tables, or generic shapes.
#pragma once

#include "files/CatalogueAccess.h"
#include "output/Messages.h"
#include "records/SectionInfo.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace dbsection {

/// What tells the two kinds of files apart.
struct UserFileKind {
    int index; ///< of the catalogue class: 1001 or 1010
    const char* title;
};

UserFileKind KindOf(bool isGeneric);

/// A file of user tables or generic shapes, whichever it is, open.
class UserFile {
public:
    /// To change a file is one transaction: what was read stays as it is for others, too, and
    /// nothing is changed before Commit.
    enum class Purpose { Read, Change };

    /// Throws CommandError where the file cannot be opened, or is of another kind or layout.
    UserFile(const std::filesystem::path& path, Purpose purpose);
    UserFile(const UserFile&) = delete;
    UserFile& operator=(const UserFile&) = delete;
    ~UserFile();

    /// The catalogue of the file; its database is this object's.
    const OpenCatalogue& Catalogue() const { return m_open; }

    void Commit() { m_workspace.CommitTrans(); }

private:
    OpenCatalogue OpenFile(const std::filesystem::path& path, Purpose purpose);

    CSectionWorkspace m_workspace;
    CSectionDatabase m_database{&m_workspace};
    OpenCatalogue m_open;
};

/// A table of an open file.
class UserTable {
public:
    /// Throws CommandError where the file has no such family, or its table another layout.
    UserTable(const UserFile& file, const std::string& family);

    /// The properties that a section needs: names and units of the numeric columns in order. A
    /// table of an older file may lack some that were added to its layout since.
    struct Property {
        const LayoutColumn* column;
        std::string unit;
    };
    const std::vector<Property>& Properties() const { return m_properties; }

    struct Row {
        double id; ///< record number, in files of other programs of any size
        std::string name;
        std::string vessaName;
        std::vector<std::optional<double>> values; ///< of the properties
    };
    std::vector<Row> Rows() const;

    /// The largest record number that the library can add or change.
    static constexpr int LastIdentifier = 65535;

    const char* Family() const { return m_family.table; }

    /// Adds a row, or changes the one of its identifier; all values must be there. Throws
    /// CommandError when it is refused; then nothing is changed.
    void Add(const Row& row) const { Store(row, &SectionDBBase::AddSectionData); }
    void Update(const Row& row) const { Store(row, &SectionDBBase::UpdateSectionData); }

    /// An error of the table: path, table and what is wrong.
    CommandError Error(const std::string& fault) const;

private:
    void Store(const Row& row, int (SectionDBBase::*store)(WORD, SECTIONINFO*)) const;
    std::size_t CountCheckedColumns() const;
    void RequireFreeNames(const Row& row) const;

    const OpenCatalogue& m_open;
    const SectionFamily& m_family;
    std::vector<Property> m_properties;
};

} // namespace dbsection
