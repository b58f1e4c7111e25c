// A family of sections: those of one standard and edition that are printed and computed alike. One
// or several catalogues show it.
#pragma once

#include "geometry/FigureRules.h"
#include "geometry/Geometry.h"
#include "sources/SourceCorrections.h"
#include "sources/SourceUnits.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// Another spelling of a section's name.
struct SourceAlias {
    std::string name;
    bool isSuperseded; ///< the standard has given it up
};

struct FamilyRow {
    std::string name;
    std::string vessaName;
    std::vector<SourceAlias> aliases;
    std::vector<std::string> printed; ///< by layout column, as printed; empty where nothing is
    Figures parameters;               ///< of its geometry, those that are its alone
    Figures computed = {};            ///< what its geometry gives, in mm
};

struct SourceFamily {
    std::string name;
    std::string standard; ///< with its edition
    std::string remark;   ///< for a person
    const SectionLayout* layout = nullptr;
    const GeometryModel* model = nullptr; ///< or null: no figure follows from another
    Figures parameters;                   ///< of the model, for rows without their own
    std::string production;               ///< e.g. "rolled"; empty where it is not told
    std::vector<std::string> nameSizes;   ///< columns whose figures are the name's last numbers
    const UnitSystem* system = nullptr;   ///< in which it is printed
    std::vector<std::string> units;       ///< by layout column
    FigureRules rules;
    std::vector<Correction> corrections;
    std::vector<FamilyRow> rows;
    std::string hash; ///< of all texts that decide what it holds

    /// The printed figures of a row, in mm and N.
    Figures PublishedFigures(const FamilyRow& row) const;

    /// The geometry of a row; throws GeometryError, also where its sizes are not those of its name.
    /// Nothing without a model.
    std::optional<SectionGeometry> GeometryOf(const FamilyRow& row, const Figures& published) const;

    /// A printed figure that geometry computes, too, and what the rules say of it.
    struct Judged {
        std::size_t column; ///< of the layout
        FigureVerdict verdict;
    };
    std::vector<Judged> Judge(const FamilyRow& row, const std::optional<SectionGeometry>& geometry,
                              const Figures& published) const;

    /// Whether a row like this would be accepted.
    bool Accepts(const FamilyRow& row) const;
};

/// The last `count` numbers of a name, which may be fractions: {3.125, 10.5} of "GL 3-1/8 x
/// 10-1/2". Fewer where it has fewer.
std::vector<double> LastNumbers(std::string_view name, std::size_t count);

} // namespace dbsection
