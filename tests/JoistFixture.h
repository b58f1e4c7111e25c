// A catalogue of steel joists. All rows are made up: no published joist is among them; there is one
// on each side of every bracket of the queries.
#pragma once

#include "CatalogueFixture.h"

namespace testsupport {

namespace joistrows {

using Row = std::vector<COleVariant>;

inline Row Numbers(std::initializer_list<double> numbers) {
    return {numbers.begin(), numbers.end()};
}

/// A row of a table of joists or girders: record number, Name and VessaName, then what is its own.
inline Row Master(int record, const char* designation, const Row& own) {
    Row row{record, COleVariant(designation), COleVariant(designation)};
    row.insert(row.end(), own.begin(), own.end());
    return row;
}

inline Row Joist(int id, const char* designation, int series, double depth, double weight) {
    return Master(id, designation, {id, COleVariant(designation), series, depth, weight});
}

inline std::vector<Column> Columns(std::initializer_list<const char*> names) {
    std::vector<Column> columns;
    for (const char* name : names)
        columns.emplace_back(name, SectionField::Double);
    return columns;
}

inline std::vector<Column> MasterColumns(std::initializer_list<Column> own) {
    std::vector<Column> columns{{"RECNO", SectionField::Long}, {"Name"}, {"VessaName"}};
    columns.insert(columns.end(), own.begin(), own.end());
    return columns;
}

inline std::vector<Column> JoistColumns() {
    constexpr auto Double = SectionField::Double;
    return MasterColumns({{"JoistID", SectionField::Long},
                          "Designation",
                          {"SeriesID", SectionField::Long},
                          {"Depth", Double},
                          {"Weight", Double}});
}

inline std::vector<Column> GirderColumns() {
    constexpr auto Double = SectionField::Double;
    return MasterColumns({{"JoistID", SectionField::Long},
                          {"Span", Double},
                          {"NumberOfJoist", SectionField::Long},
                          {"Space", Double},
                          {"Depth", Double}});
}

} // namespace joistrows

inline void AddJoistTables(CatalogueFile& file) {
    using namespace joistrows;
    file.AddPlainTable("OWJoistMaster", JoistColumns(),
                       {Joist(1, "k-light", 1, 10, 5), Joist(2, "k-heavy", 1, 12, 7),
                        Joist(3, "KCS", 2, 14, 9), Joist(4, "lh-20", 3, 20, 11),
                        Joist(5, "lh-24", 3, 24, 13), Joist(6, "dlh", 4, 24, 30)});
    file.AddPlainTable("OWJoistLoad",
                       Columns({"JoistID", "Span", "TotalLoad", "LiveLoad", "TitleID", "ColorID"}),
                       {Numbers({1, 20, 300, 200, 0, 0}), Numbers({1, 22, 250, 150, 0, 0}),
                        Numbers({2, 20, 400, 300, 0, 0}), Numbers({2, 22, 350, 250, 0, 0}),
                        Numbers({5, 22, 900, 500, 0, 0}), Numbers({6, 22, 990, 600, 0, 0})});
    file.AddPlainTable("OWJoistSafeLoad",
                       Columns({"JoistID", "Span", "SafeLoad", "TitleID", "ColorID"}),
                       {Numbers({4, 30, 8000, 0, 0}), Numbers({4, 32, 7500, 0, 0})});
    file.AddPlainTable("OWKCSJoistLoad",
                       Columns({"JoistID", "MomentCapacity", "ShearCapacity", "GrossMI",
                                "BridgTableSectNO", "TitleID"}),
                       {Numbers({3, 500.5, 4000, 90, 1, 0})});
    file.AddPlainTable("JoistGirderMaster", GirderColumns(),
                       {Master(1, "30S24G5N", Numbers({20, 30, 5, 6, 24})),
                        Master(2, "30S28G5N", Numbers({21, 30, 5, 6, 28})),
                        Master(3, "36S28G6N", Numbers({22, 36, 6, 6, 28}))});
    file.AddPlainTable("JoistGirderLoad",
                       Columns({"JoistID", "PanelPtLoad", "Weight", "TitleID", "ColorID"}),
                       {Numbers({20, 4.5, 17, 0, 0}), Numbers({20, 6, 21, 0, 0}),
                        Numbers({21, 4.5, 15, 0, 0}), Numbers({22, 4.5, 19, 0, 0})});
}

inline void MakeJoistCatalogue(const std::string& path) {
    CatalogueFile file(path);
    AddJoistTables(file);
}

} // namespace testsupport
