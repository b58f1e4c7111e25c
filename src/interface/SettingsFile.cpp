#include "interface/SettingsFile.h"

#include "platform/PrivateProfile.h"

#include <cerrno>

namespace dbsection {
namespace {

void ReportSettings(int error, const CString& file, FailureRule rule) {
    if (error == ENOMEM) {
        HandleFailure(rule, CMemoryException::Instance());
        return;
    }
    if (error == EWOULDBLOCK)
        rule.message = "Another program is writing settings in the same folder; try again when it "
                       "has finished.";
    Report(rule, new CFileException(error, file), HandleFileException);
}

} // namespace

bool SettingsWereRead(const CString& file, const FailureRule& rule) {
    const int error = GetLastProfileError();
    if (error == 0 || error == ENOENT || error == ENOTDIR || error == EISDIR)
        return true;
    ReportSettings(error, file, rule);
    return false;
}

bool SettingsWereWritten(const CString& file, const FailureRule& rule) {
    const int error = GetLastProfileError();
    if (error != 0)
        ReportSettings(error, file, rule);
    return error == 0;
}

} // namespace dbsection
