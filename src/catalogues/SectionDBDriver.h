// The driver: owns one catalogue object per catalogue and hands it out by catalogue index.
//
//     SectionDBDriverImpl driver;
//     driver.CreateSectionDBObjects();
//     SectionDBBase* british = driver.GetSectionDBObject(3);
#pragma once

#include "catalogues/CatalogueNumbers.h"
#include "catalogues/SectionDBBase.h"
#include "platform/Collections.h"
#include "platform/Export.h"

class DBSECTION_API SectionDBDriverBase {
public:
    SectionDBDriverBase() = default;
    SectionDBDriverBase(const SectionDBDriverBase&) = delete;
    SectionDBDriverBase& operator=(const SectionDBDriverBase&) = delete;

    virtual int CreateSectionDBObjects() = 0;
    virtual void DeleteSectionDBObjects() = 0;
    virtual SectionDBBase* GetSectionDBObject(WORD nIndex) = 0;

protected:
    ~SectionDBDriverBase() = default;
};

class DBSECTION_API SectionDBDriverImpl : public SectionDBDriverBase {
public:
    /// Creates the objects of the catalogues 1 to 37, 1001 and 1010 that are missing. One that
    /// memory is too short for stays missing, which is reported. Always returns 1.
    int CreateSectionDBObjects() override;

    /// Closes and deletes all objects.
    void DeleteSectionDBObjects() override;

    /// The object of a catalogue, or null. It stays the driver's.
    SectionDBBase* GetSectionDBObject(WORD nIndex) override;

    virtual ~SectionDBDriverImpl();

    /// The number of registered objects.
    int GetObjectCount() const { return m_map.GetCount(); }

private:
    /// Takes the object over, or returns 0 when the index is taken.
    int AddSectionDBObject(WORD nIndex, SectionDBBase* object);

    CTypedPtrMap<class CMapWordToPtr, WORD, SectionDBBase*> m_map{10};
};
