// What the tests of the façade share.
#pragma once

#include "CatalogueFixture.h"
#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <filesystem>
#include <memory>

namespace testsupport {

using Facade = SectionDBInterface;

/// Writes a catalogue whose W shapes number `count`, which tells the files apart.
inline void MakeCatalogue(const std::string& path, int count, const char* connect = "") {
    CatalogueFile file(path, connect);
    file.AddTable("W Shape", LayoutId::IShape,
                  std::vector<Section>(static_cast<std::size_t>(count), W12X26));
}

/// The summary of a section in units of the caller; null where there is none.
inline std::unique_ptr<SECTIONINFO> SummaryOf(int index, const char* name, unsigned length,
                                              unsigned force) {
    int type = 0;
    auto* record = static_cast<SectionRecord*>(
        Facade::GetSectionStructProperty(index, name, type, length, force, ""));
    return std::unique_ptr<SECTIONINFO>(dynamic_cast<SECTIONINFO*>(record));
}

inline std::string WithBackslashes(std::string path) {
    std::ranges::replace(path, '/', '\\');
    return path;
}

/// Points the façade at a folder of its own, and leaves it without settings.
class FacadeTest : public DataAccessTest {
protected:
    FacadeTest() {
        Reset();
        Facade::SetProfileDBFolder(m_folder.Path().c_str());
        Facade::SetINIFileName(m_folder.File("none.ini").c_str());
    }
    ~FacadeTest() override {
        Facade::ExitSectionDBInterface();
        Reset();
    }

    static void Reset() {
        for (const char* name : {"SECTIONDB_FOLDER", "SECTIONDB_INI", "SECTIONDB_DBI"})
            ::unsetenv(name);
        for (CString* text : {&Facade::m_szPassword, &Facade::m_szDBIFileName,
                              &Facade::m_szIniFileName, &Facade::m_szUserTableFileName,
                              &Facade::m_szGenericTableFileName, &Facade::m_szSectionDBFolder})
            *text = {};
    }

    std::string File(const char* name) const { return m_folder.File(name); }

    /// The native form of the path of a catalogue's file.
    static std::string FileOf(int index) {
        return std::filesystem::path(
                   dbsection::NativePath(Facade::GetDatabaseFileName(index).View()))
            .lexically_normal()
            .string();
    }
};

} // namespace testsupport
