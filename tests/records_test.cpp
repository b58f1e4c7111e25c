// The layouts and their records. Members are one with their columns; a printed row of each layout
// that has published catalogues is read from the built file.
#include "FacadeSupport.h"
#include "files/CatalogueBuilder.h"

#include "records/LayoutRecords.h"

#include <memory>
#include <vector>

using namespace testsupport;

namespace {

constexpr int American = 1;

class PublishedRecords : public FacadeTest {
protected:
    PublishedRecords() {
        const auto source = dbsection::CatalogueSource::Load(
            std::filesystem::path(SECTIONDB_DATA_DIR) / "AISCSections");
        dbsection::BuildCatalogue(source, File("AISCSections.db3"), "", [] {});
    }

    template <class Record>
    static void Expect(const char* section, const std::vector<double Record::*>& members,
                       const std::vector<double>& values) {
        SCOPED_TRACE(section);
        int type = 0;
        const std::unique_ptr<SectionRecord> read(
            static_cast<SectionRecord*>(Facade::GetSectionData(American, section, type, "")));
        const auto* record = dynamic_cast<const Record*>(read.get());
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->ColumnCount(), std::ssize(members));
        std::vector<double> found;
        for (const auto member : members)
            found.push_back(record->*member);
        EXPECT_EQ(found, values);
    }
};

TEST_F(PublishedRecords, AnswerByTheNamesOfTheirColumns) {
    {
        using R = IShapeRecord;
        Expect<R>(
            "W12X26",
            {&R::AX, &R::D, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IX, &R::CW, &R::IY, &R::ZZ, &R::ZY},
            {7.65, 12.2, 6.49, 0.38, 0.23, 204, 0.3, 607, 17.3, 37.2, 8.17});
    }
    {
        using R = ChannelRecord;
        Expect<R>("C15X50",
                  {&R::AX, &R::D, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IX, &R::CW, &R::IY, &R::ZZ,
                   &R::ZY, &R::CZ},
                  {14.7, 15, 3.72, 0.65, 0.716, 404, 2.65, 492, 11, 68.5, 8.14, 0.799});
    }
    {
        using R = AngleRecord;
        Expect<R>("L6X4X1/2",
                  {&R::D, &R::B, &R::T, &R::AX, &R::IZ, &R::IY, &R::IX, &R::CY, &R::CZ, &R::RV,
                   &R::ALPHA},
                  {6, 4, 0.5, 4.75, 17.3, 6.22, 0.407, 1.98, 0.981, 0.864, 23.75});
    }
    {
        using R = RectangularTubeRecord;
        Expect<R>("HSS8X4X.250",
                  {&R::AX, &R::D, &R::B, &R::T, &R::IZ, &R::IX, &R::IY, &R::ZZ, &R::ZY},
                  {5.24, 8, 4, 0.233, 42.5, 35.3, 14.4, 13.3, 8.2});
    }
    {
        using R = RoundTubeRecord;
        Expect<R>("PIPE6SCH40", {&R::OD, &R::T, &R::AX, &R::I, &R::Z},
                  {6.625, 0.261, 5.2, 26.5, 10.6});
    }
}

/// Behind its name, the shape type of the families that have it.
TEST(Layouts, HaveTheseColumns) {
    std::string layouts;
    for (const SectionLayout& layout : GetSectionLayouts()) {
        layouts += std::string(layout.name) + " (" + std::to_string(layout.shape) + "):";
        for (const LayoutColumn& column : layout.columns)
            layouts += std::string(column.isAdded ? " +" : " ") + column.name;
        layouts += "\n";
    }
    EXPECT_EQ(layouts, R"(I shape (1): AX D BF TF TW IZ IX CW IY ZZ ZY
channel (2): AX D BF TF TW IZ IX CW IY ZZ ZY CZ
tee (5): AX D BF TF TW IZ IX CW IY ZZ ZY CY
angle (3): D B T AX IZ IY IX CY CZ RV ALPHA
double angle (4): D B T AX IZ IY IX CY CZ RV ALPHA +GAP
rectangular tube (7): AX D B T IZ IX IY ZZ ZY
round tube (6): OD T AX I Z
round bar (6): D AX I
cable (8): D AX W
rectangle (10): D B AX IZ IY IX
timber (10): D B AX IZ IY IX FB FT FV FCP FC E
bulb flat (8): D T C R AX IZ CY
cold-formed angle (3): AX D B T R IZ IX IY CW CZ +CY
cold-formed angle with lips (3): AX D B L T R IZ IX IY CW CZ +CY
cold-formed channel (2): AX D B T R IZ IX IY CW CZ
cold-formed channel with lips (2): AX D B L T R IZ IX IY CW CZ
cold-formed zee (8): AX D B T R IZ IX IY CW CZ
cold-formed zee with lips (8): AX D B L T R IZ IX IY CW CZ
hat (8): AX D B T R IZ IX IY CW CZ +L +CY
eave strut (2): AX D B L T R IZ IX IY CW CZ +CY
castellated (1): RootBeam D AX BF TF TW IZ IY HO S E DT THETA
aluminium alloy (8): Product ThLower ThHigher Welded Alclad FTU FTY FCY FSU E
general (8): AX D B IZ IX IY SZ SY ZZ ZY AZ AY
joist (8): SeriesID Depth Weight
joist girder (8): Span NumberOfJoist Space PanelPtLoad Depth Weight
)");
}

TEST(Records, KeepTexts) {
    CastellatedRecord beam;
    beam.SetColumn(3, COleVariant("W12X26"));
    EXPECT_EQ(beam.RootBeam, "W12X26");
    EXPECT_EQ(beam.Text(3), "W12X26");
    EXPECT_EQ(beam.Number(3), 0);
    EXPECT_EQ(beam.Text(4), "");
    AluminiumAlloyRecord alloy;
    alloy.SetColumn(3, COleVariant("Pipe"));
    EXPECT_EQ(alloy.Product, "Pipe");
}

TEST(Records, TellWhichColumnsTheirRowKeeps) {
    DoubleAngleRecord record;
    record.SetColumn(3, COleVariant(1.0));
    record.SetColumn(4, COleVariant::Null());
    record.SetColumn(14, COleVariant(0.0));
    record.SetColumn(15, COleVariant(7.0)); // beyond the record
    std::string kept;
    for (int column = -1; column < 40; ++column)
        kept += record.IsKept(column) ? std::to_string(column) + " " : "";
    EXPECT_EQ(kept, "3 14 ");
}

} // namespace
