#include "faults/World.h"

#include "FacadeSupport.h"
#include "JoistFixture.h"
#include "dataaccess/CCrack.h"
#include "engine/SectionEngine.h"

#include <utility>

using testsupport::CatalogueFile;
using testsupport::Facade;
namespace files = std::filesystem;

namespace faults {

CSectionDatabase* db = nullptr;
CSectionRecordset* rows = nullptr;
CSectionTableDef* table = nullptr;

namespace {

std::string connectHere; // NOLINT(cert-err58-cpp): it does not throw

constexpr const char* Settings = "; of the user\n"
                                 "[CustomDBFlags]\nBritishSections=1\n"
                                 "[CustomDBNames]\nBritishSections=MyBritishSections\n";
constexpr const char* Selections = "[AISCSections]\nW Shape=0\nRod=2\nAngle=-1\n";

void MakeAmerican(const std::string& path, const char* connect) {
    CatalogueFile file(path, connect);
    file.AddTable(
        "W Shape", LayoutId::IShape,
        {testsupport::W12X26,
         {"W4X13", "W4x13", {3.83, 4.16, 4.06, 0.345, 0.28, 11.3, 0.151, 14.0, 3.86, 6.28, 2.92}}});
    file.AddTable("Rod", LayoutId::RoundBar,
                  {{"Rod 1", "R1", {1.0, 0.785, 0.0491}}, {"Rod 2", "R2", {2.0, 3.14, 0.785}}});
    file.AddTable("Angle", LayoutId::Angle,
                  {{"L4X3X1/4",
                    "L40304",
                    {4.0, 3.0, 0.25, 1.69, 2.75, 1.33, 0.0386, 1.22, 0.725, 0.639, 29.2}}});
    file.AddTable("Castellated NonComp Beam", LayoutId::Castellated,
                  {{"CB18X26",
                    "CB18X26",
                    {COleVariant("W12x26"), 18.3, 5.6, 6.49, 0.38, 0.23, 480.0, 17.3, 12.0, 15.0,
                     4.5, 3.1, 60.0}}});
}

void MakeAluminium(const std::string& path, const char* connect) {
    CatalogueFile(path, connect)
        .AddTable(
            "Alloy", LayoutId::AluminiumAlloy,
            {{"6061-T6",
              "6061",
              {COleVariant("Extrusions"), 0.0, 1.0, 0.0, 0.0, 38.0, 35.0, 35.0, 24.0, 10100.0}}});
}

void MakeUserTables(const std::string& path, const char* connect) {
    CatalogueFile(path, connect)
        .AddTable("Wide Flange", LayoutId::IShape,
                  {{"MY 1", "MY1", testsupport::W12X26.properties}});
}

void MakeJoists(const std::string& path, const char* connect) {
    CatalogueFile file(path, connect);
    testsupport::AddJoistTables(file);
}

/// Texts beyond what a string keeps within itself.
void MakeShapes(const std::string& path, const char* connect) {
    testsupport::CreateCatalogue(path, 3, connect);
    CSectionDatabase* file = nullptr;
    openDatabase(&file, path.c_str(), 1, 0, 0, connect, nullptr);
    testsupport::CreateShapeTable(file, "A table with a long name");
    closeDatabase(&file, 1);
}

void CloseHandles() {
    closeRecordset(&rows);
    closeTableDef(&table);
    closeDatabase(&db, 1);
    std::int32_t err = 0;
    for (std::int32_t slot = 0; slot < 10; ++slot)
        CLOSESECTIONRECORDSET(&slot, &err);
    Facade::CloseGblSectionDBObject(1);
    terminateDAOEngine();
}

} // namespace

void MakeWorld(const std::string& folder, const std::string& connect) {
    const auto path = [&](const std::string& name) { return folder + "/" + name; };
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const std::string file = path(Facade::m_saSectionFile[index] + std::string(".db3"));
        if (index == 1)
            MakeAmerican(file, connect.c_str());
        else if (index == 17)
            MakeAluminium(file, connect.c_str());
        else if (index == 21)
            MakeJoists(file, connect.c_str());
        else
            CatalogueFile(file, connect.c_str())
                .AddTable("Angle", LayoutId::Angle,
                          {{index == 7 ? "W12X26" : "none", index == 7 ? "W12x26" : "none", {}}});
    }
    files::rename(path("BritishSections.db3"), path("MyBritishSections.db3"));
    MakeUserTables(path("User.db3"), connect.c_str());
    MakeShapes(path("Shapes.db3"), connect.c_str());
    testsupport::WriteFile(path("Custom.Ini"), Settings);
    testsupport::WriteFile(path("Tables.dbi"), Selections);
}

World::World(std::string original, std::string connect)
    : m_original(std::move(original)),
      m_connect(std::move(connect)) {
    connectHere = m_connect;
    SetMessageBoxHandler([](const char*, const char*, unsigned) { return 1; });
    files::current_path(m_folder.Path());
    RestoreFiles();
}

World::~World() { files::current_path("/"); }

void World::PointFacadeHere() const {
    Facade::SetProfileDBFolder(m_folder.Path().c_str());
    Facade::SetINIFileName(m_folder.File("Custom.Ini").c_str());
    Facade::SetDBIFileName(m_folder.File("Tables.dbi").c_str());
    Facade::m_szUserTableFileName = m_folder.File("User.db3").c_str();
    Facade::SetSectionDBPassword(m_connect.c_str());
    Facade::SetEngineMode(0);
    Facade::SetExceptionType(0);
}

void World::Begin() {
    CloseHandles();
    Facade::ExitSectionDBInterface();
    PointFacadeHere();
    Facade::InitSectionDBInterface();
}

void World::GoOn() {
    CloseHandles();
    PointFacadeHere();
}

void World::RestoreFiles() {
    for (const auto& entry : files::directory_iterator(m_folder.Path()))
        if (!files::exists(m_original / entry.path().filename()))
            files::remove(entry.path());
    for (const auto& entry : files::directory_iterator(m_original))
        files::copy_file(entry.path(), m_folder.File(entry.path().filename().string()),
                         files::copy_options::overwrite_existing);
}

const char* Connect() { return connectHere.c_str(); }

SectionDBBase* AttachUserTables(const char* file, const char* tableName) {
    openDatabase(&db, file, 1, 0, 0, Connect(), nullptr);
    SectionDBBase* object = Facade::m_SectionDBDrv.GetSectionDBObject(UserTableIndex);
    object->SetDatabase(db);
    object->SetWorkingTable(tableName);
    return object;
}

SECTIONINFO NewSection(const char* name) {
    SECTIONINFO section;
    section.PublicName = section.VessaName = name;
    section.Values = {7.65, 99, 6.49, 0.38, 0.23, 204, 0.3, 607, 17.3, 37.2, 8.17};
    return section;
}

void OpenShapes() { openDatabase(&db, "Shapes.db3", 1, 0, 0, Connect(), nullptr); }

void OpenRows(const char* sql, int type) {
    OpenShapes();
    openRecordset(&db, &rows, sql, type, 0);
}

void OpenOrdered() { OpenRows(Ordered); }

std::string Shapes() { return RowsOf("Shapes.db3", "Shape"); }

std::string RowsOf(const char* file, const char* tableName) {
    CSectionDatabase* database = nullptr;
    CSectionRecordset* content = nullptr;
    std::string text;
    if (openDatabase(&database, file, 1, 0, 1, Connect(), nullptr) != 1 ||
        openRecordset(&database, &content, tableName, 4, 0) != 1)
        text = "unreadable";
    for (; content != nullptr && !content->IsEOF(); content->MoveNext())
        for (int column = 1; column < std::min(content->GetFieldCount(), 4); ++column)
            text += (text.empty() ? "" : " ") +
                    std::string(CCrack::strVARIANT(content->GetFieldValue(column)));
    closeRecordset(&content);
    closeDatabase(&database, 1);
    return text;
}

} // namespace faults
