// A file of a person's own sections: user tables, or generic shapes.
//
//     const sections::UserFile mine("mine.db3");
//     sections::Change change = mine.change();
//     change.add("Pipe", {.name = "P 60.3x5",
//                         .figures = {{"OD", {60.3, "mm"}}, {"T", {5, "mm"}}}});
//     change.commit();
//     const sections::Section pipe = mine.read().at("P 60.3x5");
#pragma once

#include "platform/Export.h"
#include "sections/Catalogue.h"
#include "sections/Draft.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace sections {

/// The largest record number that analysis engines know: they do not see sections beyond it.
inline constexpr std::int64_t LastRecordNumber = 65535;

/// Changes that appear together with commit(), or not at all. Until its end nobody else can write
/// to the file. Whatever fails throws Error and leaves the changes before it as they were.
class DBSECTION_API Change {
public:
    Change(Change&&) noexcept;
    Change& operator=(Change&&) noexcept;
    ~Change(); ///< undoes what was not committed

    /// The sections with the changes so far.
    Catalogue read() const;

    /// Adds a section to a family, completed and judged as `completed` does, under the record
    /// number behind the last one. Its name must be new in the family, its program name in the
    /// file, whatever its letter case. Returns the record number.
    std::int64_t add(std::string_view family, const Draft& draft);

    /// Gives a section that was read from the file the names, figures and texts of the draft; an
    /// empty name, and what the draft leaves out, stay. Where it has figures, the row is judged as
    /// it will be. Error 3197 where the section has another name meanwhile, 3021 where it is gone.
    void update(const Section& section, const Draft& draft);

    /// The same for removing it.
    void remove(const Section& section);

    void commit();

private:
    friend class UserFile;

    struct State;

    explicit Change(std::unique_ptr<State> state);

    std::unique_ptr<State> m_state;
};

class DBSECTION_API UserFile {
public:
    /// The password is that of a protected file; an empty one means that of SECTIONDB_PASSWORD.
    explicit UserFile(std::string path, std::string password = {});

    /// The sections as they are now. Throws Error, as Catalogue::read does, and where the file is
    /// another catalogue.
    Catalogue read() const;

    /// Throws Error where the file cannot be written, is marked read-only, or somebody else writes
    /// to it.
    Change change() const;

private:
    std::string m_path;
    std::string m_password;
};

} // namespace sections
