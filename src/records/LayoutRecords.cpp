#include "records/LayoutRecords.h"

namespace dbsection {

std::unique_ptr<SectionRecord> MakeSectionRecord(LayoutId layout) {
    switch (layout) {
    case LayoutId::IShape:
        return std::make_unique<IShapeRecord>();
    case LayoutId::Channel:
        return std::make_unique<ChannelRecord>();
    case LayoutId::Angle:
        return std::make_unique<AngleRecord>();
    case LayoutId::RectangularTube:
        return std::make_unique<RectangularTubeRecord>();
    case LayoutId::RoundTube:
        return std::make_unique<RoundTubeRecord>();
    case LayoutId::RoundBar:
        return std::make_unique<RoundBarRecord>();
    case LayoutId::Cable:
        return std::make_unique<CableRecord>();
    case LayoutId::Castellated:
        return std::make_unique<CastellatedRecord>();
    default:
        return nullptr;
    }
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

const std::array<dbsection::Field<AngleRecord>, 11>& AngleRecord::Fields() {
    using R = AngleRecord;
    static constexpr std::array<dbsection::Field<R>, 11> fields{
        &R::D, &R::B, &R::T, &R::AX, &R::IZ, &R::IY, &R::IX, &R::CY, &R::CZ, &R::RV, &R::ALPHA};
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

const std::array<dbsection::Field<CastellatedRecord>, 13>& CastellatedRecord::Fields() {
    using R = CastellatedRecord;
    static constexpr std::array<dbsection::Field<R>, 13> fields{
        &R::RootBeam, &R::D,  &R::AX, &R::BF, &R::TF, &R::TW,   &R::IZ,
        &R::IY,       &R::HO, &R::S,  &R::E,  &R::DT, &R::THETA};
    return fields;
}
