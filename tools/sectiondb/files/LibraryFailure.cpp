#include "files/LibraryFailure.h"

#include "dataaccess/CSectionException.h"
#include "dataaccess/LibraryState.h"
#include "platform/MessageBox.h"

#include <array>
#include <fmt/format.h>
#include <string_view>

namespace dbsection {
namespace {

struct Failure {
    int number;
    const char* text;
};

/// The errors that the library keeps quiet about.
constexpr std::array Failures{
    Failure{SectionError::ReadOnly, "the file is read-only; make it writable"},
    Failure{SectionError::DiskFull, "the disk is full; free some space"},
    Failure{SectionError::Io, "the file cannot be read or written; check the disk"},
    Failure{SectionError::Damaged, "the file is damaged; replace it by a good copy"},
    Failure{SectionError::InUse, "another program uses the file; close it there, or try again"},
    Failure{SectionError::LockedWhileWriting, "another program is writing; try again"},
    Failure{SectionError::DuplicateKey,
            "another program has stored a section of this name or number; try again"},
    Failure{SectionError::ChangedByOther,
            "another program has changed the section meanwhile; look at it again"},
    Failure{SectionError::NoCurrentRecord, "another program has removed the section"},
};

std::string lastMessage;

int KeepMessage(const char* text, const char* /*caption*/, unsigned /*flags*/) {
    lastMessage = text;
    return 0;
}

} // namespace

void KeepMessages() { SetMessageBoxHandler(KeepMessage); }

void ForgetFailure() {
    lastMessage.clear();
    SectionLibraryState::SetExceptionType(0);
    SectionLibraryState::m_nLastDaoError = 0;
}

bool HasFailed() { return SectionLibraryState::GetExceptionType() != 0; }

std::string ReasonOfFailure() {
    constexpr std::string_view Cause = "\n\nCAUSE:\n"; // stands between what failed and why
    std::string message = lastMessage;
    if (const std::size_t place = message.find(Cause); place != std::string::npos)
        message.replace(place, Cause.size(), " ");
    if (!message.empty())
        return message;
    for (const auto& [number, text] : Failures)
        if (number == SectionLibraryState::m_nLastDaoError)
            return text;
    return fmt::format("error {} of the database", SectionLibraryState::m_nLastDaoError);
}

} // namespace dbsection
