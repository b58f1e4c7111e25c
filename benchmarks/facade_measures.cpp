// The façade over all catalogues.
#include "EngineCalls.h"
#include "EngineWork.h"
#include "EveryCatalogue.h"
#include "Measure.h"

#include "dataaccess/Handles.h"
#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"

#include <filesystem>
#include <list>
#include <memory>
#include <stdexcept>
#include <sys/stat.h>

namespace sectionbench {
namespace {

using Facade = SectionDBInterface;

constexpr const char* NoName = "Nowhere";

std::size_t CatalogueWith(const char* name, const Catalogues& catalogues) {
    return name == EveryCatalogue::LastName ? catalogues.Every().Files().size() : 0;
}

void UseFolder(const std::string& folder) {
    Facade::ExitSectionDBInterface();
    Facade::SetProfileDBFolder(folder.c_str());
    Facade::SetSectionDBPassword(Catalogues::Password);
}

// Our side.

Action Resolve(const Catalogues& catalogues, const char* name) {
    UseFolder(catalogues.Every().Folder());
    const std::size_t expected = CatalogueWith(name, catalogues);
    return [name, expected] {
        CUIntArray indices;
        CUIntArray types;
        Facade::GetCountryAndSectionTypeFromVessaName(name, indices, types);
        Require(static_cast<std::size_t>(types.GetSize()) == expected, "resolve a name");
    };
}

/// With no file open or resting beforehand; only the keys are known.
Action MakeTableIndex(const Catalogues& catalogues) {
    UseFolder(catalogues.Every().Folder());
    const std::string path = catalogues.Every().Folder() + "/index.dbi";
    return [path] {
        Facade::ExitSectionDBInterface();
        Facade::SetDBIFileName(path.c_str());
        std::filesystem::remove(path);
        Facade::InitialiseDBIFile();
        Require(std::filesystem::file_size(path) > 0, "write the table index");
    };
}

Action ListNames(const Catalogues& catalogues) {
    UseFolder(catalogues.ProtectedFolder());
    const std::size_t expected = catalogues.Names().size();
    return [expected] {
        const std::unique_ptr<CStringList> names(Facade::GetSectionNameList(American, WShape, 0));
        Require(names && static_cast<std::size_t>(names->GetCount()) == expected, "list names");
    };
}

Action Add(const Catalogues& catalogues) {
    UseFolder(catalogues.ProtectedFolder());
    return [] { AddSections(); };
}

Action Delete(const Catalogues& catalogues) {
    UseFolder(catalogues.ProtectedFolder());
    return [&names = catalogues.Names()] { DeleteSections(names); };
}

// The engine's side.

Action AddRaw(const Catalogues& catalogues) {
    auto database =
        std::make_shared<EngineDatabase>(catalogues.Protected(), catalogues.KeyStatement().c_str());
    return [database] { AddSectionsRaw(*database); };
}

Action DeleteRaw(const Catalogues& catalogues) {
    auto database =
        std::make_shared<EngineDatabase>(catalogues.Protected(), catalogues.KeyStatement().c_str());
    return [database, &names = catalogues.Names()] { DeleteSectionsRaw(*database, names); };
}

class OpenCatalogues {
public:
    explicit OpenCatalogues(const std::vector<EveryCatalogue::File>& files) : m_files(files) {
        for (const auto& file : files)
            m_databases.push_back(
                std::make_unique<EngineDatabase>(file.path, file.keyStatement.c_str()));
    }

    /// Catalogue index and section type of the first table with the name in each catalogue.
    std::vector<std::pair<int, int>> Resolve(const std::string& name) const {
        std::vector<std::pair<int, int>> found;
        for (std::size_t i = 0; i < m_files.size(); ++i)
            for (const auto& table : m_files[i].tables) {
                const EngineStatement row(*m_databases[i],
                                          "SELECT * FROM [" + table.name +
                                              "] WHERE UPPER([VessaName]) = UPPER('" + name + "')");
                if (sqlite3_step(row.Get()) == SQLITE_ROW) {
                    found.emplace_back(static_cast<int>(i) + 1, table.sectionType);
                    break;
                }
            }
        return found;
    }

private:
    const std::vector<EveryCatalogue::File>& m_files;
    std::vector<std::unique_ptr<EngineDatabase>> m_databases;
};

Action ResolveRaw(const Catalogues& catalogues, const char* name) {
    const std::size_t expected = CatalogueWith(name, catalogues);
    return [name, expected, open = std::make_shared<OpenCatalogues>(catalogues.Every().Files())] {
        Require(open->Resolve(name).size() == expected, "resolve a name");
    };
}

/// A look at each of the files.
Action LookAtAll(const Catalogues& catalogues) {
    return [&files = catalogues.Every().Files()] {
        for (const auto& file : files) {
            struct stat status {};
            Keep(::stat(file.path.c_str(), &status));
        }
    };
}

/// Fifty openings of a catalogue, and a file of the size of the table index written safely.
Action OpenFiftyTimes(const Catalogues& catalogues) {
    constexpr int Openings = 50;
    constexpr std::size_t IndexSize = 6000;
    const EveryCatalogue::File& file = catalogues.Every().Files().front();
    const std::string path = catalogues.Every().Folder() + "/other.dbi";
    return [&file, path] {
        for (int i = 0; i < Openings; ++i) {
            const EngineDatabase database(file.path, file.keyStatement.c_str());
            const EngineStatement first(database, "SELECT 1 FROM sqlite_master LIMIT 1");
            Require(sqlite3_step(first.Get()) == SQLITE_ROW, "open a catalogue");
        }
        std::filesystem::remove(path);
        Require(dbsection::ReplaceFile(path.c_str(), std::string(IndexSize, '0')) == 0,
                "write a file");
    };
}

Action ListNamesRaw(const Catalogues& catalogues) {
    const std::size_t expected = catalogues.Names().size();
    auto database =
        std::make_shared<EngineDatabase>(catalogues.Protected(), catalogues.KeyStatement().c_str());
    return [database, expected] {
        std::list<std::string> names;
        const EngineStatement rows(*database, "SELECT * FROM [W Shape]");
        while (sqlite3_step(rows.Get()) == SQLITE_ROW)
            names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(rows.Get(), 2)));
        Require(names.size() == expected, "list names");
    };
}

} // namespace

std::vector<Measure> FacadeMeasures() {
    using Files = const Catalogues&;
    return {
        {"resolve a name over 37 catalogues: found",
         [](Files files) { return Resolve(files, EveryCatalogue::LastName); },
         [](Files files) { return ResolveRaw(files, EveryCatalogue::LastName); },
         {.ratio = 1.5}},
        {"resolve a name over 37 catalogues: none",
         [](Files files) { return Resolve(files, NoName); },
         [](Files files) { return ResolveRaw(files, NoName); },
         {.ratio = 1.5}},
        {"resolve a name: found; beyond 37 looks",
         [](Files files) { return Resolve(files, EveryCatalogue::LastName); },
         LookAtAll,
         {.beyond = 60}},
        {"resolve a name: none; beyond 37 looks",
         [](Files files) { return Resolve(files, NoName); },
         LookAtAll,
         {.beyond = 60}},
        {"make the table index; 50 openings, 1 write",
         MakeTableIndex,
         OpenFiftyTimes,
         {.ratio = 1.0}},
        {"list the names of all W shapes", ListNames, ListNamesRaw, {.ratio = 2.0}},
        {"add 200 W shapes in one transaction", Add, AddRaw, {.ratio = 3}},
        {"delete 280 W shapes in one transaction", Delete, DeleteRaw, {.ratio = 2}},
    };
}

} // namespace sectionbench
