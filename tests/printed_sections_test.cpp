// Sections of every catalogue with figures, chosen by hand, against what their standards print
// (printed_sections.csv: the catalogue, the name, and columns with figures and units; likewise what
// the library derives from them).
#include "TestSupport.h"
#include "files/CatalogueBuilder.h"
#include "sections/Library.h"
#include "sources/CatalogueSource.h"
#include "sources/CsvTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

using testsupport::ReadFile;
using testsupport::TempFolder;

namespace {

struct PrintedFigure {
    std::string column;
    std::string figure; ///< as it is printed
    std::string unit;   ///< "-" for a plain number
};

std::vector<PrintedFigure> FiguresIn(const std::string& text) {
    std::istringstream words(text);
    std::vector<PrintedFigure> figures;
    for (PrintedFigure next; words >> next.column >> next.figure >> next.unit;)
        figures.push_back(next);
    return figures;
}

/// Half a unit of the last digit, and what two rounded figures make of a third one; weights are
/// nominal.
double Allowed(const PrintedFigure& printed) {
    const std::size_t point = printed.figure.find('.');
    const auto decimals = point == std::string::npos ? 0 : printed.figure.size() - point - 1;
    constexpr double Rounding = 0.01;
    return std::pow(10, -static_cast<double>(decimals)) / 2 +
           Rounding * std::abs(std::stod(printed.figure));
}

} // namespace

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
        for (const auto& [column, figure, unit] : FiguresIn(csv.Text(record, "Figures"))) {
            const auto kept = section->find(column);
            ASSERT_TRUE(kept) << column;
            EXPECT_NEAR(kept->in(unit) / std::stod(figure), 1, 1e-5) << column;
            EXPECT_EQ(section->source(column), sections::FigureSource::Published) << column;
        }
        for (const PrintedFigure& printed : FiguresIn(csv.Text(record, "Derived"))) {
            const auto derived = section->findDerived(printed.column);
            ASSERT_TRUE(derived) << printed.column;
            const double figure =
                printed.unit == "-" ? derived->figure() : derived->in(printed.unit);
            EXPECT_NEAR(figure, std::stod(printed.figure), Allowed(printed)) << printed.column;
        }
    }
    EXPECT_GE(opened.size(), 25U);
}
