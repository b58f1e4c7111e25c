// How the commands reach catalogues: by number, file stem or display name.
#pragma once

#include "catalogues/CatalogueSectionDB.h"
#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "output/Messages.h"

#include <functional>
#include <string>
#include <vector>

namespace dbsection {

/// A catalogue with its database attached, ready to be asked.
struct OpenCatalogue {
    int index;
    CSectionDatabase* database;
    CatalogueSectionDB* catalogue; ///< the driver's
};

/// The index of the catalogue that a person named. Throws CommandError, listing what there is.
int FindCatalogue(const std::string& name);

/// Whether a catalogue has a file. Throws CommandError where this cannot be told.
bool HasFile(int index);

/// Opens a catalogue in the library-wide database and checks that it is one, of this program's
/// layout version. It is opened for reading only, which leaves the marks of its file alone, and the
/// façade keeps it open for what it is asked of the same catalogue. Throws CommandError.
OpenCatalogue Open(int index);

/// Closes what Open has opened.
void CloseLibraryDatabase();

/// The catalogue object of an index, with a database attached. Throws CommandError.
OpenCatalogue Attach(int index, CSectionDatabase& database);

/// What a database file says of itself.
struct CatalogueInformation {
    std::string title;
    std::string layoutVersion;
    std::string sourceHash; ///< empty: not built from text sources
};

/// Reads it from an open file. Throws CommandError where it is another program's file.
CatalogueInformation ReadInformation(CSectionDatabase& database);

/// Throws CommandError where a file has another layout version than this program knows. What was
/// built from text sources must be of the present one, since it can be built again.
void RequireLayoutVersion(const CSectionDatabase& database, const CatalogueInformation& found);

/// The family of a catalogue that a person named, by its whole name or by its first words where no
/// other begins so ("W" for "W Shape"). Throws CommandError, naming the families.
const SectionFamily& FindFamily(const OpenCatalogue& open, const std::string& name);

/// The families whose tables the file has.
std::vector<const SectionFamily*> PresentFamilies(const OpenCatalogue& open);

/// Whether the family has a table of sections; the tables of joists are of another kind.
bool HasSectionTable(const SectionFamily& family);

/// Runs `read`; what the data-access classes throw becomes a CommandError that names the table.
void ReadTable(const SectionFamily& family, const std::function<void()>& read);

/// Throws CommandError where a table of so many columns lacks some of bookkeeping.
void RequireBookkeeping(const OpenCatalogue& open, const SectionFamily& family, int columns);

/// Given the current row.
using RowVisitor = std::function<void(const CSectionRecordset&)>;

/// Visits the rows of a family's table that a clause leaves, in its order. Throws CommandError
/// where the table cannot be read, or lacks the columns of bookkeeping.
void VisitRows(const OpenCatalogue& open, const SectionFamily& family, const std::string& clause,
               const RowVisitor& visit);

/// Given the family and the current row of a section.
using SectionVisitor = std::function<void(const SectionFamily&, const CSectionRecordset&)>;

/// Visits the sections of that name, public or the analysis program's, whatever their letter case.
void VisitSections(const OpenCatalogue& open, const std::string& name, const SectionVisitor& visit);

/// A column of the current row as text.
std::string TextAt(const CSectionRecordset& rows, int column);

/// The units of a table's columns in their order, as "Field Units" keeps them; none where it keeps
/// none. Throws CommandError where they cannot be read.
std::vector<std::string> UnitsOf(const OpenCatalogue& open, const SectionFamily& family);

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

} // namespace dbsection
