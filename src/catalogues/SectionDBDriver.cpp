#include "catalogues/SectionDBDriver.h"

#include "catalogues/Catalogues.h"
#include "dataaccess/Guard.h"

#include <array>
#include <memory>
#include <new>

namespace {

using Creator = SectionDBBase* (*)();

template <class Catalogue>
SectionDBBase* Create() {
    return new Catalogue;
}

/// By catalogue index, from 1.
constexpr std::array<Creator, LastCatalogueIndex> Creators{Create<AISCSectionDB>,
                                                           Create<AustralianSectionDB>,
                                                           Create<BritishSectionDB>,
                                                           Create<CanadianSectionDB>,
                                                           Create<ChineseSectionDB>,
                                                           Create<DutchSectionDB>,
                                                           Create<EuropeanSectionDB>,
                                                           Create<FrenchSectionDB>,
                                                           Create<GermanSectionDB>,
                                                           Create<IndianSectionDB>,
                                                           Create<JapaneseSectionDB>,
                                                           Create<RussianSectionDB>,
                                                           Create<SouthAfricanSectionDB>,
                                                           Create<SpanishSectionDB>,
                                                           Create<VenezuelanSectionDB>,
                                                           Create<KoreanSectionDB>,
                                                           Create<AluminumSectionDB>,
                                                           Create<USColdFormSectionDB>,
                                                           Create<ISColdFormSectionDB>,
                                                           Create<MexicanSectionDB>,
                                                           Create<AISCSteelJoistSectionDB>,
                                                           Create<AITCTimberSectionDB>,
                                                           Create<LysaghtSectionDB>,
                                                           Create<BSColdFormSectionDB>,
                                                           Create<CanadianTimberSectionDB>,
                                                           Create<ButlerSectionDB>,
                                                           Create<KingspanSectionDB>,
                                                           Create<RCecoColdFormSectionDB>,
                                                           Create<JapaneseColdformSectionDB>,
                                                           Create<AUSColdFormSectionDB>,
                                                           Create<RusColdFormedSectionDB>,
                                                           Create<STOASChMSectionDB>,
                                                           Create<JindalSectionDB>,
                                                           Create<EUColdFormSectionDB>,
                                                           Create<TataStructuraSectionDB>,
                                                           Create<BrazilianSectionDB>,
                                                           Create<APLApolloTubesSectionDB>};

} // namespace

SectionDBBase* SectionDBDriverImpl::CreateSectionDBObject(int nIndex) {
    if (nIndex == UserTableIndex)
        return Create<UserSectionDB>();
    if (nIndex == GenericTableIndex)
        return Create<GenericSectionDB>();
    if (nIndex < 1 || nIndex > LastCatalogueIndex)
        return nullptr;
    return Creators[static_cast<std::size_t>(nIndex - 1)]();
}

int SectionDBDriverImpl::AddSectionDBObject(WORD nIndex, SectionDBBase* object) {
    SectionDBBase* present = nullptr;
    if (m_map.Lookup(nIndex, present))
        return 0;
    m_map.SetAt(nIndex, object);
    return 1;
}

int SectionDBDriverImpl::CreateSectionDBObjects() {
    bool isWhole = true;
    const auto createOne = [&](int index) {
        try {
            std::unique_ptr<SectionDBBase> object(CreateSectionDBObject(index));
            if (AddSectionDBObject(static_cast<WORD>(index), object.get()) == 1)
                static_cast<void>(object.release()); // it is the map's
        } catch (const std::bad_alloc&) {
            isWhole = false;
        }
    };
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        createOne(index);
    createOne(UserTableIndex);
    createOne(GenericTableIndex);
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
