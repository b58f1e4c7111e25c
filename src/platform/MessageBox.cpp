#include "platform/MessageBox.h"

#include "platform/CallState.h"

#include <atomic>
#include <cstdio>

namespace {

/// A thread that is refused reads it while another one is inside the library.
std::atomic<MessageBoxHandler> hostHandler = nullptr;

} // namespace

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
    return hostHandler.exchange(handler);
}

namespace dbsection {

void ShowMessageBox(const char* text, const char* caption) {
    const HostScope host;
    if (const MessageBoxHandler handler = hostHandler)
        handler(text, caption, MB_ICONERROR);
    else
        std::fprintf(stderr, "%s\n%s\n", caption, text);
}

} // namespace dbsection
