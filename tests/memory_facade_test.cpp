// Memory that runs out at any allocation of a call of the façade.
#include "MemorySupport.h"

using namespace testsupport;

namespace {

constexpr unsigned Kilonewton = 2007;
constexpr int ByArea[2][2] = {{3, 0}, {-1, 0}};

TEST_F(MemoryTest, OfTheFacadesListsAndValues) {
    const auto type = [](auto call) {
        int found = -9;
        const int result = Attempt([&] { return call(&found); });
        return result == 0 ? Text(0) : Text(result, found);
    };
    const Case cases[] = {
        {"GetSectionCount",
         [] { return Text(Attempt([] { return Facade::GetSectionCount(1, 1); })); }, "2"},
        {"GetSectionFieldCount",
         [] { return Text(Attempt([] { return Facade::GetSectionFieldCount(1, Rod); })); }, "3"},
        {"of a replaced catalogue",
         [] { return Text(Attempt([] { return Facade::GetSectionCount(British, 1); })); }, "3"},
        {"GetTableFromSectionType",
         [] {
             return Text(Attempt([] { return Facade::GetTableFromSectionType(1, Rod); }).View());
         },
         "Rod", ""},
        {"GetSectionTypeFromTable",
         [] { return Text(Attempt([] { return Facade::GetSectionTypeFromTable(1, "Rod"); })); },
         "15", "-1"},
        {"GetShapeTypeFromSection",
         [] { return Text(Attempt([] { return Facade::GetShapeTypeFromSection(1, Rod); })); }, "6"},
        {"GetSectionTypeList",
         [] { return Taken(Attempt([] { return Facade::GetSectionTypeList(1); })); },
         "W Shape, Rod", "null"},
        {"GetSectionNameList",
         [] { return Taken(Attempt([] { return Facade::GetSectionNameList(1, 1, 1); })); },
         "THE-FIRST-BEAM-OF-ALL, THE-SECOND-BEAM-OF-ALL", "null"},
        {"GetSectionPublicNameList",
         [] {
             std::vector<CString> names{"what was there before"};
             CUIntArray ids;
             AttemptVoid([&] { Facade::GetSectionPublicNameList(1, 1, &ids, names, 0); });
             return Joined(names) + " " + Numbers(ids);
         },
         "the first beam of the standard, the second beam of the standard 1,2", " "},
        {"GetSortedSectionNameList",
         [] {
             CStringArray columns;
             columns.Add("AX");
             return Taken(
                 Attempt([&] { return Facade::GetSortedSectionNameList(1, 1, &columns, 0); }));
         },
         "THE-SECOND-BEAM-OF-ALL, THE-FIRST-BEAM-OF-ALL", "null"},
        {"GetSectionFieldNameArray",
         [] { return Taken(Attempt([] { return Facade::GetSectionFieldNameArray(1, Rod); })); },
         "RECNO, Name, VessaName, D, AX, I", "null"},
        {"GetSectionFieldUnitsArray",
         [] { return Taken(Attempt([] { return Facade::GetSectionFieldUnitsArray(1, Rod); })); },
         "NUMBER, TEXT, TEXT, INCHES, INCHES^2, INCHES^4", "null"},
        {"GetSectionDataForGUI by number",
         [] {
             CString name;
             std::array<float, 16> values{};
             const int result = Attempt([&] {
                 return Facade::GetSectionDataForGUI(1, Rod, 1, &name, values.data(), "",
                                                     Millimetre, Kilonewton);
             });
             return result == 0 ? Text(0) : Text(result, name.View(), values[1]);
         },
         "1 THE-FIRST-BEAM-OF-ALL 38.1"},
        {"GetSectionDataForGUI by name",
         [&] {
             std::array<float, 16> values{};
             return type([&](int* shape) {
                 return Facade::GetSectionDataForGUI(1, Second, shape, values.data(), "",
                                                     Millimetre, Kilonewton);
             });
         },
         "1 1"},
        {"of a section that is not selected",
         [&] {
             std::array<float, 16> values{};
             return type([&](int* shape) {
                 return Facade::GetSectionDataForGUI(1, First, shape, values.data(), "", Millimetre,
                                                     Kilonewton);
             });
         },
         "0"},
        {"GetSectionDataForGUIAllValues",
         [&] {
             int recordNo = -9;
             std::array<float, 16> values{};
             return type([&](int* sectionType) {
                 *sectionType = WShape;
                 return Facade::GetSectionDataForGUIAllValues(1, Second, sectionType, &recordNo,
                                                              values.data(), 0, 0);
             });
         },
         "1 1"},
        {"GetSectionData",
         [] {
             int sectionType = -9;
             const std::unique_ptr<SectionRecord> record(static_cast<SectionRecord*>(
                 Attempt([&] { return Facade::GetSectionData(1, Second, sectionType, ""); })));
             return record ? Text(record->PublicName.View(), record->Number(3), sectionType)
                           : Text("null", sectionType);
         },
         "the second beam of the standard 3.83 1", "null -9"},
        {"GetSectionStructProperty",
         [] {
             int sectionType = -9;
             const std::unique_ptr<SectionRecord> record(static_cast<SectionRecord*>(Attempt([&] {
                 return Facade::GetSectionStructProperty(1, First, sectionType, 1001, 2001, "");
             })));
             return record ? Text(dynamic_cast<SECTIONINFO&>(*record).Area, sectionType)
                           : std::string("null");
         },
         "7.65 1", "null"},
    };
    for (const Case& c : cases)
        Exhaust(c);
}

TEST_F(MemoryTest, OfTheFacadesNamesAndSettings) {
    const std::string folder = m_folder.Path();
    const std::string british = folder + "\\ReplacementSections.db3";
    const std::string oldIndex = File("an index file of a long name.dbi");
    const std::string newIndex = File("another index file of a long name.dbi");
    const Case cases[] = {
        {"names by a name",
         [] {
             CUIntArray types;
             std::vector<CString> names;
             const int result = Attempt([&] {
                 return Facade::GetSectionTypeAndPublicNameFromVessaName(1, First, types, names);
             });
             return Text(result, Numbers(types), Joined(names));
         },
         "1 1 the first beam of the standard", "0  "},
        {"catalogues by a name",
         [] {
             CUIntArray catalogues;
             CUIntArray types;
             Attempt([&] {
                 return Facade::GetCountryAndSectionTypeFromPublicName(
                     "the only rod of the standard", catalogues, types);
             });
             return Numbers(catalogues) == "1" && Numbers(types) == "15" ? "found"
                    : catalogues.IsEmpty() && types.IsEmpty()            ? "nothing"
                                                                         : "half";
         },
         "found", "nothing"},
        {"a table by a name",
         [] {
             CString table;
             const int result =
                 Attempt([&] { return Facade::GetTableNameFromSection(1, Second, table); });
             return Text(result, table.View());
         },
         "1 W Shape", "0 "},
        {"IsSectionInProject",
         [] { return Text(Attempt([] { return Facade::IsSectionInProject(1, 1, 2); })); }, "1"},
        {"GetUserSelectedSections",
         [] {
             CDWordArray selection;
             selection.Add(7);
             AttemptVoid([&] { Facade::GetUserSelectedSections(1, WShape, selection); });
             return Text(static_cast<int>(selection[0]));
         },
         "2", "-1"},
        {"GetUserSelectedSectionNameList",
         [] { return Taken(Attempt([] { return Facade::GetUserSelectedSectionNameList(1, 1); })); },
         Second, "null"},
        {"GetDatabaseFileName",
         [] {
             const CString path = Attempt([] { return Facade::GetDatabaseFileName(British); });
             return std::string(path.View());
         },
         british.c_str(), ""},
        {"GetDBInfo",
         [] {
             const std::string path(Facade::GetDatabaseFileName(American).View());
             CString file(path);
             std::array<CString, 5> info;
             const int result = Attempt([&] {
                 return Facade::GetDBInfo(std::move(file), info[2], info[0], info[3], info[1],
                                          info[4]);
             });
             return Text(result, Joined(info));
         },
         "1 title, standard, source, 2, hash", "0 "},
        {"GetCountryName",
         [] { return std::string(Attempt([] { return Facade::GetCountryName(29); }).View()); },
         "ColdFormed (Japanse)", ""},
        {"SetDBIFileName",
         [&] {
             Facade::SetDBIFileName(oldIndex.c_str());
             AttemptVoid([&] { Facade::SetDBIFileName(newIndex.c_str()); });
             std::string kept(Facade::GetDBIFileName().View());
             Facade::SetDBIFileName(File("user.dbi").c_str());
             return kept;
         },
         newIndex.c_str(), oldIndex.c_str()},
        {"SaveUserSelectedSections",
         [&] {
             WriteFile(oldIndex, "[AISCSections]\nRod=0\n");
             Facade::SetDBIFileName(oldIndex.c_str());
             CDWordArray selection;
             selection.Add(1);
             AttemptVoid([&] { Facade::SaveUserSelectedSections(1, Rod, selection); });
             Facade::SetDBIFileName(File("user.dbi").c_str());
             return ReadFile(oldIndex);
         },
         "[AISCSections]\nRod=1\n", "[AISCSections]\nRod=0\n", 7},
    };
    for (const Case& c : cases)
        Exhaust(c);
}

TEST_F(MemoryTest, OfTheQueries) {
    const Case cases[] = {
        {"GetSortedSectionRecords",
         [] {
             return Asked(American, [](auto... out) {
                 Facade::GetSortedSectionRecords(1, WShape, ByArea, out...);
             });
         },
         Second, "null"},
        {"GetLikeSortedSectionRecords",
         [] {
             return Asked(American, [](auto... out) {
                 Facade::GetLikeSortedSectionRecords(1, Rod, ByArea, "THE-FIRST", out...);
             });
         },
         First, "null"},
        {"GetRangeSortedSectionRecords",
         [] {
             return Asked(American, [](auto... out) {
                 Facade::GetRangeSortedSectionRecords(1, Rod, ByArea, 3, 2, 1, out...);
             });
         },
         First, "null"},
        {"GetSectionRecord",
         [] {
             return Asked(American,
                          [](auto... out) { Facade::GetSectionRecord(1, WShape, Second, out...); });
         },
         Second, "null"},
        {"GetAssignSectionRecords",
         [] {
             return Asked(American, [](auto... out) {
                 Facade::GetAssignSectionRecords(1, WShape, Second, out...);
             });
         },
         Second, "null"},
        {"GetOWSteelJoistKSeries",
         [] {
             return Asked(Joists, [](auto... out) {
                 Facade::GetOWSteelJoistKSeries(Joists, 1, 20, 250, 150, out...);
             });
         },
         "k-light, k-heavy", "null"},
        {"FindLongSpanJoistLoadType",
         [] {
             int loadType = -9;
             CSectionDatabase* database = Facade::GetDatabasePtr(Joists);
             AttemptVoid([&] {
                 Facade::FindLongSpanJoistLoadType(Joists, 3, 30, 20, &loadType, &database);
             });
             return Text(loadType == 1 ? "safe loads" : "none");
         },
         "safe loads", "none"},
        {"GetJoistGirder",
         [] {
             return Asked(Joists, [](auto... out) {
                 Facade::GetJoistGirder(Joists, 5, "30S24G5N6.0K", out...);
             });
         },
         "20", "null"},
    };
    for (const Case& c : cases)
        Exhaust(c);
}

} // namespace
