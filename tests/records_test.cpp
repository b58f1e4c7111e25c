// The records of the layouts: every member against its column, by names written out here. Where a
// catalogue is published, a printed row of it is read from the built file.
#include "FacadeSupport.h"
#include "sectiondb/CatalogueBuilder.h"

#include "records/LayoutRecords.h"

#include <memory>
#include <numeric>
#include <sstream>

using namespace testsupport;

namespace {

constexpr int American = 1;

template <class Record>
using Members = std::vector<double Record::*>;

/// Expects the columns of these names, from `column` on, in these members with these values.
template <class Record>
void ExpectMembers(const SectionRecord* read, int column, const char* names,
                   const Members<Record>& members, const std::vector<double>& values) {
    const auto* record = dynamic_cast<const Record*>(read);
    ASSERT_NE(record, nullptr);
    std::istringstream words(names);
    std::string name;
    for (std::size_t i = 0; words >> name; ++i, ++column) {
        const auto index = static_cast<std::size_t>(column - BookkeepingColumns);
        EXPECT_EQ(GetSectionLayout(Record::Layout).columns[index].name, name);
        EXPECT_EQ(record->*members[i], values[i]) << name;
        EXPECT_EQ(record->Number(column), values[i]) << name;
    }
    EXPECT_EQ(column, BookkeepingColumns + record->ColumnCount());
}

class PublishedRecords : public FacadeTest {
protected:
    PublishedRecords() {
        const auto source = dbsection::CatalogueSource::Load(
            std::filesystem::path(SECTIONDB_DATA_DIR) / "AISCSections");
        dbsection::BuildCatalogue(source, File("AISCSections.db3"), "", [] {});
    }

    template <class Record>
    static void Expect(const char* section, const char* names, const Members<Record>& members,
                       const std::vector<double>& values) {
        SCOPED_TRACE(section);
        int type = 0;
        const std::unique_ptr<SectionRecord> record(
            static_cast<SectionRecord*>(Facade::GetSectionData(American, section, type, "")));
        ExpectMembers(record.get(), BookkeepingColumns, names, members, values);
    }
};

/// Expects that a new record takes its columns, of which the first may be texts, into these
/// members.
template <class Record>
void ExpectOrder(const char* names, const Members<Record>& members, int texts = 0) {
    const auto record = dbsection::MakeSectionRecord(Record::Layout);
    for (int i = 0; i < texts; ++i)
        record->SetColumn(BookkeepingColumns + i, COleVariant("text"));
    std::vector<double> values(members.size());
    std::iota(values.begin(), values.end(), 1);
    int column = BookkeepingColumns + texts;
    for (const double value : values)
        record->SetColumn(column++, COleVariant(value));
    ExpectMembers(record.get(), BookkeepingColumns + texts, names, members, values);
}

TEST_F(PublishedRecords, AnswerByTheNamesOfTheirColumns) {
    {
        using R = IShapeRecord;
        Expect<R>(
            "W12X26", "AX D BF TF TW IZ IX CW IY ZZ ZY",
            {&R::AX, &R::D, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IX, &R::CW, &R::IY, &R::ZZ, &R::ZY},
            {7.65, 12.2, 6.49, 0.38, 0.23, 204, 0.3, 607, 17.3, 37.2, 8.17});
    }
    {
        using R = ChannelRecord;
        Expect<R>("C15X50", "AX D BF TF TW IZ IX CW IY ZZ ZY CZ",
                  {&R::AX, &R::D, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IX, &R::CW, &R::IY, &R::ZZ,
                   &R::ZY, &R::CZ},
                  {14.7, 15, 3.72, 0.65, 0.716, 404, 2.65, 492, 11, 68.5, 8.14, 0.799});
    }
    {
        using R = AngleRecord;
        Expect<R>("L6X4X1/2", "D B T AX IZ IY IX CY CZ RV ALPHA",
                  {&R::D, &R::B, &R::T, &R::AX, &R::IZ, &R::IY, &R::IX, &R::CY, &R::CZ, &R::RV,
                   &R::ALPHA},
                  {6, 4, 0.5, 4.75, 17.3, 6.22, 0.407, 1.98, 0.981, 0.864, 23.75});
    }
    {
        using R = RectangularTubeRecord;
        Expect<R>("HSS8X4X.250", "AX D B T IZ IX IY ZZ ZY",
                  {&R::AX, &R::D, &R::B, &R::T, &R::IZ, &R::IX, &R::IY, &R::ZZ, &R::ZY},
                  {5.24, 8, 4, 0.233, 42.5, 35.3, 14.4, 13.3, 8.2});
    }
    {
        using R = RoundTubeRecord;
        Expect<R>("PIPE6SCH40", "OD T AX I Z", {&R::OD, &R::T, &R::AX, &R::I, &R::Z},
                  {6.625, 0.261, 5.2, 26.5, 10.6});
    }
}

TEST(UnpublishedRecords, TakeColdFormedColumnsInTheirOrder) {
    {
        using R = ColdFormedChannelRecord;
        ExpectOrder<R>("AX D B T R IZ IX IY CW CZ", {&R::AX, &R::D, &R::B, &R::T, &R::R, &R::IZ,
                                                     &R::IX, &R::IY, &R::CW, &R::CZ});
    }
    {
        using R = ColdFormedZeeRecord;
        ExpectOrder<R>("AX D B T R IZ IX IY CW CZ", {&R::AX, &R::D, &R::B, &R::T, &R::R, &R::IZ,
                                                     &R::IX, &R::IY, &R::CW, &R::CZ});
    }
    {
        using R = ColdFormedChannelLippedRecord;
        ExpectOrder<R>("AX D B L T R IZ IX IY CW CZ", {&R::AX, &R::D, &R::B, &R::L, &R::T, &R::R,
                                                       &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ});
    }
    {
        using R = ColdFormedZeeLippedRecord;
        ExpectOrder<R>("AX D B L T R IZ IX IY CW CZ", {&R::AX, &R::D, &R::B, &R::L, &R::T, &R::R,
                                                       &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ});
    }
    {
        using R = ColdFormedAngleRecord;
        ExpectOrder<R>("AX D B T R IZ IX IY CW CZ CY", {&R::AX, &R::D, &R::B, &R::T, &R::R, &R::IZ,
                                                        &R::IX, &R::IY, &R::CW, &R::CZ, &R::CY});
    }
    {
        using R = HatRecord;
        ExpectOrder<R>("AX D B T R IZ IX IY CW CZ L CY",
                       {&R::AX, &R::D, &R::B, &R::T, &R::R, &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ,
                        &R::L, &R::CY});
    }
    {
        using R = ColdFormedAngleLippedRecord;
        ExpectOrder<R>("AX D B L T R IZ IX IY CW CZ CY",
                       {&R::AX, &R::D, &R::B, &R::L, &R::T, &R::R, &R::IZ, &R::IX, &R::IY, &R::CW,
                        &R::CZ, &R::CY});
    }
    {
        using R = EaveStrutRecord;
        ExpectOrder<R>("AX D B L T R IZ IX IY CW CZ CY",
                       {&R::AX, &R::D, &R::B, &R::L, &R::T, &R::R, &R::IZ, &R::IX, &R::IY, &R::CW,
                        &R::CZ, &R::CY});
    }
}

TEST(UnpublishedRecords, TakeTheOtherColumnsInTheirOrder) {
    {
        using R = TeeRecord;
        ExpectOrder<R>("AX D BF TF TW IZ IX CW IY ZZ ZY CY",
                       {&R::AX, &R::D, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IX, &R::CW, &R::IY,
                        &R::ZZ, &R::ZY, &R::CY});
    }
    {
        using R = DoubleAngleRecord;
        ExpectOrder<R>("D B T AX IZ IY IX CY CZ RV ALPHA GAP",
                       {&R::D, &R::B, &R::T, &R::AX, &R::IZ, &R::IY, &R::IX, &R::CY, &R::CZ, &R::RV,
                        &R::ALPHA, &R::GAP});
    }
    {
        using R = RoundBarRecord;
        ExpectOrder<R>("D AX I", {&R::D, &R::AX, &R::I});
    }
    {
        using R = CableRecord;
        ExpectOrder<R>("D AX W", {&R::D, &R::AX, &R::W});
    }
    {
        using R = RectangleRecord;
        ExpectOrder<R>("D B AX IZ IY IX", {&R::D, &R::B, &R::AX, &R::IZ, &R::IY, &R::IX});
    }
    {
        using R = TimberRecord;
        ExpectOrder<R>("D B AX IZ IY IX FB FT FV FCP FC E",
                       {&R::D, &R::B, &R::AX, &R::IZ, &R::IY, &R::IX, &R::FB, &R::FT, &R::FV,
                        &R::FCP, &R::FC, &R::E});
    }
    {
        using R = BulbFlatRecord;
        ExpectOrder<R>("D T C R AX IZ CY", {&R::D, &R::T, &R::C, &R::R, &R::AX, &R::IZ, &R::CY});
    }
    {
        using R = GeneralRecord;
        ExpectOrder<R>("AX D B IZ IX IY SZ SY ZZ ZY AZ AY",
                       {&R::AX, &R::D, &R::B, &R::IZ, &R::IX, &R::IY, &R::SZ, &R::SY, &R::ZZ,
                        &R::ZY, &R::AZ, &R::AY});
    }
    {
        using R = JoistRecord;
        ExpectOrder<R>("SeriesID Depth Weight", {&R::SeriesID, &R::Depth, &R::Weight});
    }
    {
        using R = JoistGirderRecord;
        ExpectOrder<R>(
            "Span NumberOfJoist Space PanelPtLoad Depth Weight",
            {&R::Span, &R::NumberOfJoist, &R::Space, &R::PanelPtLoad, &R::Depth, &R::Weight});
    }
    {
        using R = CastellatedRecord;
        ExpectOrder<R>("D AX BF TF TW IZ IY HO S E DT THETA",
                       {&R::D, &R::AX, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IY, &R::HO, &R::S, &R::E,
                        &R::DT, &R::THETA},
                       1);
    }
    {
        using R = AluminiumAlloyRecord;
        ExpectOrder<R>("ThLower ThHigher Welded Alclad FTU FTY FCY FSU E",
                       {&R::ThLower, &R::ThHigher, &R::Welded, &R::Alclad, &R::FTU, &R::FTY,
                        &R::FCY, &R::FSU, &R::E},
                       1);
    }
}

TEST(UnpublishedRecords, KeepTexts) {
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

TEST(UnpublishedRecords, TellWhichColumnsTheirRowKeeps) {
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
