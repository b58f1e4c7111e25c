// Catalogues, families and sections as values.
//
//     const sections::Catalogue american = library.open("American");
//     const sections::Section beam = american.at("W12X26");
//     double inertia = beam.majorInertia().in("mm^4");
//
//     const auto shapes = american.family("W Shape").sections();
//     const auto lightest = std::ranges::min(shapes, {}, &sections::Section::weight);
//
// A catalogue is a picture of its file at the time when it was opened: it never changes, and any
// number of threads may read it at once. Catalogues, families and sections are cheap to copy, and
// each of them keeps the picture alive.
#pragma once

#include "geometry/Geometry.h"
#include "platform/Export.h"
#include "records/SectionLayout.h"
#include "sections/Origin.h"
#include "sections/Quantity.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <optional>
#include <ranges>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dbsection {
struct DerivedProperties;
}

namespace sections {

struct CatalogueData;
struct FamilyData;
struct RowOrigin;
class Family;
class Catalogue;

/// A column of a family behind the bookkeeping ones: those of its layout, and then what else the
/// table has.
struct Column {
    std::string name; ///< as the table names it, e.g. "IZ"
    std::string unit; ///< as the catalogue keeps it, e.g. "INCHES^4"; empty where it keeps none
    ::Quantity quantity;
    std::string meaning; ///< empty where the layout does not know the column
};

/// What follows from a section's columns and shape, under a name and in a unit like a column:
/// "Weight", "SZ" and "SY" (elastic moduli), "RZ" and "RY" (radii of gyration), the centroid, the
/// principal angle, surfaces, areas that deform in shear, the shear center, and what classifies
/// plates in compression.
struct DerivedColumn : Column {
    bool isDetail; ///< asked less often
};

/// One section: a row of a family.
///
/// Axes: the major axis is that about which the section is stiffer as it stands, the minor axis is
/// square to it. A property that the section does not have, or the catalogue does not tell, throws
/// Error (SectionError::NoSuchItem).
class DBSECTION_API Section {
public:
    const std::string& name() const;        ///< as the standard prints it
    const std::string& programName() const; ///< as the analysis program names it
    std::int64_t recordNumber() const;
    Family family() const;

    /// The figure of a column, as the catalogue keeps it; nothing where it keeps none.
    std::optional<Quantity> find(std::string_view column) const;

    /// The same; throws Error where there is none.
    Quantity operator[](std::string_view column) const;

    /// The figure of one of the family's derived columns; nothing where it does not follow.
    std::optional<Quantity> findDerived(std::string_view name) const;

    /// Those of all derived columns, in the order of Family::derivedColumns: quicker than one by
    /// one.
    std::vector<std::optional<Quantity>> allDerived() const;

    /// The text of a column, such as the product form of an alloy; nothing where it keeps none.
    std::optional<std::string_view> findText(std::string_view column) const;

    /// The same; throws Error where there is none.
    std::string_view text(std::string_view column) const;

    Area area() const;
    Length depth() const; ///< of round sections the diameter, of angles the longer leg
    Length width() const; ///< of flanged sections that of the flange
    Length flangeThickness() const;
    Length webThickness() const;
    Length thickness() const; ///< of walls and legs

    Inertia majorInertia() const;
    Inertia minorInertia() const;
    Inertia torsionConstant() const;
    Warping warpingConstant() const;
    Modulus majorPlasticModulus() const;
    Modulus minorPlasticModulus() const;
    Length centroidHeight() const; ///< from the face that the column CY tells
    Length centroidOffset() const; ///< from the face that the column CZ tells

    // These follow from the figures above where the catalogue does not keep them.
    Modulus majorElasticModulus() const; ///< at the extreme fibre
    Modulus minorElasticModulus() const;
    Length majorRadius() const; ///< of gyration
    Length minorRadius() const;
    WeightPerLength weight() const; ///< as published, or by the area and the material's density

    /// The angle in degrees, counter-clockwise as the outline lies, from the major axis to the
    /// principal axis about which the section is stiffest; 0 for those that are symmetric about an
    /// axis. Where the catalogue does not keep it, it follows from the outline.
    double principalAngle() const;

    /// The shape in mm, by the model of its origin, and what the model computes. Of other sections
    /// as far as their own figures tell it: fillets that no column tells are those that give the
    /// area. Throws Error where they do not tell it.
    dbsection::SectionGeometry shape() const;
    dbsection::Outline outline() const { return shape().outline; }

    /// The shape where its area is, but for rounding and radii that are not published, the row's;
    /// otherwise throws Error (SectionError::RuleBroken), telling both.
    dbsection::SectionGeometry agreedShape() const;

    /// The figures that it keeps, by the columns of its layout, in mm and N.
    dbsection::Figures figures() const;

    /// Where the section comes from; null where the file does not tell. It lives as long as the
    /// picture of the catalogue.
    const Origin* origin() const;

    /// Where the figure of a column, or of a derived one, comes from.
    FigureSource source(std::string_view column) const;

    /// Whether names or figures are not those with which the file was built. False where it does
    /// not tell.
    bool isChanged() const;

    /// What the model of its origin needs to know besides the columns: radii and slopes, in mm.
    dbsection::Figures parameters() const;

    /// Other spellings of its name. They live as long as the picture of the catalogue.
    std::span<const Alias> aliases() const;

private:
    friend class Catalogue;
    friend class Family;
    friend class Sections;

    Section(std::shared_ptr<const CatalogueData> catalogue, const FamilyData& family,
            std::size_t row)
        : m_catalogue(std::move(catalogue)),
          m_family(&family),
          m_row(row) {}

    const RowOrigin* rowOrigin() const;
    dbsection::DerivedProperties deriveProperties() const;
    FigureSource derivedSource(std::string_view name) const;

    template <int L>
    DBSECTION_HIDDEN Measure<L> first(std::initializer_list<std::string_view> columns,
                                      const char* property) const;
    template <int L, int F = 0>
    DBSECTION_HIDDEN Measure<L, F> derived(double dbsection::DerivedProperties::*member,
                                           const char* property) const;
    [[noreturn]] void failFor(std::string_view property) const;

    std::shared_ptr<const CatalogueData> m_catalogue;
    const FamilyData* m_family;
    std::size_t m_row;
};

/// The sections of a family: a random-access range of values, itself cheap to copy. Its iterators
/// may outlive it.
class DBSECTION_API Sections : public std::ranges::view_base {
public:
    class Iterator {
    public:
        using iterator_concept = std::random_access_iterator_tag;
        using iterator_category = std::input_iterator_tag;
        using value_type = Section;
        using difference_type = std::ptrdiff_t;
        using reference = Section;
        using pointer = void;

        Iterator() = default;

        Section operator*() const { return (*this)[0]; }
        Section operator[](std::ptrdiff_t offset) const {
            return {m_catalogue, *m_family, static_cast<std::size_t>(m_row + offset)};
        }

        Iterator& operator++() { return *this += 1; }
        Iterator& operator--() { return *this += -1; }
        Iterator operator++(int) { return std::exchange(*this, *this + 1); }
        Iterator operator--(int) { return std::exchange(*this, *this - 1); }
        Iterator& operator+=(std::ptrdiff_t offset) {
            m_row += offset;
            return *this;
        }
        Iterator& operator-=(std::ptrdiff_t offset) { return *this += -offset; }
        friend Iterator operator+(Iterator place, std::ptrdiff_t offset) { return place += offset; }
        friend Iterator operator+(std::ptrdiff_t offset, Iterator place) { return place += offset; }
        friend Iterator operator-(Iterator place, std::ptrdiff_t offset) { return place -= offset; }
        friend std::ptrdiff_t operator-(const Iterator& left, const Iterator& right) {
            return left.m_row - right.m_row;
        }
        friend bool operator==(const Iterator& left, const Iterator& right) {
            return left.m_row == right.m_row;
        }
        friend std::strong_ordering operator<=>(const Iterator& left, const Iterator& right) {
            return left.m_row <=> right.m_row;
        }

    private:
        friend class Sections;

        Iterator(std::shared_ptr<const CatalogueData> catalogue, const FamilyData& family,
                 std::ptrdiff_t row)
            : m_catalogue(std::move(catalogue)),
              m_family(&family),
              m_row(row) {}

        std::shared_ptr<const CatalogueData> m_catalogue;
        const FamilyData* m_family = nullptr;
        std::ptrdiff_t m_row = 0;
    };

    Iterator begin() const { return {m_catalogue, *m_family, 0}; }
    Iterator end() const { return {m_catalogue, *m_family, m_size}; }
    std::size_t size() const { return static_cast<std::size_t>(m_size); }
    bool empty() const { return m_size == 0; }
    Section operator[](std::size_t row) const { return {m_catalogue, *m_family, row}; }

private:
    friend class Family;

    Sections(std::shared_ptr<const CatalogueData> catalogue, const FamilyData& family);

    std::shared_ptr<const CatalogueData> m_catalogue;
    const FamilyData* m_family;
    std::ptrdiff_t m_size;
};

/// A shape family of a catalogue: one of its tables.
class DBSECTION_API Family {
public:
    const std::string& name() const; ///< of the table, e.g. "W Shape"
    int sectionType() const;         ///< the catalogue's number of it
    LayoutId layout() const;
    const std::vector<Column>& columns() const;

    /// What follows besides, where the table has no column of that name: in lengths, areas and
    /// weights of the family's system of units.
    std::vector<DerivedColumn> derivedColumns() const;

    Catalogue catalogue() const;

    std::size_t size() const;
    Section
    operator[](std::size_t row) const; ///< in the catalogue's order; `row` must be below size()

    /// All sections.
    Sections sections() const;

    /// The section of that name, public or the program's, whatever its letter case: the first one;
    /// nothing where there is none.
    std::optional<Section> find(std::string_view name) const;

    /// The origins of its sections, each once; none where the file does not tell.
    std::vector<const Origin*> origins() const;

    /// Their standards with the editions, each once.
    std::vector<std::string> standards() const;

private:
    friend class Catalogue;
    friend class Section;

    Family(std::shared_ptr<const CatalogueData> catalogue, const FamilyData& family)
        : m_catalogue(std::move(catalogue)),
          m_family(&family) {}

    std::shared_ptr<const CatalogueData> m_catalogue;
    const FamilyData* m_family;
};

class DBSECTION_API Catalogue {
public:
    /// Reads a file, as one moment's picture. The password opens a protected one; an empty one
    /// means that of SECTIONDB_PASSWORD. Throws Error where the file cannot be opened or read, or
    /// is no catalogue of that number (1 to 37, 1001 for user tables, 1010 for generic shapes).
    static Catalogue read(const std::string& path, int number, std::string_view password = {});

    /// The same of the sections alone that findAll would find: quicker where no other is wanted.
    static Catalogue readNamed(std::string name, const std::string& path, int number,
                               std::string_view password = {});

    int number() const;
    const std::string& name() const;     ///< e.g. "American"
    const std::string& path() const;     ///< of the file
    int layoutVersion() const;           ///< of the file's tables
    const std::string& standard() const; ///< with its edition
    std::size_t size() const;            ///< the number of sections

    /// The families that have a table in the file, in the order of the catalogue.
    std::vector<Family> families() const;

    /// The family of that name; throws Error, naming those that there are.
    Family family(std::string_view name) const;

    /// The section of that name in any family, public or the program's, whatever its letter case:
    /// the first in the order of families; nothing where there is none.
    std::optional<Section> find(std::string_view name) const;

    /// The same; throws Error where there is none.
    Section at(std::string_view name) const;

    /// All sections of that name, in the order of families.
    std::vector<Section> findAll(std::string_view name) const;

private:
    friend class Change;
    friend class Family;
    friend class UserFile;

    explicit Catalogue(std::shared_ptr<const CatalogueData> data) : m_data(std::move(data)) {}

    std::optional<Section> find(std::string_view name, const FamilyData* family) const;

    std::shared_ptr<const CatalogueData> m_data;
};

} // namespace sections

template <>
inline constexpr bool std::ranges::enable_borrowed_range<sections::Sections> = true;
