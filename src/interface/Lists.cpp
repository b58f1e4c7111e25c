// Section lists, display data and section records: the catalogue objects do the work.
#include "interface/SectionDBInterface.h"

#include "catalogues/CatalogueSectionDB.h"
#include "interface/PrincipalAngle.h"
#include "interface/PublicCall.h"
#include "units/UNIT.h"

#include <array>
#include <memory>
#include <utility>

using dbsection::PublicCall;

namespace {

/// Lets `fill` fill a new list or array, where there is a catalogue.
template <class Container, class Fill>
Container* Filled(SectionDBBase* catalogue, Fill fill) {
    if (catalogue == nullptr)
        return nullptr;
    auto container = std::make_unique<Container>();
    fill(*catalogue, container.get());
    return dbsection::HandOver(std::move(container));
}

CStringList* NameList(SectionDBBase* catalogue, int type, CUIntArray* ids, int sorted,
                      int publicName) {
    return Filled<CStringList>(catalogue, [=](SectionDBBase& object, CStringList* list) {
        object.GetSectionNameList(type, list, ids, sorted, publicName);
    });
}

/// Lists into a vector and an array of identifiers; where that fails the vector is empty, and the
/// array as it was.
template <class List>
void ListInto(std::vector<CString>& out, CUIntArray* ids, List list) {
    out.clear();
    CUIntArray numbers = ids == nullptr ? CUIntArray() : *ids;
    const std::unique_ptr<CStringList> names(list(&numbers));
    if (!names)
        return;
    out = {names->begin(), names->end()};
    if (ids != nullptr)
        *ids = std::move(numbers);
}

bool HasLips(const SectionDBBase& catalogue, int sectionType) {
    const auto* known = dynamic_cast<const CatalogueSectionDB*>(&catalogue);
    const SectionFamily* family =
        known == nullptr ? nullptr : known->FindFamily(known->GetTableName(sectionType));
    return family != nullptr && family->layout == LayoutId::ColdFormedAngleLipped;
}

/// The angle of the principal axes; of an angle with lips that of its legs alone.
double AngleOf(dbsection::AngleSection section, const SectionDBBase& catalogue, int sectionType) {
    if (HasLips(catalogue, sectionType))
        section.area = (section.depth + section.width - section.thickness) * section.thickness;
    return dbsection::PrincipalAngle(section);
}

} // namespace

CStringList* SectionDBInterface::GetSectionNameList(int index, int type, int sorted) {
    return GetSectionNameList(index, type, nullptr, sorted);
}

CStringList* SectionDBInterface::GetSectionNameList(int index, int type, CUIntArray* ids,
                                                    int sorted) {
    return PublicCall("GetSectionNameList()",
                      [&] { return NameList(OpenCatalogue(index), type, ids, sorted, 0); });
}

CStringList* SectionDBInterface::GetSectionPublicNameList(int index, int type, int sorted) {
    return GetSectionPublicNameList(index, type, nullptr, sorted);
}

CStringList* SectionDBInterface::GetSectionPublicNameList(int index, int type, CUIntArray* ids,
                                                          int sorted) {
    return PublicCall("GetSectionPublicNameList()",
                      [&] { return NameList(OpenCatalogue(index), type, ids, sorted, 1); });
}

void SectionDBInterface::GetSectionNameList(int index, int type, CUIntArray* ids,
                                            std::vector<CString>& out, int sorted) {
    PublicCall("GetSectionNameList()", [&] {
        ListInto(out, ids, [=](CUIntArray* numbers) {
            return GetSectionNameList(index, type, numbers, sorted);
        });
    });
}

void SectionDBInterface::GetSectionPublicNameList(int index, int type, CUIntArray* ids,
                                                  std::vector<CString>& out, int sorted) {
    PublicCall("GetSectionPublicNameList()", [&] {
        ListInto(out, ids, [=](CUIntArray* numbers) {
            return GetSectionPublicNameList(index, type, numbers, sorted);
        });
    });
}

CStringList* SectionDBInterface::GetSortedSectionNameList(int index, int type,
                                                          CStringArray* sortFields, int flag) {
    return PublicCall("GetSortedSectionNameList()", [&] {
        const auto fill = [=](SectionDBBase& catalogue, CStringList* list) {
            catalogue.GetSortedSectionNameList(type, list, nullptr, sortFields, flag);
        };
        return Filled<CStringList>(OpenCatalogue(index), fill);
    });
}

CStringArray* SectionDBInterface::GetSectionFieldNameArray(int index, int type) {
    return PublicCall("GetSectionFieldNameArray()", [&] {
        const auto fill = [=](SectionDBBase& catalogue, CStringArray* names) {
            catalogue.GetSectionFieldNameArray(type, names);
        };
        return Filled<CStringArray>(OpenCatalogue(index), fill);
    });
}

CStringArray* SectionDBInterface::GetSectionFieldUnitsArray(int index, int type) {
    return PublicCall("GetSectionFieldUnitsArray()", [&] {
        const auto fill = [=](SectionDBBase& catalogue, CStringArray* units) {
            catalogue.GetSectionFieldUnitsArray(type, units);
        };
        return Filled<CStringArray>(OpenCatalogue(index), fill);
    });
}

void SectionDBInterface::GetAllSectionDataForGUI(int index, int type, CStringArray* names,
                                                 float (*values)[16], const char* /*unitText*/,
                                                 unsigned int unit1, unsigned int unit2) {
    PublicCall("GetAllSectionDataForGUI()", [&] {
        if (SectionDBBase* catalogue = OpenCatalogue(index, type))
            catalogue->GetAllSectionDataForGUI(type, names, values, unit1, unit2);
    });
}

int SectionDBInterface::GetSectionDataForGUI(int index, int type, int recordNo, CString* name,
                                             float* values, const char* unitText,
                                             unsigned int unit1, unsigned int unit2) {
    return PublicCall("GetSectionDataForGUI()", [&] {
        SectionDBBase* catalogue = OpenCatalogue(index, type);
        return catalogue == nullptr
                   ? 0
                   : catalogue->GetSectionDataForGUI(index, type, recordNo, name, values, unitText,
                                                     unit1, unit2);
    });
}

int SectionDBInterface::GetSectionDataForGUI(int index, const char* name, int* shapeType,
                                             float* values, const char* /*unitText*/,
                                             unsigned int unit1, unsigned int unit2) {
    return PublicCall("GetSectionDataForGUI()", [&] {
        int sectionType = 0;
        int recordNo = 0;
        SectionDBBase* catalogue = OpenCatalogue(index, sectionType);
        if (catalogue == nullptr)
            return 0;
        const int result = catalogue->GetSectionDataForGUI(index, name, &sectionType, &recordNo,
                                                           values, unit1, unit2);
        if (result == 0)
            return 0;
        *shapeType = catalogue->GetShapeType(sectionType);
        return IsSectionInProject(index, sectionType, recordNo) != 0 ? result : 0;
    });
}

int SectionDBInterface::GetSectionDataForGUI_NoDbi(int index, const char* name, int* shapeType,
                                                   float* values, const char* /*unitText*/,
                                                   unsigned int /*unit1*/, unsigned int /*unit2*/) {
    return PublicCall("GetSectionDataForGUI_NoDbi()", [&] {
        SectionDBBase* catalogue = OpenCatalogue(index, 0);
        if (catalogue == nullptr)
            return 0;
        int recordNo = 0;
        const int result =
            catalogue->GetSectionDataForGUIAllValues(index, name, shapeType, &recordNo, values);
        if (result != 0)
            *shapeType = catalogue->GetShapeType(*shapeType); // from the section type found
        return result;
    });
}

int SectionDBInterface::GetSectionDataForGUIAllValues(int index, const char* name, int* sectionType,
                                                      int* recordNo, float* values,
                                                      unsigned int /*unit1*/,
                                                      unsigned int /*unit2*/) {
    return PublicCall("GetSectionDataForGUIAllValues()", [&] {
        SectionDBBase* catalogue = OpenCatalogue(index, *sectionType);
        return catalogue == nullptr ? 0
                                    : catalogue->GetSectionDataForGUIAllValues(
                                          index, name, sectionType, recordNo, values);
    });
}

int SectionDBInterface::GetSectionPrincipalAngle(int index, CString name, double* angle) {
    return PublicCall("GetSectionPrincipalAngle()", [&] {
        *angle = 0.0;
        SectionDBBase* catalogue = OpenCatalogue(index);
        if (catalogue == nullptr)
            return 0;
        const bool isAmerican = index == AmericanIndex;
        std::array<float, 16> values{};
        int sectionType = -1;
        int recordNo = -1;
        const int result = catalogue->GetSectionDataForGUI(
            index, name, &sectionType, &recordNo, values.data(),
            isAmerican ? UNIT::Inch : UNIT::Millimetre, isAmerican ? UNIT::Kip : UNIT::Newton);
        if (result != 0 && catalogue->GetShapeType(sectionType) == ShapeType::Angle)
            *angle = AngleOf({values[0], values[1], values[2], values[3]}, *catalogue, sectionType);
        return result;
    });
}

void* SectionDBInterface::GetSectionData(int index, const char* name, int& type,
                                         const char* /*unitText*/) {
    return PublicCall("GetSectionData()", [&]() -> void* {
        SectionDBBase* catalogue = OpenCatalogue(index);
        return catalogue == nullptr ? nullptr : catalogue->GetSectionData(name, &type);
    });
}

void* SectionDBInterface::GetSectionStructProperty(int index, const char* name, int& type,
                                                   unsigned int unit1, unsigned int unit2,
                                                   const char* /*unitText*/) {
    return PublicCall("GetSectionStructProperty()", [&]() -> void* {
        SectionDBBase* catalogue = OpenCatalogue(index);
        if (catalogue == nullptr)
            return nullptr;
        SectionRecord* summary = catalogue->GetSectionStructProperty(name, unit1, unit2, &type);
        return summary;
    });
}

void SectionDBInterface::FreeSectionData(void* record) {
    delete static_cast<SectionRecord*>(record);
}
