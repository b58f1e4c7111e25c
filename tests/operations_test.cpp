// Every operation of every catalogue class, through the façade: a small catalogue with one section
// in each of the class's tables.
#include "FacadeSupport.h"

#include "catalogues/Catalogues.h"
#include "records/LayoutRecords.h"

#include <cmath>
#include <memory>
#include <numeric>

using namespace testsupport;

namespace {

constexpr unsigned Millimetre = 1004;
constexpr unsigned Kilonewton = 2007;

/// What a catalogue class does otherwise than the rest.
struct Deviation {
    int index;
    bool displaysAll = true;        ///< GetAllSectionDataForGUI
    bool displaysAllValues = false; ///< GetSectionDataForGUIAllValues
    bool summarises = true;
    bool edits = true;
};

constexpr Deviation Deviations[] = {
    {.index = 1, .displaysAllValues = true},
    {.index = 18, .displaysAll = false},
    {.index = 22, .edits = false},
    {.index = 25, .edits = false},
    {.index = 26, .summarises = false, .edits = false},
};

Deviation DeviationOf(int index) {
    for (const Deviation& deviation : Deviations)
        if (deviation.index == index)
            return deviation;
    return {.index = index};
}

/// What a figure of a quantity in the fixture's units is in mm and kN.
double ToMetric(Quantity quantity) {
    constexpr double Inch = 25.4;
    constexpr double Kip = 4.4482216;
    switch (quantity) {
    case Quantity::Length:
        return Inch;
    case Quantity::Area:
        return std::pow(Inch, 2);
    case Quantity::Modulus:
        return std::pow(Inch, 3);
    case Quantity::Inertia:
        return std::pow(Inch, 4);
    case Quantity::Warping:
        return std::pow(Inch, 6);
    case Quantity::Stress:
        return Kip / std::pow(Inch, 2);
    case Quantity::WeightPerLength:
        return Kip / (12 * Inch);
    default:
        return 1;
    }
}

/// A table of a catalogue and its only section.
class OneSection {
public:
    OneSection(int index, const SectionFamily& family)
        : m_index(index),
          m_family(family),
          m_public(std::string("P ") + family.table),
          m_name(std::string("v ") + family.table) {}

    std::vector<COleVariant> Properties() const {
        std::vector<COleVariant> values;
        for (std::size_t i = 0; i < Columns().size(); ++i)
            values.push_back(Columns()[i].quantity == Quantity::Text ? COleVariant("root")
                                                                     : COleVariant(Stored(i)));
        return values;
    }

    void AddTo(CatalogueFile& file) const {
        file.AddTable(m_family.table, m_family.layout,
                      {{m_public.c_str(), m_name.c_str(), Properties()}});
    }

    /// Area first, then the other numbers in the order of the columns; but the thickness of an
    /// angle before its lips.
    std::vector<double> DisplayValues(bool isMetric) const {
        std::vector<double> values;
        bool areaSeen = false;
        for (std::size_t i = 0; i < Columns().size(); ++i) {
            const Quantity quantity = Columns()[i].quantity;
            if (quantity == Quantity::Text)
                continue;
            const double value = Stored(i) * (isMetric ? ToMetric(quantity) : 1);
            const bool isFirst = quantity == Quantity::Area && !areaSeen;
            areaSeen = areaSeen || isFirst;
            values.insert(isFirst ? values.begin() : values.end(), value);
        }
        if (m_family.layout == LayoutId::ColdFormedAngleLipped)
            std::swap(values[3], values[4]);
        return values;
    }

    void CheckLists() const;
    void CheckDisplay(const Deviation& deviation) const;
    void CheckRecords(const Deviation& deviation) const;
    void CheckEditing(const Deviation& deviation) const;

private:
    std::span<const LayoutColumn> Columns() const {
        return GetSectionLayout(m_family.layout).columns;
    }
    static double Stored(std::size_t column) { return 2 + 0.5 * static_cast<double>(column); }

    /// Every species of timber is sawn lumber.
    int RecordType() const {
        const bool isTimber = m_family.layout == LayoutId::Timber;
        return isTimber ? std::min(m_family.sectionType, 2) : m_family.sectionType;
    }

    void ExpectValues(const float* values, bool isMetric) const {
        const std::vector<double> expected = DisplayValues(isMetric);
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR(values[i] / expected[i], 1, 1e-5) << "value " << i;
    }

    int m_index;
    const SectionFamily& m_family;
    std::string m_public;
    std::string m_name;
};

/// The only item of a list, which is freed.
std::string Only(CStringList* list) {
    const std::unique_ptr<CStringList> owned(list);
    return owned && owned->GetCount() == 1 ? std::string(*owned->begin()) : "not one";
}

void OneSection::CheckLists() const {
    const int type = m_family.sectionType;
    CUIntArray ids;
    EXPECT_EQ(Only(Facade::GetSectionNameList(m_index, type, &ids, 1)), m_name);
    EXPECT_EQ(ids.GetSize() == 1 ? ids[0] : 0, 1u);
    EXPECT_EQ(Only(Facade::GetSectionPublicNameList(m_index, type, 0)), m_public);
    CStringArray byArea;
    byArea.Add(Columns()[0].name);
    EXPECT_EQ(Only(Facade::GetSortedSectionNameList(m_index, type, &byArea, 0)), m_name);
    EXPECT_EQ(Facade::GetTableFromSectionType(m_index, type), m_family.table);
    EXPECT_EQ(Facade::GetSectionTypeFromTable(m_index, m_family.table), type);
    EXPECT_EQ(Facade::GetShapeTypeFromSection(m_index, type), m_family.shapeType);
    EXPECT_EQ(Facade::GetSectionCount(m_index, type), 1);
    const auto columns = static_cast<int>(Columns().size());
    EXPECT_EQ(Facade::GetSectionFieldCount(m_index, type), columns);
    const std::unique_ptr<CStringArray> names(Facade::GetSectionFieldNameArray(m_index, type));
    const std::unique_ptr<CStringArray> units(Facade::GetSectionFieldUnitsArray(m_index, type));
    ASSERT_EQ(names->GetSize(), columns + BookkeepingColumns);
    EXPECT_EQ(names->GetAt(columns + 2), Columns().back().name);
    EXPECT_GE(units->GetSize(), columns + BookkeepingColumns);
}

void OneSection::CheckDisplay(const Deviation& deviation) const {
    const int type = m_family.sectionType;
    CStringArray names;
    float all[1][16] = {};
    Facade::GetAllSectionDataForGUI(m_index, type, &names, all, "ignored", Millimetre, Kilonewton);
    EXPECT_EQ(names.GetSize(), deviation.displaysAll ? 1 : 0);
    if (deviation.displaysAll)
        ExpectValues(all[0], true);

    CString name;
    float values[16] = {};
    EXPECT_EQ(Facade::GetSectionDataForGUI(m_index, type, 1, &name, values, "", 0, 0), 1);
    EXPECT_EQ(name, m_name.c_str());
    ExpectValues(values, false);
    EXPECT_EQ(Facade::GetSectionDataForGUI(m_index, type, 2, &name, values, "", 0, 0), 0);

    int shapeType = -1;
    std::fill_n(values, 16, 0.0F);
    EXPECT_EQ(Facade::GetSectionDataForGUI(m_index, m_name.c_str(), &shapeType, values, "",
                                           Millimetre, Kilonewton),
              1);
    EXPECT_EQ(shapeType, m_family.shapeType);
    ExpectValues(values, true);

    int found = type;
    int row = 0;
    const int allValues = deviation.displaysAllValues ? 1 : 0;
    EXPECT_EQ(Facade::GetSectionDataForGUIAllValues(m_index, m_name.c_str(), &found, &row, values,
                                                    Millimetre, Kilonewton),
              allValues);
    EXPECT_EQ(row, allValues);
    shapeType = -1;
    EXPECT_EQ(Facade::GetSectionDataForGUI_NoDbi(m_index, m_name.c_str(), &shapeType, values, "",
                                                 Millimetre, Kilonewton),
              allValues);
    if (deviation.displaysAllValues) {
        EXPECT_EQ(shapeType, m_family.shapeType);
        ExpectValues(values, false);
    }
}

void OneSection::CheckRecords(const Deviation& deviation) const {
    int type = -1;
    auto* record =
        static_cast<SectionRecord*>(Facade::GetSectionData(m_index, m_name.c_str(), type, ""));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(type, RecordType());
    const auto layoutRecord = dbsection::MakeSectionRecord(m_family.layout);
    const SectionRecord& read = *record;
    const SectionRecord& expected = *layoutRecord;
    EXPECT_EQ(typeid(read), typeid(expected));
    EXPECT_EQ(record->PublicName, m_public.c_str());
    for (std::size_t i = 0; i < Columns().size(); ++i)
        EXPECT_EQ(record->Number(BookkeepingColumns + static_cast<int>(i)),
                  Columns()[i].quantity == Quantity::Text ? 0 : Stored(i))
            << Columns()[i].name;
    Facade::FreeSectionData(record);

    type = -1;
    auto* info = static_cast<SectionRecord*>(Facade::GetSectionStructProperty(
        m_index, m_name.c_str(), type, Millimetre, Kilonewton, ""));
    ASSERT_EQ(info != nullptr, deviation.summarises);
    if (info == nullptr)
        return;
    EXPECT_EQ(type, RecordType());
    if (m_family.layout != LayoutId::AluminiumAlloy) {
        EXPECT_NEAR(dynamic_cast<SECTIONINFO*>(info)->Area / DisplayValues(true)[0], 1, 1e-6);
    }
    Facade::FreeSectionData(info);
}

void OneSection::CheckEditing(const Deviation& deviation) const {
    SectionDBBase* catalogue =
        Facade::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(m_index));
    catalogue->SetDatabase(Facade::GetDatabasePtr(m_index));
    SECTIONINFO section;
    section.PublicName = "New";
    section.VessaName = "new";
    for (std::size_t i = 0; i < Columns().size(); ++i)
        if (Columns()[i].quantity != Quantity::Text)
            section.Values.push_back(Stored(i));
    const bool edits = deviation.edits && m_family.layout != LayoutId::Castellated;
    catalogue->SetWorkingTable(m_family.table);
    EXPECT_EQ(catalogue->AddSectionData(2, &section), edits ? 1 : 0);
    section.PublicName = "Newer";
    EXPECT_EQ(catalogue->UpdateSectionData(2, &section), edits ? 1 : 0);
    EXPECT_EQ(Facade::GetSectionCount(m_index, m_family.sectionType), edits ? 2 : 1);
}

class EveryCatalogue : public FacadeTest, public ::testing::WithParamInterface<int> {};

TEST_P(EveryCatalogue, AnswersEveryOperation) {
    const int index = GetParam();
    Facade::InitSectionDBInterface();
    const auto* catalogue = dynamic_cast<const CatalogueSectionDB*>(
        Facade::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index)));
    ASSERT_NE(catalogue, nullptr);
    std::vector<OneSection> sections;
    for (const SectionFamily& family : catalogue->Families())
        sections.emplace_back(index, family);
    const std::string path = File(
        index <= LastCatalogueIndex ? (std::string(Facade::m_saSectionFile[index]) + ".db3").c_str()
                                    : "own.db3");
    {
        CatalogueFile file(path);
        for (const OneSection& section : sections)
            section.AddTo(file);
    }
    Facade::m_szUserTableFileName = path.c_str();
    Facade::SetGenericTableFileName(path.c_str());

    const Deviation deviation = DeviationOf(index);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        SCOPED_TRACE(catalogue->Families()[i].table);
        sections[i].CheckLists();
        sections[i].CheckDisplay(deviation);
        sections[i].CheckRecords(deviation);
        sections[i].CheckEditing(deviation);
    }
    const std::unique_ptr<CStringList> types(Facade::GetSectionTypeList(index));
    EXPECT_EQ(types->GetCount(), static_cast<int>(sections.size()));
    EXPECT_TRUE(shownBoxes.empty());
}

/// All indices but that of the joists, whose tables are of another kind.
std::vector<int> Indices() {
    std::vector<int> indices(37);
    std::iota(indices.begin(), indices.end(), 1);
    std::erase(indices, 21);
    indices.insert(indices.end(), {1001, 1010});
    return indices;
}

INSTANTIATE_TEST_SUITE_P(Of, EveryCatalogue, ::testing::ValuesIn(Indices()));

} // namespace
