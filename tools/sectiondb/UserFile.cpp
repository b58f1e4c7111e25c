#include "sectiondb/UserFile.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionException.h"
#include "dataaccess/Handles.h"
#include "interface/SectionDBInterface.h"
#include "platform/MessageBox.h"
#include "platform/Text.h"
#include "sectiondb/NameRule.h"
#include "units/UNIT.h"

#include <array>
#include <fmt/format.h>
#include <memory>

namespace dbsection {
namespace {

constexpr std::array Kinds{UserFileKind{UserTableIndex, "User tables"},
                           UserFileKind{GenericTableIndex, "Generic shapes"}};

struct Failure {
    int number;
    const char* text;
};

/// Why a row was not stored, for the errors that the library keeps quiet about.
constexpr std::array Failures{
    Failure{SectionError::ReadOnly, "the file is read-only; make it writable"},
    Failure{SectionError::DiskFull, "the disk is full; free some space"},
    Failure{SectionError::Io, "the file cannot be written; check the disk"},
    Failure{SectionError::InUse, "another program uses the file; close it there"},
    Failure{SectionError::LockedWhileWriting, "another program is writing; try again"},
    Failure{SectionError::DuplicateKey,
            "another program has stored a section of this name or number; try again"},
    Failure{SectionError::NoCurrentRecord, "another program has removed the section"},
};

std::string lastMessage;

int KeepMessage(const char* text, const char* /*caption*/, unsigned /*flags*/) {
    lastMessage = text;
    return 0;
}

/// What the library has said, or kept quiet about, since `ForgetFailure`.
std::string ReasonOfFailure() {
    if (!lastMessage.empty())
        return lastMessage;
    for (const auto& [number, text] : Failures)
        if (number == SectionLibraryState::m_nLastDaoError)
            return text;
    return fmt::format("error {} of the database", SectionLibraryState::m_nLastDaoError);
}

void ForgetFailure() {
    lastMessage.clear();
    SectionLibraryState::m_nLastDaoError = 0;
    SetMessageBoxHandler(KeepMessage);
}

} // namespace

UserFileKind KindOf(bool isGeneric) { return Kinds[isGeneric ? 1 : 0]; }

OpenCatalogue OpenUserFile(const std::filesystem::path& file) {
    if (!std::filesystem::is_regular_file(file))
        throw CommandError(fmt::format("{}: there is no such file; \"sectiondb user create\" makes "
                                       "one.",
                                       file.string()));
    SectionDBInterface::m_szUserTableFileName = file.c_str();
    SectionDBInterface::SetGenericTableFileName(file.c_str());
    OpenCatalogue open = Open(UserTableIndex);
    const std::string title = TitleOf(file.c_str());
    for (const UserFileKind& kind : Kinds)
        if (title == kind.title)
            return kind.index == open.index ? open : Open(kind.index);
    throw CommandError(fmt::format("{}: this is the catalogue \"{}\", not a file of user tables.",
                                   file.string(), title));
}

UserTable::UserTable(const std::filesystem::path& file, const std::string& family)
    : m_path(file.string()),
      m_open(OpenUserFile(file)),
      m_family(FindFamily(m_open, family)) {
    CheckColumns();
    const std::unique_ptr<CStringArray> units(UNIT::GetFieldUnitList(m_open.database, Family()));
    int column = BookkeepingColumns;
    for (const LayoutColumn& property : GetSectionLayout(m_family.layout).columns) {
        const bool hasUnit = units && column < units->GetSize();
        m_properties.push_back({&property, hasUnit ? std::string(units->GetAt(column)) : ""});
        ++column;
    }
}

CommandError UserTable::Error(const std::string& fault) const {
    CommandError error(fmt::format("{}: table \"{}\": {}", m_path, Family(), fault));
    return error;
}

void UserTable::CheckColumns() const {
    std::string expected = "RECNO, Name, VessaName";
    for (const LayoutColumn& column : GetSectionLayout(m_family.layout).columns)
        expected += std::string(", ") + column.name;
    CStringArray names;
    m_open.catalogue->GetSectionFieldNameArray(m_family.sectionType, &names);
    std::string found;
    for (const CString& name : names)
        found += (found.empty() ? "" : ", ") + std::string(name);
    if (found != expected)
        throw Error(fmt::format("its columns are {}; expected {}.", found, expected));
}

std::vector<UserTable::Row> UserTable::Rows() const {
    std::vector<Row> all;
    RecordsetHandle rows;
    CSectionDatabase* database = m_open.database;
    const std::string sql = fmt::format("Select * From [{}] ORDER BY [RECNO] ASC", Family());
    if (openRecordset(&database, rows.Address(), sql.c_str(), CSectionRecordset::Snapshot, 1) != 1)
        throw Error("it cannot be read; the file is damaged or in use.");
    for (; !rows->IsEOF(); rows->MoveNext()) {
        const auto number = [&](int column) {
            return NumberIn(rows->GetFieldValue(column)).value_or(0);
        };
        const auto text = [&](int column) {
            return std::string(CCrack::strVARIANT(rows->GetFieldValue(column)));
        };
        Row row{static_cast<WORD>(number(IdentifierColumn)),
                text(NameColumn),
                text(VessaNameColumn),
                {}};
        for (int i = 0; i < std::ssize(m_properties); ++i)
            row.values.push_back(number(BookkeepingColumns + i));
        all.push_back(std::move(row));
    }
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
    for (const Row& other : Rows())
        if (other.id != row.id && EqualNoCase(other.vessaName, row.vessaName))
            throw Error(fmt::format("the section \"{}\" has the VessaName \"{}\" already; choose "
                                    "another one.",
                                    other.name, other.vessaName));
    CString table;
    m_open.catalogue->FindSectionTable(row.vessaName.c_str(), table);
    if (!table.IsEmpty() && table != Family())
        throw Error(fmt::format("a section of table \"{}\" has the VessaName \"{}\" already; "
                                "choose another one.",
                                table.View(), row.vessaName));
}

void UserTable::Store(const Row& row, int (SectionDBBase::*store)(WORD, SECTIONINFO*)) const {
    RequireFreeNames(row);
    SECTIONINFO section;
    section.PublicName = row.name.c_str();
    section.VessaName = row.vessaName.c_str();
    section.Values = row.values;
    m_open.catalogue->SetWorkingTable(Family());
    ForgetFailure();
    if ((m_open.catalogue->*store)(row.id, &section) != 1)
        throw Error(fmt::format("\"{}\": {}", row.name, ReasonOfFailure()));
}

} // namespace dbsection
