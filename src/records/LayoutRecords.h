// The records of the layouts: IShapeRecord, ChannelRecord and so on, one a layout of Layouts.def.
//
//     const auto& beam = dynamic_cast<const IShapeRecord&>(*record);
//     double depth = beam.D; // in the unit that the catalogue keeps for the column
//
// The members are the property columns, by their names; GetSectionLayout(IShapeRecord::Layout)
// tells what each means.
#pragma once

#include "records/SectionRecord.h"

#include <span>

namespace dbsection {

/// A column of a record: a number or a text.
template <class Record>
struct Field {
    constexpr Field(double Record::*member) : number(member) {}
    constexpr Field(CString Record::*member) : text(member) {}

    double Record::*number = nullptr;
    CString Record::*text = nullptr;
};

/// Column access for a record that lists its columns in table order in `Fields`.
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
        const auto fields = Record::Fields();
        return index < 0 || index >= static_cast<int>(fields.size())
                   ? nullptr
                   : &fields[static_cast<std::size_t>(index)];
    }
};

} // namespace dbsection

#define SECTION_LAYOUT(id, name, shape)                                                            \
    struct DBSECTION_API id##Record : dbsection::LayoutRecord<id##Record> {                        \
        static constexpr LayoutId Layout = LayoutId::id;                                           \
        static std::span<const dbsection::Field<id##Record>> Fields();
#define SECTION_NUMBER(column, property) double column = 0;
#define SECTION_TEXT(column, property) CString column;
#define END_SECTION_LAYOUT(id)                                                                     \
    }                                                                                              \
    ;
#include "records/Layouts.def"
