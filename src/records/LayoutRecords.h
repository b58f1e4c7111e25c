// The records of the shared layouts. Their fields are the property columns in table order, in the
// units that the catalogue keeps for them; SectionLayout.h tells what each means.
#pragma once

#include "records/SectionRecord.h"

#include <array>
#include <cstddef>

namespace dbsection {

/// A field of a record: a number or a text.
template <class Record>
struct Field {
    constexpr Field(double Record::*member) : number(member) {}
    constexpr Field(CString Record::*member) : text(member) {}

    double Record::*number = nullptr;
    CString Record::*text = nullptr;
};

/// Column access for a record that lists its fields in column order in `Fields`.
template <class Record>
class LayoutRecord : public SectionRecord {
public:
    int ColumnCount() const override { return static_cast<int>(Record::Fields().size()); }

    double Number(int column) const override {
        const auto* field = FieldAt(column);
        return field == nullptr || field->number == nullptr ? 0 : Self().*(field->number);
    }

    CString Text(int column) const override {
        const auto* field = FieldAt(column);
        return field == nullptr || field->text == nullptr ? CString() : Self().*(field->text);
    }

    void SetColumn(int column, const COleVariant& value) override {
        const auto* field = FieldAt(column);
        if (field == nullptr || value.vt == VT_NULL)
            return;
        MarkAsKept(column);
        auto& self = static_cast<Record&>(*this);
        if (field->number != nullptr)
            self.*(field->number) = AsNumber(value);
        else
            self.*(field->text) = value.strVal;
    }

private:
    const Record& Self() const { return static_cast<const Record&>(*this); }

    static const Field<Record>* FieldAt(int column) {
        const int index = column - BookkeepingColumns;
        const auto& fields = Record::Fields();
        return index < 0 || index >= static_cast<int>(fields.size())
                   ? nullptr
                   : &fields[static_cast<std::size_t>(index)];
    }
};

} // namespace dbsection

struct DBSECTION_API IShapeRecord : dbsection::LayoutRecord<IShapeRecord> {
    static constexpr LayoutId Layout = LayoutId::IShape;

    double AX{}, D{}, BF{}, TF{}, TW{}, IZ{}, IX{}, CW{}, IY{}, ZZ{}, ZY{};

    static const std::array<dbsection::Field<IShapeRecord>, 11>& Fields();
};

struct DBSECTION_API ChannelRecord : dbsection::LayoutRecord<ChannelRecord> {
    static constexpr LayoutId Layout = LayoutId::Channel;

    double AX{}, D{}, BF{}, TF{}, TW{}, IZ{}, IX{}, CW{}, IY{}, ZZ{}, ZY{}, CZ{};

    static const std::array<dbsection::Field<ChannelRecord>, 12>& Fields();
};

struct DBSECTION_API TeeRecord : dbsection::LayoutRecord<TeeRecord> {
    static constexpr LayoutId Layout = LayoutId::Tee;

    double AX{}, D{}, BF{}, TF{}, TW{}, IZ{}, IX{}, CW{}, IY{}, ZZ{}, ZY{}, CY{};

    static const std::array<dbsection::Field<TeeRecord>, 12>& Fields();
};

struct DBSECTION_API AngleRecord : dbsection::LayoutRecord<AngleRecord> {
    static constexpr LayoutId Layout = LayoutId::Angle;

    double D{}, B{}, T{}, AX{}, IZ{}, IY{}, IX{}, CY{}, CZ{}, RV{}, ALPHA{};

    static const std::array<dbsection::Field<AngleRecord>, 11>& Fields();
};

struct DBSECTION_API DoubleAngleRecord : dbsection::LayoutRecord<DoubleAngleRecord> {
    static constexpr LayoutId Layout = LayoutId::DoubleAngle;

    double D{}, B{}, T{}, AX{}, IZ{}, IY{}, IX{}, CY{}, CZ{}, RV{}, ALPHA{}, GAP{};

    static const std::array<dbsection::Field<DoubleAngleRecord>, 12>& Fields();
};

struct DBSECTION_API RectangularTubeRecord : dbsection::LayoutRecord<RectangularTubeRecord> {
    static constexpr LayoutId Layout = LayoutId::RectangularTube;

    double AX{}, D{}, B{}, T{}, IZ{}, IX{}, IY{}, ZZ{}, ZY{};

    static const std::array<dbsection::Field<RectangularTubeRecord>, 9>& Fields();
};

struct DBSECTION_API RoundTubeRecord : dbsection::LayoutRecord<RoundTubeRecord> {
    static constexpr LayoutId Layout = LayoutId::RoundTube;

    double OD{}, T{}, AX{}, I{}, Z{};

    static const std::array<dbsection::Field<RoundTubeRecord>, 5>& Fields();
};

struct DBSECTION_API RoundBarRecord : dbsection::LayoutRecord<RoundBarRecord> {
    static constexpr LayoutId Layout = LayoutId::RoundBar;

    double D{}, AX{}, I{};

    static const std::array<dbsection::Field<RoundBarRecord>, 3>& Fields();
};

struct DBSECTION_API CableRecord : dbsection::LayoutRecord<CableRecord> {
    static constexpr LayoutId Layout = LayoutId::Cable;

    double D{}, AX{}, W{};

    static const std::array<dbsection::Field<CableRecord>, 3>& Fields();
};

struct DBSECTION_API RectangleRecord : dbsection::LayoutRecord<RectangleRecord> {
    static constexpr LayoutId Layout = LayoutId::Rectangle;

    double D{}, B{}, AX{}, IZ{}, IY{}, IX{};

    static const std::array<dbsection::Field<RectangleRecord>, 6>& Fields();
};

struct DBSECTION_API TimberRecord : dbsection::LayoutRecord<TimberRecord> {
    static constexpr LayoutId Layout = LayoutId::Timber;

    double D{}, B{}, AX{}, IZ{}, IY{}, IX{}, FB{}, FT{}, FV{}, FCP{}, FC{}, E{};

    static const std::array<dbsection::Field<TimberRecord>, 12>& Fields();
};

struct DBSECTION_API BulbFlatRecord : dbsection::LayoutRecord<BulbFlatRecord> {
    static constexpr LayoutId Layout = LayoutId::BulbFlat;

    double D{}, T{}, C{}, R{}, AX{}, IZ{}, CY{};

    static const std::array<dbsection::Field<BulbFlatRecord>, 7>& Fields();
};

namespace dbsection {

/// Cold-formed shapes that have the same columns.
template <LayoutId Id>
struct DBSECTION_API ColdFormedRecord : LayoutRecord<ColdFormedRecord<Id>> {
    static constexpr LayoutId Layout = Id;

    double AX{}, D{}, B{}, T{}, R{}, IZ{}, IX{}, IY{}, CW{}, CZ{};

    static const std::array<Field<ColdFormedRecord>, 10>& Fields();
};

template <LayoutId Id>
struct DBSECTION_API ColdFormedLippedRecord : LayoutRecord<ColdFormedLippedRecord<Id>> {
    static constexpr LayoutId Layout = Id;

    double AX{}, D{}, B{}, L{}, T{}, R{}, IZ{}, IX{}, IY{}, CW{}, CZ{};

    static const std::array<Field<ColdFormedLippedRecord>, 11>& Fields();
};

/// With lips and symmetric about no axis.
template <LayoutId Id>
struct DBSECTION_API ColdFormedUnsymmetricRecord : LayoutRecord<ColdFormedUnsymmetricRecord<Id>> {
    static constexpr LayoutId Layout = Id;

    double AX{}, D{}, B{}, L{}, T{}, R{}, IZ{}, IX{}, IY{}, CW{}, CZ{}, CY{};

    static const std::array<Field<ColdFormedUnsymmetricRecord>, 12>& Fields();
};

extern template struct ColdFormedRecord<LayoutId::ColdFormedChannel>;
extern template struct ColdFormedRecord<LayoutId::ColdFormedZee>;
extern template struct ColdFormedLippedRecord<LayoutId::ColdFormedChannelLipped>;
extern template struct ColdFormedLippedRecord<LayoutId::ColdFormedZeeLipped>;
extern template struct ColdFormedUnsymmetricRecord<LayoutId::ColdFormedAngleLipped>;
extern template struct ColdFormedUnsymmetricRecord<LayoutId::EaveStrut>;

} // namespace dbsection

struct DBSECTION_API ColdFormedAngleRecord : dbsection::LayoutRecord<ColdFormedAngleRecord> {
    static constexpr LayoutId Layout = LayoutId::ColdFormedAngle;

    double AX{}, D{}, B{}, T{}, R{}, IZ{}, IX{}, IY{}, CW{}, CZ{}, CY{};

    static const std::array<dbsection::Field<ColdFormedAngleRecord>, 11>& Fields();
};

struct DBSECTION_API HatRecord : dbsection::LayoutRecord<HatRecord> {
    static constexpr LayoutId Layout = LayoutId::Hat;

    double AX{}, D{}, B{}, T{}, R{}, IZ{}, IX{}, IY{}, CW{}, CZ{}, L{}, CY{};

    static const std::array<dbsection::Field<HatRecord>, 12>& Fields();
};

using ColdFormedAngleLippedRecord =
    dbsection::ColdFormedUnsymmetricRecord<LayoutId::ColdFormedAngleLipped>;
using ColdFormedChannelRecord = dbsection::ColdFormedRecord<LayoutId::ColdFormedChannel>;
using ColdFormedChannelLippedRecord =
    dbsection::ColdFormedLippedRecord<LayoutId::ColdFormedChannelLipped>;
using ColdFormedZeeRecord = dbsection::ColdFormedRecord<LayoutId::ColdFormedZee>;
using ColdFormedZeeLippedRecord = dbsection::ColdFormedLippedRecord<LayoutId::ColdFormedZeeLipped>;
using EaveStrutRecord = dbsection::ColdFormedUnsymmetricRecord<LayoutId::EaveStrut>;

struct DBSECTION_API CastellatedRecord : dbsection::LayoutRecord<CastellatedRecord> {
    static constexpr LayoutId Layout = LayoutId::Castellated;

    CString RootBeam;
    double D{}, AX{}, BF{}, TF{}, TW{}, IZ{}, IY{}, HO{}, S{}, E{}, DT{}, THETA{};

    static const std::array<dbsection::Field<CastellatedRecord>, 13>& Fields();
};

struct DBSECTION_API AluminiumAlloyRecord : dbsection::LayoutRecord<AluminiumAlloyRecord> {
    static constexpr LayoutId Layout = LayoutId::AluminiumAlloy;

    CString Product;
    double ThLower{}, ThHigher{}, Welded{}, Alclad{}, FTU{}, FTY{}, FCY{}, FSU{}, E{};

    static const std::array<dbsection::Field<AluminiumAlloyRecord>, 10>& Fields();
};

struct DBSECTION_API GeneralRecord : dbsection::LayoutRecord<GeneralRecord> {
    static constexpr LayoutId Layout = LayoutId::General;

    double AX{}, D{}, B{}, IZ{}, IX{}, IY{}, SZ{}, SY{}, ZZ{}, ZY{}, AZ{}, AY{};

    static const std::array<dbsection::Field<GeneralRecord>, 12>& Fields();
};

struct DBSECTION_API JoistRecord : dbsection::LayoutRecord<JoistRecord> {
    static constexpr LayoutId Layout = LayoutId::Joist;

    double SeriesID{}, Depth{}, Weight{};

    static const std::array<dbsection::Field<JoistRecord>, 3>& Fields();
};

struct DBSECTION_API JoistGirderRecord : dbsection::LayoutRecord<JoistGirderRecord> {
    static constexpr LayoutId Layout = LayoutId::JoistGirder;

    double Span{}, NumberOfJoist{}, Space{}, PanelPtLoad{}, Depth{}, Weight{};

    static const std::array<dbsection::Field<JoistGirderRecord>, 6>& Fields();
};
