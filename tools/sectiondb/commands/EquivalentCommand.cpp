#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "files/SectionColumns.h"
#include "output/Messages.h"
#include "records/SectionLayout.h"
#include "sections/Error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <optional>
#include <set>

namespace dbsection {
namespace {

/// What sections are compared by, in mm: an area, two moments of inertia and a depth.
struct Measures {
    static constexpr std::size_t Count = 4;
    static constexpr std::array<const char*, Count> Names{"AX", "IZ", "IY", "D"};

    std::array<double, Count> values;

    /// Nothing where a section does not tell one of them.
    static std::optional<Measures> Of(const sections::Section& section) {
        using namespace sections::units;
        try {
            return Measures{{section.area().in(mm * mm), section.majorInertia().in(pow<4>(mm)),
                             section.minorInertia().in(pow<4>(mm)), section.depth().in(mm)}};
        } catch (const sections::Error&) {
            return std::nullopt;
        }
    }

    /// How much larger the measure is than that of another section, as a share of the latter.
    double Excess(const Measures& other, std::size_t measure) const {
        return values[measure] / other.values[measure] - 1;
    }

    /// The root of the mean square of all four relative differences.
    double Apart(const Measures& other) const {
        double sum = 0;
        for (std::size_t i = 0; i < Count; ++i)
            sum += std::pow(std::log(values[i] / other.values[i]), 2);
        return std::sqrt(sum / Count);
    }
};

struct Equivalent {
    sections::Section section;
    Measures measures;
    double apart;
};

std::string StandardOf(const sections::Section& section) {
    const sections::Origin* const origin = section.origin();
    return origin == nullptr ? "" : origin->standard;
}

/// Of the catalogues the sections of the same shape and another standard that are nearest to one,
/// each once, though several catalogues show it.
std::vector<Equivalent> NearestTo(const sections::Section& wanted, const Measures& measures,
                                  const std::vector<sections::Catalogue>& catalogues,
                                  std::size_t count) {
    const ShapeType::Code shape = GetSectionLayout(wanted.family().layout()).shape;
    std::vector<Equivalent> found;
    for (const sections::Catalogue& catalogue : catalogues)
        for (const sections::Family& family : catalogue.families()) {
            if (GetSectionLayout(family.layout()).shape != shape)
                continue;
            for (const sections::Section& section : family.sections())
                if (const auto own = Measures::Of(section))
                    found.push_back({section, *own, own->Apart(measures)});
        }
    std::ranges::stable_sort(found, {}, &Equivalent::apart);
    std::vector<Equivalent> nearest;
    std::set<std::pair<std::string, std::string>> known;
    for (const Equivalent& each : found) {
        const std::string standard = StandardOf(each.section);
        if (nearest.size() < count && standard != StandardOf(wanted) &&
            known.emplace(standard, each.section.name()).second)
            nearest.push_back(each);
    }
    return nearest;
}

class FindEquivalent : public Command {
    void Declare(CommandLine& line) override {
        line.Add("catalogue", m_catalogue, "Number, file stem or name").Required();
        line.Add("name", m_name, "Section name, e.g. W12X26").Required();
        line.Add("--family", m_family, "Shape family, where several have the name");
        line.Add("--in", m_in, "The catalogue to look in (default: all of the folder)")
            .Value("CATALOGUE");
        m_limit.Declare(line, "How many (default: 10)");
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const CatalogueFolder folder = m_catalogues.Folder();
        const sections::Section wanted = SectionNamed(folder, m_catalogue, m_name, m_family);
        const auto measures = Measures::Of(wanted);
        if (!measures)
            throw CommandError(fmt::format("{} of the catalogue {} has no area, moments of inertia "
                                           "and depth to look for others by.",
                                           wanted.name(), CatalogueOf(wanted)));
        CatalogueFaults faults;
        const std::vector<sections::Catalogue> catalogues =
            m_in.empty() ? OpenAll(folder, faults) : std::vector{folder.Open(m_in)};
        Print(TableOf(NearestTo(wanted, *measures, catalogues, m_limit.ValueOr(10)), *measures),
              m_form.Form());
        faults.ThrowIfAny();
    }

    static Table TableOf(const std::vector<Equivalent>& nearest, const Measures& wanted) {
        Table table({{"catalogue"}, {"family"}, {"name"}, {"standard"}, {"apart", "%"}});
        for (const char* measure : Measures::Names)
            table.columns.push_back({measure, "%"});
        for (const auto& [section, measures, apart] : nearest) {
            Table::Row& row = table.rows.emplace_back(
                Table::Row{CatalogueOf(section), section.family().name(), section.name(),
                           StandardOf(section), Percent(apart)});
            for (std::size_t i = 0; i < Measures::Count; ++i)
                row.emplace_back(Percent(measures.Excess(wanted, i)));
        }
        return table;
    }

    static Figure Percent(double share) {
        constexpr double Tenths = 10;
        return Figure{std::round(100 * Tenths * share) / Tenths};
    }

    std::string m_catalogue;
    std::string m_name;
    std::string m_family;
    std::string m_in; // empty: all
    LimitOption m_limit;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("equivalent", "Find the nearest sections of other standards",
                         Make<FindEquivalent>);

} // namespace
} // namespace dbsection
