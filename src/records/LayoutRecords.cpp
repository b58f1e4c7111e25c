#include "records/LayoutRecords.h"

namespace dbsection {

namespace {

template <class Record>
std::unique_ptr<SectionRecord> Make() {
    return std::make_unique<Record>();
}

struct Maker {
    LayoutId layout;
    std::unique_ptr<SectionRecord> (*make)();
};

template <class... Records>
constexpr std::array<Maker, sizeof...(Records)> MakersOf() {
    return {Maker{Records::Layout, Make<Records>}...};
}

constexpr auto Makers =
    MakersOf<IShapeRecord, ChannelRecord, TeeRecord, AngleRecord, DoubleAngleRecord,
             RectangularTubeRecord, RoundTubeRecord, RoundBarRecord, CableRecord, RectangleRecord,
             TimberRecord, BulbFlatRecord, ColdFormedAngleRecord, ColdFormedAngleLippedRecord,
             ColdFormedChannelRecord, ColdFormedChannelLippedRecord, ColdFormedZeeRecord,
             ColdFormedZeeLippedRecord, HatRecord, EaveStrutRecord, CastellatedRecord,
             AluminiumAlloyRecord, GeneralRecord, JoistRecord, JoistGirderRecord>();

} // namespace

std::unique_ptr<SectionRecord> MakeSectionRecord(LayoutId layout) {
    for (const Maker& maker : Makers)
        if (maker.layout == layout)
            return maker.make();
    return nullptr;
}

} // namespace dbsection

SectionRecord::~SectionRecord() = default;

// The order of the fields is that of the layout's columns.

const std::array<dbsection::Field<IShapeRecord>, 11>& IShapeRecord::Fields() {
    using R = IShapeRecord;
    static constexpr std::array<dbsection::Field<R>, 11> fields{
        &R::AX, &R::D, &R::BF, &R::TF, &R::TW, &R::IZ, &R::IX, &R::CW, &R::IY, &R::ZZ, &R::ZY};
    return fields;
}

const std::array<dbsection::Field<ChannelRecord>, 12>& ChannelRecord::Fields() {
    using R = ChannelRecord;
    static constexpr std::array<dbsection::Field<R>, 12> fields{&R::AX, &R::D,  &R::BF, &R::TF,
                                                                &R::TW, &R::IZ, &R::IX, &R::CW,
                                                                &R::IY, &R::ZZ, &R::ZY, &R::CZ};
    return fields;
}

const std::array<dbsection::Field<TeeRecord>, 12>& TeeRecord::Fields() {
    using R = TeeRecord;
    static constexpr std::array<dbsection::Field<R>, 12> fields{&R::AX, &R::D,  &R::BF, &R::TF,
                                                                &R::TW, &R::IZ, &R::IX, &R::CW,
                                                                &R::IY, &R::ZZ, &R::ZY, &R::CY};
    return fields;
}

const std::array<dbsection::Field<AngleRecord>, 11>& AngleRecord::Fields() {
    using R = AngleRecord;
    static constexpr std::array<dbsection::Field<R>, 11> fields{
        &R::D, &R::B, &R::T, &R::AX, &R::IZ, &R::IY, &R::IX, &R::CY, &R::CZ, &R::RV, &R::ALPHA};
    return fields;
}

const std::array<dbsection::Field<DoubleAngleRecord>, 12>& DoubleAngleRecord::Fields() {
    using R = DoubleAngleRecord;
    static constexpr std::array<dbsection::Field<R>, 12> fields{&R::D,  &R::B,  &R::T,     &R::AX,
                                                                &R::IZ, &R::IY, &R::IX,    &R::CY,
                                                                &R::CZ, &R::RV, &R::ALPHA, &R::GAP};
    return fields;
}

const std::array<dbsection::Field<RectangularTubeRecord>, 9>& RectangularTubeRecord::Fields() {
    using R = RectangularTubeRecord;
    static constexpr std::array<dbsection::Field<R>, 9> fields{
        &R::AX, &R::D, &R::B, &R::T, &R::IZ, &R::IX, &R::IY, &R::ZZ, &R::ZY};
    return fields;
}

const std::array<dbsection::Field<RoundTubeRecord>, 5>& RoundTubeRecord::Fields() {
    using R = RoundTubeRecord;
    static constexpr std::array<dbsection::Field<R>, 5> fields{&R::OD, &R::T, &R::AX, &R::I, &R::Z};
    return fields;
}

const std::array<dbsection::Field<RoundBarRecord>, 3>& RoundBarRecord::Fields() {
    using R = RoundBarRecord;
    static constexpr std::array<dbsection::Field<R>, 3> fields{&R::D, &R::AX, &R::I};
    return fields;
}

const std::array<dbsection::Field<CableRecord>, 3>& CableRecord::Fields() {
    using R = CableRecord;
    static constexpr std::array<dbsection::Field<R>, 3> fields{&R::D, &R::AX, &R::W};
    return fields;
}

const std::array<dbsection::Field<RectangleRecord>, 6>& RectangleRecord::Fields() {
    using R = RectangleRecord;
    static constexpr std::array<dbsection::Field<R>, 6> fields{&R::D,  &R::B,  &R::AX,
                                                               &R::IZ, &R::IY, &R::IX};
    return fields;
}

const std::array<dbsection::Field<TimberRecord>, 12>& TimberRecord::Fields() {
    using R = TimberRecord;
    static constexpr std::array<dbsection::Field<R>, 12> fields{&R::D,  &R::B,   &R::AX, &R::IZ,
                                                                &R::IY, &R::IX,  &R::FB, &R::FT,
                                                                &R::FV, &R::FCP, &R::FC, &R::E};
    return fields;
}

const std::array<dbsection::Field<BulbFlatRecord>, 7>& BulbFlatRecord::Fields() {
    using R = BulbFlatRecord;
    static constexpr std::array<dbsection::Field<R>, 7> fields{&R::D,  &R::T,  &R::C, &R::R,
                                                               &R::AX, &R::IZ, &R::CY};
    return fields;
}

namespace dbsection {

template <LayoutId Id>
const std::array<Field<ColdFormedRecord<Id>>, 10>& ColdFormedRecord<Id>::Fields() {
    using R = ColdFormedRecord;
    static constexpr std::array<Field<R>, 10> fields{&R::AX, &R::D,  &R::B,  &R::T,  &R::R,
                                                     &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ};
    return fields;
}

template <LayoutId Id>
const std::array<Field<ColdFormedLippedRecord<Id>>, 11>& ColdFormedLippedRecord<Id>::Fields() {
    using R = ColdFormedLippedRecord;
    static constexpr std::array<Field<R>, 11> fields{&R::AX, &R::D,  &R::B,  &R::L,  &R::T, &R::R,
                                                     &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ};
    return fields;
}

template <LayoutId Id>
const std::array<Field<ColdFormedUnsymmetricRecord<Id>>, 12>&
ColdFormedUnsymmetricRecord<Id>::Fields() {
    using R = ColdFormedUnsymmetricRecord;
    static constexpr std::array<Field<R>, 12> fields{
        &R::AX, &R::D, &R::B, &R::L, &R::T, &R::R, &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ, &R::CY};
    return fields;
}

template struct ColdFormedRecord<LayoutId::ColdFormedChannel>;
template struct ColdFormedRecord<LayoutId::ColdFormedZee>;
template struct ColdFormedLippedRecord<LayoutId::ColdFormedChannelLipped>;
template struct ColdFormedLippedRecord<LayoutId::ColdFormedZeeLipped>;
template struct ColdFormedUnsymmetricRecord<LayoutId::ColdFormedAngleLipped>;
template struct ColdFormedUnsymmetricRecord<LayoutId::EaveStrut>;

} // namespace dbsection

const std::array<dbsection::Field<ColdFormedAngleRecord>, 11>& ColdFormedAngleRecord::Fields() {
    using R = ColdFormedAngleRecord;
    static constexpr std::array<dbsection::Field<R>, 11> fields{
        &R::AX, &R::D, &R::B, &R::T, &R::R, &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ, &R::CY};
    return fields;
}

const std::array<dbsection::Field<HatRecord>, 12>& HatRecord::Fields() {
    using R = HatRecord;
    static constexpr std::array<dbsection::Field<R>, 12> fields{
        &R::AX, &R::D, &R::B, &R::T, &R::R, &R::IZ, &R::IX, &R::IY, &R::CW, &R::CZ, &R::L, &R::CY};
    return fields;
}

const std::array<dbsection::Field<CastellatedRecord>, 13>& CastellatedRecord::Fields() {
    using R = CastellatedRecord;
    static constexpr std::array<dbsection::Field<R>, 13> fields{
        &R::RootBeam, &R::D,  &R::AX, &R::BF, &R::TF, &R::TW,   &R::IZ,
        &R::IY,       &R::HO, &R::S,  &R::E,  &R::DT, &R::THETA};
    return fields;
}

const std::array<dbsection::Field<AluminiumAlloyRecord>, 10>& AluminiumAlloyRecord::Fields() {
    using R = AluminiumAlloyRecord;
    static constexpr std::array<dbsection::Field<R>, 10> fields{
        &R::Product, &R::ThLower, &R::ThHigher, &R::Welded, &R::Alclad,
        &R::FTU,     &R::FTY,     &R::FCY,      &R::FSU,    &R::E};
    return fields;
}

const std::array<dbsection::Field<GeneralRecord>, 12>& GeneralRecord::Fields() {
    using R = GeneralRecord;
    static constexpr std::array<dbsection::Field<R>, 12> fields{&R::AX, &R::D,  &R::B,  &R::IZ,
                                                                &R::IX, &R::IY, &R::SZ, &R::SY,
                                                                &R::ZZ, &R::ZY, &R::AZ, &R::AY};
    return fields;
}

const std::array<dbsection::Field<JoistRecord>, 3>& JoistRecord::Fields() {
    using R = JoistRecord;
    static constexpr std::array<dbsection::Field<R>, 3> fields{&R::SeriesID, &R::Depth, &R::Weight};
    return fields;
}

const std::array<dbsection::Field<JoistGirderRecord>, 6>& JoistGirderRecord::Fields() {
    using R = JoistGirderRecord;
    static constexpr std::array<dbsection::Field<R>, 6> fields{
        &R::Span, &R::NumberOfJoist, &R::Space, &R::PanelPtLoad, &R::Depth, &R::Weight};
    return fields;
}
