#include "dataaccess/ExceptionHandlers.h"

#include "dataaccess/LastFailure.h"
#include "dataaccess/LibraryState.h"
#include "platform/MessageBox.h"

#include <array>
#include <new>

namespace {

constexpr unsigned int MessageBufferSize = 255;

struct HandlerKind {
    int code;
    const char* captionPrefix;
};

constexpr HandlerKind Memory{1, "CMemoryException occurred - "};
constexpr HandlerKind File{2, "CFileException occurred - "};
constexpr HandlerKind Resource{3, "CResourceException occurred - "};
constexpr HandlerKind Dao{4, "CDaoException occurred - "};
constexpr HandlerKind Ole{5, "COleException occurred - "};
constexpr HandlerKind Archive{6, "CArchiveException occurred - "};

/// Shows the text that `compose` makes. Where there is no memory left for it, the message and the
/// caption's prefix must do: nothing may be thrown here.
template <class Compose>
void ShowUnlessEngineMode(const HandlerKind& kind, const CString& message, const CString& label,
                          Compose compose) {
    if (SectionLibraryState::IsEngineMode() != 0)
        return;
    CString text;
    CString caption;
    try {
        text = compose();
        caption = kind.captionPrefix + label;
    } catch (const std::bad_alloc&) {
        dbsection::ShowMessageBox(message, kind.captionPrefix);
        return;
    }
    dbsection::ShowMessageBox(text, caption);
}

/// Keeps message and cause, or the message alone where there is no memory for the cause.
void Keep(const CException& e, const CString& message) {
    try {
        dbsection::KeepFailure(message, e.GetMessage());
    } catch (const std::bad_alloc&) {
        dbsection::KeepFailure(message, "");
    }
}

void Handle(const HandlerKind& kind, CException* e, const CString& message, const CString& label) {
    SectionLibraryState::SetExceptionType(kind.code);
    Keep(*e, message);
    ShowUnlessEngineMode(kind, message, label, [&] {
        std::array<char, MessageBufferSize> cause{};
        e->GetErrorMessage(cause.data(), MessageBufferSize);
        return message + "\n\nCAUSE:\n" + cause.data();
    });
    e->Delete();
}

CString StatusText(std::int32_t status) {
    const auto bits = static_cast<std::uint32_t>(status);
    CString text;
    text.Format("ERROR:CDaoException\n\nSCODE_CODE =%d\nSCODE_FACILITY =%d\nSCODE_SEVERITY =%d\n"
                "ResultFromScode =%d\n",
                static_cast<int>(bits & 0xFFFF), static_cast<int>(bits >> 16 & 0x1FFF),
                static_cast<int>(bits >> 31 & 1), status);
    return text;
}

void CountQuietly(int errorNumber) {
    if (SectionLibraryState::IsEngineMode() != 0)
        return;
    if (errorNumber == SectionLibraryState::m_nLastDaoError) {
        ++SectionLibraryState::m_nDaoErrorRepeats;
        return;
    }
    SectionLibraryState::m_nDaoErrorRepeats = 0;
    SectionLibraryState::m_nLastDaoError = errorNumber;
}

} // namespace

void HandleMemoryException(CMemoryException* e, CString message, CString label) {
    Handle(Memory, e, message, label);
}

void HandleFileException(CFileException* e, CString message, CString label) {
    Handle(File, e, message, label);
}

void HandleResourceException(CFileException* e, CString message, CString label) {
    Handle(Resource, e, message, label);
}

void HandleOleException(COleException* e, CString message, CString label) {
    Handle(Ole, e, message, label);
}

void HandleArchiveException(CArchiveException* e, CString message, CString label) {
    Handle(Archive, e, message, label);
}

void HandleDaoException(CSectionException* e, CString message, CString label) {
    SectionLibraryState::SetExceptionType(Dao.code);
    Keep(*e, message);
    if (e->m_errorInfo)
        CountQuietly(e->GetErrorNumber());
    else
        ShowUnlessEngineMode(Dao, message, label,
                             [&] { return message + "\n\n" + StatusText(e->m_scode); });
    e->Delete();
}
