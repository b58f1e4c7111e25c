#include "platform/MessageBox.h"

#include <cstdio>
#include <utility>

namespace {

MessageBoxHandler hostHandler = nullptr;

} // namespace

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
    return std::exchange(hostHandler, handler);
}

namespace dbsection {

void ShowMessageBox(const char* text, const char* caption) {
    if (hostHandler != nullptr)
        hostHandler(text, caption, MB_ICONERROR);
    else
        std::fprintf(stderr, "%s\n%s\n", caption, text);
}

} // namespace dbsection
