#include "commands/Command.h"
#include "commands/ListFaults.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "files/SectionColumns.h"
#include "output/Messages.h"
#include "platform/Text.h"
#include "sections/Error.h"
#include "sources/CsvTable.h"
#include "sources/SourceText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <map>

namespace dbsection {
namespace {

constexpr std::array Titles{"catalogue", "family", "name", "length", "quantity"};

// Units of what is stored; a person may choose others.
constexpr const char* LengthUnit = "METER";
constexpr const char* MassUnit = "KG";
constexpr const char* SurfaceUnit = "METER^2";
constexpr const char* FactorUnit = "METER^2/METER^3";

/// What a member of a length has.
struct Amounts {
    double mass = 0;
    double surface = 0;
    double volume = 0;

    Amounts& operator+=(const Amounts& other) {
        mass += other.mass;
        surface += other.surface;
        volume += other.volume;
        return *this;
    }
    Amounts operator*(double factor) const {
        return {mass * factor, surface * factor, volume * factor};
    }
};

/// Per m. Throws CommandError where the section does not tell it.
Amounts PerLengthOf(const sections::Section& section) {
    const auto figure = [&](const char* column, const char* unit) {
        const auto derived = section.findDerived(column);
        if (!derived)
            throw CommandError(fmt::format("the {} of {} ({}) is not known", column, section.name(),
                                           CatalogueOf(section)));
        return derived->in(unit);
    };
    return {figure("Weight", "kg/m"), figure("Surface", "m^2/m"), section.area().in("m^2")};
}

bool AreAlike(const Amounts& left, const Amounts& right) {
    constexpr double Rounding = 1e-9;
    const auto alike = [](double a, double b) { return std::abs(a - b) <= Rounding * a; };
    return alike(left.mass, right.mass) && alike(left.surface, right.surface) &&
           alike(left.volume, right.volume);
}

/// Finds sections by the fields of a line, in the catalogues that lines ask for.
class Finder {
public:
    explicit Finder(const CatalogueFolder& folder) : m_folder(folder) {}

    /// Empty texts mean any catalogue or family. Throws CommandError where none has the name, or
    /// several with other figures have it.
    sections::Section Find(const std::string& catalogue, const std::string& family,
                           const std::string& name) {
        const sections::NameIndex& names = IndexOf(catalogue);
        std::vector<sections::Hit> hits = names.find(name);
        std::erase_if(hits, [&](const sections::Hit& hit) {
            return hit.match > sections::Match::Alias ||
                   (!family.empty() && !EqualNoCase(hit.section.family().name(), family));
        });
        if (hits.empty())
            throw CommandError("there is no such section; " + Suggestion(names.nearest(name)));
        const sections::Hit& best = hits.front();
        const Amounts amounts = PerLengthOf(best.section);
        for (const sections::Hit& hit : hits)
            if (hit.match == best.match && !AreAlike(PerLengthOf(hit.section), amounts))
                throw CommandError(fmt::format(
                    "it stands with different figures in {} and {}; name the catalogue and family",
                    PlaceOf(best.section), PlaceOf(hit.section)));
        return best.section;
    }

private:
    const sections::NameIndex& IndexOf(const std::string& catalogue) {
        auto index = m_byName.find(catalogue);
        if (index == m_byName.end())
            index = m_byName.emplace(catalogue, sections::NameIndex(Catalogues(catalogue))).first;
        return index->second;
    }

    std::vector<sections::Catalogue> Catalogues(const std::string& name) const {
        if (!name.empty())
            return {m_folder.Open(name)};
        CatalogueFaults faults;
        faults.Try([&] { m_folder.RequireThere(); });
        std::vector<sections::Catalogue> catalogues = OpenAll(m_folder, faults);
        faults.ThrowIfAny();
        return catalogues;
    }

    static std::string PlaceOf(const sections::Section& section) {
        return fmt::format("{} ({})", CatalogueOf(section), section.family().name());
    }

    const CatalogueFolder& m_folder;
    std::map<std::string, sections::NameIndex> m_byName; ///< of all under the empty one
};

struct Item {
    sections::Section section;
    double length; ///< in m
    int quantity;
    Amounts amounts;
};

class ItemList {
public:
    explicit ItemList(const CsvTable& csv) : m_csv(csv) {
        for (const char* required : {"name", "length"})
            if (!m_csv.Has(required))
                throw m_csv.ColumnError(required, "the column is missing");
        for (const std::string& title : m_csv.Columns())
            if (std::ranges::find(Titles, title) == Titles.end())
                throw m_csv.ColumnError(
                    title, "not a column of a take-off, which are catalogue, family, name, length "
                           "and quantity");
    }

    /// Throws SourceError.
    Item ItemOf(const CsvTable::Record& record, Finder& finder) const {
        const double length = LengthOf(record);
        const int quantity = QuantityOf(record);
        const std::string& name = m_csv.RequiredText(record, "name");
        try {
            const sections::Section section =
                finder.Find(TextOf(record, "catalogue"), TextOf(record, "family"), name);
            return {section, length, quantity, PerLengthOf(section) * (length * quantity)};
        } catch (const std::runtime_error& error) {
            throw m_csv.Error(record, "name", error.what());
        }
    }

private:
    /// Empty where there is no such column.
    std::string TextOf(const CsvTable::Record& record, const char* column) const {
        return m_csv.Has(column) ? m_csv.Text(record, column) : "";
    }

    /// Of a text such as "6.5 m".
    double LengthOf(const CsvTable::Record& record) const {
        const std::string& text = m_csv.RequiredText(record, "length");
        const std::size_t unit = text.find_first_not_of("0123456789.");
        const std::string_view figure = std::string_view(text).substr(0, unit);
        const auto number = ParseNumber(figure);
        const auto begin = text.find_first_not_of(' ', figure.size());
        if (!number || begin == std::string::npos)
            throw m_csv.Error(record, "length", "not a number and its unit, such as 6.5 m");
        if (*number <= 0)
            throw m_csv.Error(record, "length", "not above zero");
        try {
            return sections::Length(*number, {sections::sizeOfUnit(text.substr(begin), 1, 0)})
                .in(sections::units::m);
        } catch (const sections::Error& error) {
            throw m_csv.Error(record, "length", error.what());
        }
    }

    int QuantityOf(const CsvTable::Record& record) const {
        constexpr double Most = 1e6;
        if (!m_csv.Has("quantity"))
            return 1;
        const double quantity = m_csv.Number(record, "quantity");
        if (quantity < 1 || quantity > Most || quantity != std::floor(quantity))
            throw m_csv.Error(record, "quantity", "not a whole number from 1 to a million");
        return static_cast<int>(quantity);
    }

    const CsvTable& m_csv;
};

/// A line for each item, and the sum.
class TakeoffTable {
public:
    explicit TakeoffTable(const UnitChoice& units)
        : m_length(InChosenUnits(LengthUnit, units)),
          m_mass(InChosenUnits(MassUnit, units)),
          m_surface(InChosenUnits(SurfaceUnit, units)),
          m_factor(InChosenUnits(FactorUnit, units)),
          m_table({{"catalogue"},
                   {"name"},
                   {"length", m_length.label},
                   {"quantity"},
                   {"mass", m_mass.label},
                   {"surface", m_surface.label},
                   {"A/V", m_factor.label}}) {}

    void Add(const Item& item) {
        AddRow({CatalogueOf(item.section), item.section.name(), Computed(item.length, m_length),
                item.quantity},
               item.amounts);
        m_sum += item.amounts;
    }

    const Table& WithSum() {
        AddRow({{}, std::string("total"), {}, {}}, m_sum);
        return m_table;
    }

private:
    static Figure Computed(double figure, const PrintedUnit& unit) {
        return {WithoutNoise(figure), unit.factor, true};
    }

    void AddRow(Table::Row row, const Amounts& amounts) {
        row.insert(row.end(), {Computed(amounts.mass, m_mass), Computed(amounts.surface, m_surface),
                               Computed(amounts.surface / amounts.volume, m_factor)});
        m_table.rows.push_back(std::move(row));
    }

    PrintedUnit m_length;
    PrintedUnit m_mass;
    PrintedUnit m_surface;
    PrintedUnit m_factor;
    Table m_table;
    Amounts m_sum;
};

class Takeoff : public Command {
    void Declare(CommandLine& line) override {
        line.Add("list", m_list,
                 "Comma-separated text with the columns name and length (\"6.5 m\"), and, "
                 "where they are wanted, catalogue, family and quantity")
            .Value("FILE.csv")
            .Required();
        m_units.Declare(line);
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const UnitChoice units = m_units.Choice();
        const CsvTable csv(m_list, ReadSourceText(m_list));
        const ItemList list(csv);
        const CatalogueFolder folder = m_catalogues.Folder();
        Finder finder(folder);
        TakeoffTable table(units);
        ListFaults faults;
        for (const CsvTable::Record& record : csv.Records()) {
            try {
                table.Add(list.ItemOf(record, finder));
            } catch (const SourceError& error) {
                faults.Add(error.what());
            }
        }
        faults.ThrowIfAny(m_list, "nothing is taken off");
        if (csv.Records().empty())
            throw csv.LineError(2, "there are no sections in the list");
        Print(table.WithSum(), m_form.Form());
    }

    std::string m_list;
    UnitOptions m_units;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("takeoff", "Sum up mass and painted surface of a list of members",
                         Make<Takeoff>);

} // namespace
} // namespace dbsection
