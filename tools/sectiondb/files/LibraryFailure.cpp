#include "files/LibraryFailure.h"

#include "dataaccess/LibraryState.h"
#include "output/Messages.h"
#include "platform/MessageBox.h"

#include <string>
#include <string_view>

namespace dbsection {
namespace {

std::string lastMessage;

int KeepMessage(const char* text, const char* /*caption*/, unsigned /*flags*/) {
    lastMessage = text;
    return 0;
}

} // namespace

void KeepMessages() { SetMessageBoxHandler(KeepMessage); }

void ForgetMessages() {
    lastMessage.clear();
    SectionLibraryState::SetExceptionType(0);
}

void ThrowFailure() {
    if (SectionLibraryState::GetExceptionType() == 0)
        return;
    constexpr std::string_view Cause = "\n\nCAUSE:\n"; // stands between what failed and why
    const std::size_t place = lastMessage.find(Cause);
    if (place == std::string::npos)
        throw CommandError(lastMessage);
    throw CommandError(lastMessage.substr(0, place) + ' ' +
                       lastMessage.substr(place + Cause.size()));
}

} // namespace dbsection
