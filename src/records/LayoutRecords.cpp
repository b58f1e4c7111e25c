#include "records/LayoutRecords.h"

#include <array>

namespace {

template <class Record>
std::unique_ptr<SectionRecord> Make() {
    return std::make_unique<Record>();
}

/// By layout.
constexpr std::array Makers{
#define SECTION_LAYOUT(id, name, shape) Make<id##Record>,
#include "records/Layouts.def"
};

} // namespace

#define SECTION_LAYOUT(id, name, shape)                                                            \
    std::span<const dbsection::Field<id##Record>> id##Record::Fields() {                           \
        using Record = id##Record;                                                                 \
        static constexpr std::array fields {
#define SECTION_NUMBER(column, property) dbsection::Field<Record>(&Record::column),
#define SECTION_TEXT(column, property) dbsection::Field<Record>(&Record::column),
#define END_SECTION_LAYOUT(id)                                                                     \
    }                                                                                              \
    ;                                                                                              \
    return fields;                                                                                 \
    }
#include "records/Layouts.def"

std::unique_ptr<SectionRecord> dbsection::MakeSectionRecord(LayoutId layout) {
    return Makers[static_cast<std::size_t>(layout)]();
}

SectionRecord::~SectionRecord() = default;
