// The folder of the catalogue files, as the settings see it.
#pragma once

#include "files/FolderChoices.h"
#include "output/Messages.h"
#include "sections/Library.h"

#include <functional>
#include <string>
#include <vector>

namespace dbsection {

/// The settings may put another file in the place of a catalogue's, in the folder or beside them.
class CatalogueFolder {
public:
    /// An empty folder means that of SECTIONDB_FOLDER, or else that of the installation; an empty
    /// password that of SECTIONDB_PASSWORD; an empty file of the person's own sections that of
    /// SECTIONDB_USER, or none.
    CatalogueFolder(std::string folder, std::string password, std::string userFile);

    std::string Path() const;
    const std::string& Password() const { return m_password; }

    /// What might have named the folder, and what did.
    std::vector<FolderChoice> Choices() const { return FolderChoices(m_given); }

    /// Throws a CommandError where the folder is named, but not there.
    void RequireThere() const;

    /// The same where none is named.
    void RequireNamed() const;

    /// The path of a catalogue's file, empty where there is none. Throws CommandError where this
    /// cannot be told.
    std::string FileOf(int number) const;

    /// Throws CommandError where there is no file, and sections::Error.
    sections::Catalogue Open(int number) const;

    /// The same for the number, file stem or name of a catalogue. The file of the person's own
    /// sections is found as "own", too.
    sections::Catalogue Open(const std::string& name) const;

    /// The sections of a catalogue that have a name as it is typed, or but for the letter case, in
    /// the order of its families; none where it has none.
    std::vector<sections::Section> SectionsNamed(const std::string& catalogue,
                                                 const std::string& typed) const;

    /// The file of the person's own sections; empty where there is none.
    const std::string& UserFile() const { return m_userFile; }

    /// Reads it.
    sections::Catalogue OpenUserFile() const;

private:
    bool IsUserFile(const std::string& name) const;

    /// The path of a catalogue's file; throws CommandError where there is none.
    std::string RequireFile(int number) const;

    std::string m_given; ///< empty: none was
    std::string m_password;
    std::string m_userFile;
};

/// The family of a catalogue that a person named, by its whole name or by its first words where no
/// other begins so ("W" for "W Shape"). Throws CommandError, naming the families.
sections::Family FindFamily(const sections::Catalogue& catalogue, const std::string& name);

/// What was wrong with single catalogues in a walk over all of them, which goes on without those.
class CatalogueFaults {
public:
    /// Runs `visit`, which throws where a catalogue is at fault. Returns whether it did not.
    bool Try(const std::function<void()>& visit);

    /// Throws a CommandError of all faults, if any.
    void ThrowIfAny() const;

private:
    std::string m_faults;
};

/// The catalogues that have a file in the folder, in their order, and behind them the person's own.
std::vector<sections::Catalogue> OpenAll(const CatalogueFolder& folder, CatalogueFaults& faults);

} // namespace dbsection
