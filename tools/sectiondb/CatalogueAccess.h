// How the commands reach catalogues: by number, file stem or display name.
#pragma once

#include "catalogues/CatalogueSectionDB.h"
#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "sectiondb/Commands.h"

#include <functional>
#include <string>

namespace dbsection {

/// A catalogue with its database attached, ready to be asked.
struct OpenCatalogue {
    int index;
    CSectionDatabase* database;    ///< the library-wide handle
    CatalogueSectionDB* catalogue; ///< the driver's
};

/// The index of the catalogue that a person named. Throws CommandError, listing what there is.
int FindCatalogue(const std::string& name);

bool HasFile(int index);

/// Opens a catalogue and checks its layout version. Throws CommandError.
OpenCatalogue Open(int index);

/// The title of a catalogue file, which is checked to be of this program's layout version. Throws
/// CommandError.
std::string TitleOf(const CString& path);

/// The family of a catalogue that a person named, by its whole name or by its first words where no
/// other begins so ("W" for "W Shape"). Throws CommandError, naming the families.
const SectionFamily& FindFamily(const OpenCatalogue& open, const std::string& name);

/// Whether the family has a table of sections; the tables of joists are of another kind.
bool HasSectionTable(const SectionFamily& family);

/// Given the family and the current row of a section.
using SectionVisitor = std::function<void(const SectionFamily&, const CSectionRecordset&)>;

/// Visits the sections of that name, public or the analysis program's, whatever their letter case.
/// Throws CommandError where a table cannot be read.
void VisitSections(const OpenCatalogue& open, const std::string& name, const SectionVisitor& visit);

/// Throws the CommandError of a table that cannot be read.
[[noreturn]] void ThrowUnreadable(const OpenCatalogue& open, const SectionFamily& family);

/// Prints the families of a catalogue with their numbers of sections.
void ListFamilies(const OpenCatalogue& open);

/// What was wrong with single catalogues in a walk over all of them, which goes on without those.
class CatalogueFaults {
public:
    /// Runs `visit`, which throws CommandError where a catalogue is at fault. Returns whether it
    /// did not.
    bool Try(const std::function<void()>& visit);

    /// Throws a CommandError of all faults, if any.
    void ThrowIfAny() const;

private:
    std::string m_faults;
};

/// The connect text that carries a password. Throws CommandError where none can.
std::string ConnectText(const std::string& password);

} // namespace dbsection
