// What the commands on files of the user share.
#pragma once

#include "commands/CommandLine.h"
#include "files/Password.h"
#include "output/Messages.h"
#include "output/Table.h"
#include "sections/UserFile.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace dbsection {

/// A file of the user and its password.
struct UserFileOptions {
    std::filesystem::path path;
    PasswordSource password;

    void Declare(CommandLine& line);
    sections::UserFile File() const;
};

/// The bound of --as-published.
class PublishedBound {
public:
    void Declare(CommandLine& line);

    /// As a share; throws UsageError.
    double Share() const;

private:
    double m_percent = 0;
};

/// A section as a person writes it.
struct UserSectionOptions {
    std::string family;
    std::string name;
    std::vector<std::string> values; ///< "COLUMN=VALUE"
    std::string vessaName;           ///< empty: made from the name, or kept
    PublishedBound bound;

    void Declare(CommandLine& line);

    /// The section under `newName`. Throws CommandError where a value cannot be read or its column
    /// is none, and UsageError.
    sections::Draft Draft(const sections::Family& ofFamily, const std::string& newName) const;
};

/// An error of a table: path, table and what is wrong.
CommandError TableError(const sections::Family& family, const std::string& fault);

/// What a figure of a family is called by and measured in.
struct FigureTitle {
    std::string name;
    std::string meaning;
    Quantity quantity;
    std::string unit; ///< in which the table has it, or has its like
};

/// The column of figures, or the parameter of the geometry; throws CommandError where it is none.
FigureTitle FindFigure(const sections::Family& family, const std::string& name);

/// The section of that name in the family, public or else the program's; throws CommandError.
sections::Section FindSection(const sections::Family& family, const std::string& name);

/// Throws a CommandError of what must be given for the figures that the draft lacks.
void RequireAll(const sections::Family& family, const sections::Draft& completed);

/// Throws a CommandError where a section of a possible name cannot have the VessaName.
void RequireVessaName(const sections::Draft& draft);

/// Tells where analysis engines do not see the section of a record number.
void TellOfNumber(std::int64_t recordNumber);

/// Prints the section of a record number, and which of its figures were computed and how.
void PrintSection(const sections::Family& family, std::int64_t recordNumber,
                  const sections::Draft& given, const sections::Completion& whole);

} // namespace dbsection
