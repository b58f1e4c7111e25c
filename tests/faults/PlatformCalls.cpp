// The platform layer: settings files, file attributes, texts of values.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/ExceptionHandlers.h"
#include "dataaccess/LibraryState.h"
#include "platform/FileSystem.h"
#include "platform/PrivateProfile.h"

#include <array>
#include <cerrno>

namespace faults {
namespace {

constexpr const char* Settings = "Custom.Ini";

std::string Names() {
    const std::string text = testsupport::ReadFile(Settings);
    return text.substr(std::min(text.find("[CustomDBNames]"), text.size()));
}

const char* const Unchanged = "[CustomDBNames]\nBritishSections=MyBritishSections\n";

/// The profile functions tell their failures by GetLastProfileError, not by a kind.
std::string WithError(const std::string& answer) {
    return GetLastProfileError() == 0 ? answer : "failed";
}

/// A handler stores its kind, whatever becomes of the texts that it shows.
template <class Exception>
PublicCall Handler(const char* name, void (*handle)(Exception*, CString, CString),
                   Exception* (*make)(), const char* kind) {
    return Call(name, kind, {}, [=] {
        Exception* e = make();
        CString message(
            "Failed to do what was asked for."); // by value: the copies are the caller's
        CString label("aFunctionOfALongName()");
        Under([&] { handle(e, std::move(message), std::move(label)); });
        return Tell(SectionLibraryState::GetExceptionType());
    });
}

} // namespace

PublicCalls PlatformCalls() {
    return {
        Handler<CMemoryException>("HandleMemoryException", HandleMemoryException,
                                  CMemoryException::Instance, "1"),
        Handler<CFileException>(
            "HandleFileException", HandleFileException,
            [] { return new CFileException(ENOENT, "a file of a long name"); }, "2"),
        Handler<CFileException>(
            "HandleResourceException", HandleResourceException, [] { return new CFileException; },
            "3"),
        Handler<CSectionException>(
            "HandleDaoException", HandleDaoException,
            [] { return new CSectionException(static_cast<std::int32_t>(0x80004005)); }, "4"),
        Handler<COleException>(
            "HandleOleException", HandleOleException, [] { return new COleException; }, "5"),
        Handler<CArchiveException>(
            "HandleArchiveException", HandleArchiveException, [] { return new CArchiveException; },
            "6"),
        Call("SetFileAttributesA", "1", {"0"},
             [] { return SetFileAttributesA(Settings, FILE_ATTRIBUTE_READONLY); })
            .On([] { SetFileAttributesA(Settings, FILE_ATTRIBUTE_NORMAL); })
            .Quietly(),
        Call("GetPrivateProfileIntA", "1", {"failed"},
             [] {
                 return WithError(Tell(static_cast<int>(Under([] {
                     return GetPrivateProfileIntA("CustomDBFlags", "britishsections", 7, Settings);
                 }))));
             })
            .Quietly(),
        Call("GetPrivateProfileStringA", "MyBritishSections", {"failed"},
             [] {
                 std::array<char, 64> text{};
                 Under([&] {
                     GetPrivateProfileStringA("CustomDBNames", "BritishSections", "none",
                                              text.data(), 64, Settings);
                 });
                 return WithError(text.data());
             })
            .Quietly(),
        Call("WritePrivateProfileStringA",
             std::string("1 -> ") + Unchanged + "AISCSections=A file of a long name\n",
             {std::string("0 -> ") + Unchanged},
             [] {
                 return WritePrivateProfileStringA("CustomDBNames", "AISCSections",
                                                   "A file of a long name", Settings);
             })
            .Quietly()
            .Leaving(Names),
        Call("WritePrivateProfileEntries", "1 -> [CustomDBNames]\nDutchSections=Dutch\n",
             {std::string("0 -> ") + Unchanged},
             [] {
                 static constexpr std::array Entries{
                     ProfileEntry{"CustomDBNames", "BritishSections", nullptr},
                     ProfileEntry{"CustomDBNames", "DutchSections", "Dutch"}};
                 return WritePrivateProfileEntries(Entries, Settings);
             })
            .Quietly()
            .Leaving(Names),
        Call("CreatePrivateProfile", "1 -> [New]\nKey=1\n", {"0 -> "},
             [] {
                 static constexpr std::array Entries{ProfileEntry{"New", "Key", "1"}};
                 return CreatePrivateProfile(Entries, "New.Ini");
             })
            .Quietly()
            .Leaving([] { return testsupport::ReadFile("New.Ini"); }),
        Call("GetFileAttributesA", "128", {"-1"},
             [] { return static_cast<int>(GetFileAttributesA(Settings)); })
            .Quietly(),
        Call("strVARIANT", "a text beyond what a string keeps within itself", {"empty"},
             [] {
                 const COleVariant value("a text beyond what a string keeps within itself");
                 return Tell(Under([&] { return CCrack::strVARIANT(value); }));
             }),
    };
}

} // namespace faults
