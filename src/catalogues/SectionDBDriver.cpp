#include "catalogues/SectionDBDriver.h"

#include "catalogues/Catalogues.h"
#include "dataaccess/Guard.h"

#include <array>
#include <memory>
#include <new>

namespace {

template <class Catalogue>
SectionDBBase* Create() {
    return new Catalogue;
}

struct Creator {
    int index;
    SectionDBBase* (*create)();
};

constexpr std::array Creators{
#define SECTION_CATALOGUE(index, Class, Record, stem, name, density) Creator{index, Create<Class>},
#include "records/Catalogues.def"
};

} // namespace

int SectionDBDriverImpl::AddSectionDBObject(WORD nIndex, SectionDBBase* object) {
    SectionDBBase* present = nullptr;
    if (m_map.Lookup(nIndex, present))
        return 0;
    m_map.SetAt(nIndex, object);
    return 1;
}

int SectionDBDriverImpl::CreateSectionDBObjects() {
    bool isWhole = true;
    for (const auto& [index, create] : Creators)
        try {
            std::unique_ptr<SectionDBBase> object(create());
            if (AddSectionDBObject(static_cast<WORD>(index), object.get()) == 1)
                static_cast<void>(object.release()); // it is the map's
        } catch (const std::bad_alloc&) {
            isWhole = false;
        }
    if (!isWhole)
        dbsection::HandleFailure({"CreateSectionDBObjects()",
                                  "Not every catalogue is at hand; initialise the library again."},
                                 CMemoryException::Instance());
    return 1;
}

void SectionDBDriverImpl::DeleteSectionDBObjects() {
    for (const auto& [index, object] : m_map) {
        object->CloseDB();
        delete object;
    }
    m_map.RemoveAll();
}

SectionDBBase* SectionDBDriverImpl::GetSectionDBObject(WORD nIndex) {
    SectionDBBase* object = nullptr;
    m_map.Lookup(nIndex, object);
    return object;
}

SectionDBDriverImpl::~SectionDBDriverImpl() { SectionDBDriverImpl::DeleteSectionDBObjects(); }
