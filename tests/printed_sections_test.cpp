// Sections of every catalogue with figures, chosen by hand, against what their standards print
// (printed_sections.csv: the catalogue, the name, and columns with figures and units).
#include "TestSupport.h"
#include "files/CatalogueBuilder.h"
#include "sections/Library.h"
#include "sources/CatalogueSource.h"
#include "sources/CsvTable.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

using testsupport::ReadFile;
using testsupport::TempFolder;

TEST(PrintedSections, HaveThePrintedFigures) {
    const TempFolder folder;
    const sections::Library library(folder.Path());
    dbsection::SourceLibrary sources;
    std::map<std::string, sections::Catalogue> opened;
    const auto open = [&](const std::string& name) -> const sections::Catalogue& {
        if (const auto known = opened.find(name); known != opened.end())
            return known->second;
        const std::string stem = FindCatalogue(sections::Library::numberOf(name))->stem;
        const auto source = dbsection::CatalogueSource::Load(
            std::filesystem::path(SECTIONDB_DATA_DIR) / stem, sources);
        dbsection::BuildCatalogue(source, folder.File(stem + ".db3"), "", [] {});
        return opened.emplace(name, library.open(name)).first->second;
    };

    const dbsection::CsvTable csv(PRINTED_SECTIONS, ReadFile(PRINTED_SECTIONS));
    EXPECT_GE(csv.Records().size(), 60U);
    for (const auto& record : csv.Records()) {
        const std::string& name = csv.Text(record, "Name");
        SCOPED_TRACE(csv.Text(record, "Catalogue") + ", " + name);
        const auto section = open(csv.Text(record, "Catalogue")).find(name);
        ASSERT_TRUE(section);
        std::istringstream figures(csv.Text(record, "Figures"));
        std::string column;
        double figure = 0;
        for (std::string unit; figures >> column >> figure >> unit;) {
            const auto kept = section->find(column);
            ASSERT_TRUE(kept) << column;
            EXPECT_NEAR(kept->in(unit) / figure, 1, 1e-5) << column;
            EXPECT_EQ(section->source(column), sections::FigureSource::Published) << column;
        }
    }
    EXPECT_GE(opened.size(), 25U);
}
