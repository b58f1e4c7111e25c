#include "files/UserFile.h"

#include "files/LibraryFailure.h"
#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "records/SectionNames.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <fmt/format.h>
#include <system_error>

namespace dbsection {
namespace {

const std::array Kinds{UserFileKind{UserTableIndex, ::FindCatalogue(UserTableIndex)->name},
                       UserFileKind{GenericTableIndex, ::FindCatalogue(GenericTableIndex)->name}};

void RequireFile(const std::filesystem::path& path, UserFile::Purpose purpose) {
    const int error = LookForFile(path.c_str());
    if (error == ENOENT)
        throw CommandError(fmt::format("{}: there is no such file; \"sectiondb user create\" makes "
                                       "one.",
                                       path.string()));
    if (error != 0)
        throw CommandError(fmt::format("{}: the file cannot be reached: {}.", path.string(),
                                       std::generic_category().message(error)));
    const unsigned attributes = GetFileAttributesA(path.c_str());
    if (purpose == UserFile::Purpose::Change && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throw CommandError(
            fmt::format("{}: the file is read-only; make it writable.", path.string()));
}

double IdentifierOf(const CSectionRecordset& rows) {
    return NumberIn(rows.GetFieldValue(IdentifierColumn)).value_or(0);
}

} // namespace

UserFileKind KindOf(bool isGeneric) { return Kinds[isGeneric ? 1 : 0]; }

UserFile::UserFile(const std::filesystem::path& path, Purpose purpose)
    : m_open(OpenFile(path, purpose)) {}

UserFile::~UserFile() {
    m_open.catalogue->SetDatabase(nullptr);
    m_workspace.Rollback(); // nothing after Commit
}

OpenCatalogue UserFile::OpenFile(const std::filesystem::path& path, Purpose purpose) {
    RequireFile(path, purpose);
    m_database.Open(path.c_str(), 0, purpose == Purpose::Read ? 1 : 0,
                    SectionDBInterface::m_szPassword);
    if (purpose == Purpose::Change)
        m_workspace.BeginTrans();
    const CatalogueInformation found = ReadInformation(m_database);
    RequireLayoutVersion(m_database, found);
    const auto kind = std::ranges::find(Kinds, found.title, &UserFileKind::title);
    if (kind == Kinds.end())
        throw CommandError(fmt::format("{}: this is the catalogue \"{}\", not a file of user "
                                       "tables.",
                                       path.string(), found.title));
    return Attach(kind->index, m_database);
}

UserTable::UserTable(const UserFile& file, const std::string& family)
    : m_open(file.Catalogue()),
      m_family(FindFamily(m_open, family)) {
    const auto columns = GetSectionLayout(m_family.layout).columns.first(CountCheckedColumns());
    std::vector<std::string> units = UnitsOf(m_open, m_family);
    units.resize(BookkeepingColumns + columns.size());
    auto unit = units.begin() + BookkeepingColumns;
    for (const LayoutColumn& property : columns)
        m_properties.push_back({&property, *unit++});
}

CommandError UserTable::Error(const std::string& fault) const {
    CommandError error(
        fmt::format("{}: table \"{}\": {}", m_open.database->GetName().View(), Family(), fault));
    return error;
}

/// The number of property columns, which must be those of the layout.
std::size_t UserTable::CountCheckedColumns() const {
    std::string expected = "RECNO, Name, VessaName";
    std::string older;
    for (const LayoutColumn& column : GetSectionLayout(m_family.layout).columns) {
        expected += std::string(", ") + column.name;
        if (!column.isAdded)
            older = expected;
    }
    std::string found;
    int count = 0;
    ReadTable(m_family, [&] {
        CSectionTableDef table(m_open.database);
        table.Open(Family());
        count = table.GetFieldCount();
        for (int i = 0; i < count; ++i) {
            CSectionFieldInfo field;
            table.GetFieldInfo(i, field);
            found += (found.empty() ? "" : ", ") + std::string(field.m_strName);
        }
    });
    if (found != expected && found != older)
        throw Error(fmt::format("its columns are {}; expected {}.", found, expected));
    return static_cast<std::size_t>(count - BookkeepingColumns);
}

std::vector<UserTable::Row> UserTable::Rows() const {
    std::vector<Row> all;
    VisitRows(m_open, m_family, " ORDER BY [RECNO] ASC", [&](const CSectionRecordset& rows) {
        Row row{IdentifierOf(rows), TextAt(rows, NameColumn), TextAt(rows, VessaNameColumn), {}};
        for (int i = 0; i < std::ssize(m_properties); ++i)
            row.values.push_back(NumberIn(rows.GetFieldValue(BookkeepingColumns + i)));
        all.push_back(std::move(row));
    });
    return all;
}

/// The library finds a section by its VessaName in all tables: two of one name hide each other.
void UserTable::RequireFreeNames(const Row& row) const {
    if (const std::string fault = NameFault(row.name); !fault.empty())
        throw Error(fmt::format("\"{}\" cannot be a section's name: {}.", row.name, fault));
    if (const std::string fault = VessaNameFault(row.vessaName); !fault.empty())
        throw Error(fmt::format("\"{}\" cannot be a section's VessaName: {}; choose another one "
                                "with --vessa-name.",
                                row.vessaName, fault));
    VisitSections(m_open, row.vessaName, [&](const SectionFamily& family, const auto& rows) {
        const bool isOther = &family != &m_family || IdentifierOf(rows) != row.id;
        const std::string taken = TextAt(rows, VessaNameColumn);
        if (isOther && EqualNoCase(taken, row.vessaName))
            throw Error(fmt::format("the section \"{}\" of table \"{}\" has the VessaName \"{}\" "
                                    "already; choose another one.",
                                    TextAt(rows, NameColumn), family.table, taken));
    });
}

void UserTable::Store(const Row& row, int (SectionDBBase::*store)(WORD, SECTIONINFO*)) const {
    if (row.id < 1 || row.id > LastIdentifier || row.id != std::floor(row.id))
        throw Error(fmt::format("\"{}\" has the record number {}; only those of 1 to {} can be "
                                "changed.",
                                row.name, row.id, LastIdentifier));
    RequireFreeNames(row);
    SECTIONINFO section;
    section.PublicName = row.name.c_str();
    section.VessaName = row.vessaName.c_str();
    for (const std::optional<double>& value : row.values)
        section.Values.push_back(value.value());
    m_open.catalogue->SetWorkingTable(Family());
    ForgetFailure();
    if ((m_open.catalogue->*store)(static_cast<WORD>(row.id), &section) != 1)
        throw Error(fmt::format("\"{}\": {}", row.name, ReasonOfFailure()));
}

} // namespace dbsection
