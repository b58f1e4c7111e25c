#include "sections/Catalogue.h"

#include "dataaccess/CSectionException.h"
#include "geometry/RowJudgement.h"
#include "platform/Text.h"
#include "records/DerivedProperties.h"
#include "sections/CatalogueData.h"
#include "sections/Error.h"
#include "sections/ProvenanceReader.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace sections {
namespace {

/// A row's columns in mm and N.
class RowInBaseUnits final : public dbsection::ColumnValues {
public:
    RowInBaseUnits(const FamilyData& family, std::size_t row) : m_family(family), m_row(row) {}

    double Value(std::size_t column) const override {
        return IsKept(column) ? m_family.data[column].figures[m_row] * SizeOf(column) : 0;
    }
    bool IsKept(std::size_t column) const override {
        return column < m_family.layoutColumns && !m_family.data[column].figures.empty() &&
               !std::isnan(m_family.data[column].figures[m_row]);
    }

private:
    /// What has no unit of length or force counts as it is; what should have one and has not, as
    /// nothing.
    double SizeOf(std::size_t column) const {
        const FamilyColumn& data = m_family.data[column];
        const bool isPlain =
            data.column.quantity == ::Quantity::Number || data.column.quantity == ::Quantity::Angle;
        return isPlain ? 1 : data.size;
    }

    const FamilyData& m_family;
    std::size_t m_row;
};

/// N/mm^3 of a density in kg/m^3.
double weightDensity(double density) { return density * 9.80665e-9; }

} // namespace

const std::string& Section::name() const { return m_family->names[m_row]; }
const std::string& Section::programName() const { return m_family->programNames[m_row]; }
std::int64_t Section::recordNumber() const { return m_family->recordNumbers[m_row]; }
Family Section::family() const { return {m_catalogue, *m_family}; }

void Section::failFor(std::string_view property) const {
    throw Error(SectionError::NoSuchItem, m_catalogue->path + ": " + name() + " of table \"" +
                                              m_family->table + "\" has no " +
                                              std::string(property) + ".");
}

std::optional<Quantity> Section::find(std::string_view column) const {
    const FamilyColumn* data = m_family->find(column);
    if (data == nullptr || data->figures.empty() || std::isnan(data->figures[m_row]))
        return std::nullopt;
    return Quantity(data->figures[m_row], data->column.unit);
}

Quantity Section::operator[](std::string_view column) const {
    if (auto quantity = find(column))
        return *quantity;
    failFor("figure " + std::string(column));
}

std::optional<std::string_view> Section::findText(std::string_view column) const {
    const FamilyColumn* data = m_family->find(column);
    if (data == nullptr || data->texts.empty())
        return std::nullopt;
    return data->texts[m_row];
}

std::string_view Section::text(std::string_view column) const {
    if (const auto text = findText(column))
        return *text;
    failFor("text " + std::string(column));
}

template <int L>
Measure<L> Section::first(std::initializer_list<std::string_view> columns,
                          const char* property) const {
    for (const std::string_view column : columns) {
        const FamilyColumn* data = m_family->find(column);
        if (data == nullptr || data->figures.empty() || std::isnan(data->figures[m_row]))
            continue;
        if (data->size != 0 && data->dimension == dbsection::UnitDimension{L, 0})
            return {data->figures[m_row], Unit<L>{data->size}};
        return Quantity(data->figures[m_row], data->column.unit).as<L>(); // tells what is wrong
    }
    failFor(property);
}

dbsection::DerivedProperties Section::deriveProperties() const {
    return dbsection::DeriveProperties(m_family->family->layout, RowInBaseUnits(*m_family, m_row),
                                       weightDensity(m_catalogue->catalogue->density));
}

template <int L, int F>
Measure<L, F> Section::derived(double dbsection::DerivedProperties::*member,
                               const char* property) const {
    const double figure = deriveProperties().*member;
    if (figure == 0)
        failFor(property);
    return {figure, Unit<L, F>{1}};
}

Area Section::area() const { return first<2>({"AX"}, "area"); }
Length Section::depth() const { return first<1>({"D", "OD"}, "depth"); }
Length Section::width() const { return first<1>({"BF", "B", "OD"}, "width"); }
Length Section::flangeThickness() const { return first<1>({"TF"}, "flange thickness"); }
Length Section::webThickness() const { return first<1>({"TW"}, "web thickness"); }
Length Section::thickness() const { return first<1>({"T"}, "thickness"); }
Inertia Section::majorInertia() const { return first<4>({"IZ", "I"}, "moment of inertia"); }
Inertia Section::minorInertia() const { return first<4>({"IY", "I"}, "moment of inertia"); }
Warping Section::warpingConstant() const { return first<6>({"CW"}, "warping constant"); }
Modulus Section::majorPlasticModulus() const { return first<3>({"ZZ", "Z"}, "plastic modulus"); }
Modulus Section::minorPlasticModulus() const { return first<3>({"ZY", "Z"}, "plastic modulus"); }
Length Section::centroidHeight() const { return first<1>({"CY"}, "centroid height"); }
Length Section::centroidOffset() const { return first<1>({"CZ"}, "centroid offset"); }

Inertia Section::torsionConstant() const {
    return derived<4>(&dbsection::DerivedProperties::torsionConstant, "torsion constant");
}
Modulus Section::majorElasticModulus() const {
    return derived<3>(&dbsection::DerivedProperties::majorModulus, "elastic modulus");
}
Modulus Section::minorElasticModulus() const {
    return derived<3>(&dbsection::DerivedProperties::minorModulus, "elastic modulus");
}
Length Section::majorRadius() const {
    return derived<1>(&dbsection::DerivedProperties::majorRadius, "radius of gyration");
}
Length Section::minorRadius() const {
    return derived<1>(&dbsection::DerivedProperties::minorRadius, "radius of gyration");
}
WeightPerLength Section::weight() const {
    if (const auto mass = parameters(); mass.contains("mass"))
        return {mass.find("mass")->second, Unit<-1, 1>{1}};
    return derived<-1, 1>(&dbsection::DerivedProperties::weightPerLength, "weight");
}

double Section::principalAngle() const {
    if (const auto angle = find("ALPHA")) {
        const bool isInRadians = dbsection::EqualNoCase(angle->unit(), "RADIAN");
        return isInRadians ? angle->figure() * 180 / std::numbers::pi : angle->figure();
    }
    switch (m_family->family->layout) {
    case LayoutId::Angle:
    case LayoutId::ColdFormedAngle:
    case LayoutId::ColdFormedAngleLipped:
    case LayoutId::ColdFormedZee:
    case LayoutId::ColdFormedZeeLipped:
    case LayoutId::EaveStrut:
    case LayoutId::BulbFlat:
        return outline().PrincipalAngle();
    case LayoutId::General:
    case LayoutId::AluminiumAlloy:
    case LayoutId::Joist:
    case LayoutId::JoistGirder:
        failFor("principal angle");
    default: // symmetric about an axis
        return 0;
    }
}

dbsection::Figures Section::figures() const {
    const RowInBaseUnits row(*m_family, m_row);
    dbsection::Figures figures;
    for (std::size_t i = 0; i < m_family->layoutColumns; ++i)
        if (row.IsKept(i))
            figures.emplace(m_family->data[i].layoutName, row.Value(i));
    return figures;
}

dbsection::SectionGeometry Section::shape() const {
    const dbsection::Figures kept = figures();
    const Origin* const from = origin();
    try {
        if (from != nullptr && from->model != nullptr)
            return from->model->make(kept, parameters());
        const auto judgement = dbsection::JudgeRow(m_family->family->layout, kept, {});
        if (!judgement.geometry)
            failFor("outline: its figures do not tell its shape");
        return *judgement.geometry;
    } catch (const dbsection::GeometryError& error) {
        throw Error(SectionError::RuleBroken,
                    m_catalogue->path + ": " + name() + " of table \"" + m_family->table +
                        "\": its figures contradict each other: " + error.what());
    }
}

dbsection::SectionGeometry Section::agreedShape() const {
    constexpr double Agreement = 0.02;
    dbsection::SectionGeometry made = shape();
    const double drawn = made.outline.Area();
    const double kept = area().in("mm^2");
    if (std::abs(drawn / kept - 1) > Agreement)
        throw Error(SectionError::RuleBroken,
                    m_catalogue->path + ": " + name() + " of table \"" + m_family->table +
                        "\": its dimensions give an area of " +
                        std::to_string(std::llround(drawn)) + " mm^2, its row has " +
                        std::to_string(std::llround(kept)) + " mm^2.");
    return made;
}

const RowOrigin* Section::rowOrigin() const {
    return m_row < m_family->origins.size() && m_family->origins[m_row] ? &*m_family->origins[m_row]
                                                                        : nullptr;
}

const Origin* Section::origin() const {
    const RowOrigin* const row = rowOrigin();
    return row == nullptr ? nullptr : &m_catalogue->origins[row->origin];
}

bool Section::isChanged() const { return rowOrigin() != nullptr && rowOrigin()->isChanged; }

FigureSource Section::source(std::string_view column) const {
    const RowOrigin* const row = rowOrigin();
    const FamilyColumn* const data = m_family->find(column);
    if (data == nullptr)
        return derivedSource(column);
    if (row == nullptr || row->isChanged)
        return FigureSource::Unknown;
    if (!data->figures.empty() && std::isnan(data->figures[m_row]))
        return FigureSource::NotPublished;
    if (isListed(row->computed, data->layoutName))
        return FigureSource::Computed;
    return isListed(row->corrected, data->layoutName) ? FigureSource::Corrected
                                                      : FigureSource::Published;
}

dbsection::Figures Section::parameters() const {
    const RowOrigin* const row = rowOrigin();
    if (row == nullptr)
        return {};
    dbsection::Figures own = parametersIn(row->parameters);
    own.insert(origin()->parameters.begin(), origin()->parameters.end());
    return own;
}

std::span<const Alias> Section::aliases() const {
    const auto place = m_family->aliases.find(m_row);
    return place == m_family->aliases.end() ? std::span<const Alias>() : place->second;
}

Sections::Sections(std::shared_ptr<const CatalogueData> catalogue, const FamilyData& family)
    : m_catalogue(std::move(catalogue)),
      m_family(&family),
      m_size(std::ssize(family.names)) {}

const std::string& Family::name() const { return m_family->table; }
int Family::sectionType() const { return m_family->family->sectionType; }
LayoutId Family::layout() const { return m_family->family->layout; }
const std::vector<Column>& Family::columns() const { return m_family->columns; }
Catalogue Family::catalogue() const { return Catalogue(m_catalogue); }
std::size_t Family::size() const { return m_family->names.size(); }
Section Family::operator[](std::size_t row) const { return {m_catalogue, *m_family, row}; }
Sections Family::sections() const { return {m_catalogue, *m_family}; }

std::vector<const Origin*> Family::origins() const {
    std::vector<const Origin*> origins;
    for (const Section& section : sections())
        if (const Origin* origin = section.origin();
            origin != nullptr && std::ranges::find(origins, origin) == origins.end())
            origins.push_back(origin);
    return origins;
}

std::vector<std::string> Family::standards() const {
    std::vector<std::string> standards;
    for (const Origin* origin : origins())
        if (std::ranges::find(standards, origin->standard) == standards.end())
            standards.push_back(origin->standard);
    return standards;
}

std::optional<Section> Family::find(std::string_view name) const {
    return Catalogue(m_catalogue).find(name, m_family);
}

Catalogue Catalogue::read(const std::string& path, int number, std::string_view password) {
    return Catalogue(std::make_shared<const CatalogueData>(readCatalogue(path, number, password)));
}

Catalogue Catalogue::readNamed(std::string name, const std::string& path, int number,
                               std::string_view password) {
    return Catalogue(std::make_shared<const CatalogueData>(
        readCatalogue(path, number, password, std::move(name))));
}

int Catalogue::number() const { return m_data->catalogue->index; }
const std::string& Catalogue::name() const { return m_data->title; }
int Catalogue::layoutVersion() const { return m_data->layoutVersion; }
const std::string& Catalogue::path() const { return m_data->path; }
const std::string& Catalogue::standard() const { return m_data->standard; }

std::size_t Catalogue::size() const {
    std::size_t size = 0;
    for (const FamilyData& family : m_data->families)
        size += family.names.size();
    return size;
}

std::vector<Family> Catalogue::families() const {
    std::vector<Family> families;
    for (const FamilyData& family : m_data->families)
        families.push_back(Family(m_data, family));
    return families;
}

Family Catalogue::family(std::string_view name) const {
    std::string known;
    std::string_view last;
    for (const FamilyData& family : m_data->families) {
        if (dbsection::EqualNoCase(family.table, name))
            return {m_data, family};
        if (family.table != last) // series of joists share one
            known += (known.empty() ? "" : ", ") + family.table;
        last = family.table;
    }
    throw Error(SectionError::NoSuchItem, m_data->path + ": There is no family \"" +
                                              std::string(name) + "\"; the families are " + known +
                                              ".");
}

std::optional<Section> Catalogue::find(std::string_view name, const FamilyData* family) const {
    std::optional<Section> found;
    m_data->index.visit(name, [&](const Place& place) {
        const FamilyData& holder = m_data->families[place.family];
        if (family == nullptr || family == &holder)
            found = Section(m_data, holder, place.row);
        return found.has_value();
    });
    return found;
}

std::optional<Section> Catalogue::find(std::string_view name) const { return find(name, nullptr); }

std::vector<Section> Catalogue::findAll(std::string_view name) const {
    std::vector<Section> sections;
    m_data->index.visit(name, [&](const Place& place) {
        sections.push_back(Section(m_data, m_data->families[place.family], place.row));
        return false;
    });
    return sections;
}

Section Catalogue::at(std::string_view name) const {
    if (auto section = find(name))
        return std::move(*section);
    throw Error(SectionError::NoSuchItem,
                m_data->path + ": there is no section \"" + std::string(name) + "\".");
}

} // namespace sections
