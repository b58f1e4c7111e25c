// Spreadsheets: a sheet for each family, with the figures as the catalogue keeps them.
#include "dataaccess/CSectionException.h"
#include "exchange/ExchangeText.h"
#include "exchange/Formats.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <ostream>
#include <utility>
#include <xlsxwriter.h>

namespace dbsection {
namespace {

// The rows of a sheet.
constexpr lxw_row_t TitleRow = 0;
constexpr lxw_row_t RemarksRow = 1;
constexpr lxw_row_t NamesRow = 2;
constexpr lxw_row_t UnitsRow = 3; ///< with the filter
constexpr lxw_row_t FirstSectionRow = 4;
constexpr lxw_col_t FirstFigureColumn = 2; ///< behind both names

/// A folder of temporary files, which goes with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::error_code error;
        std::filesystem::path folder = std::filesystem::temp_directory_path(error);
        m_path = (folder / "sections.XXXXXX").string();
        if (error || mkdtemp(m_path.data()) == nullptr)
            Fail("it cannot be written to");
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::string& Path() const { return m_path; }

    [[noreturn]] void Fail(const std::string& fault) const {
        throw sections::Error(SectionError::Io,
                              m_path +
                                  ": A spreadsheet is put together in this folder of "
                                  "temporary files: " +
                                  fault + "; name another folder by TMPDIR.");
    }

    void Require(lxw_error result) const {
        if (result != LXW_NO_ERROR)
            Fail(lxw_strerror(result));
    }

    /// The packer does not tell of all that it fails to write.
    void RequireRoom(std::uintmax_t bytes) const {
        std::error_code unknown;
        const auto space = std::filesystem::space(m_path, unknown);
        if (!unknown && space.available < bytes)
            Fail("it is nearly full");
    }

private:
    std::string m_path;
};

/// Of at most so many units of UTF-16, by which spreadsheets count.
std::string Cut(std::string_view text, std::size_t longest) {
    std::size_t end = 0;
    for (std::size_t count = 0; end < text.size();) {
        const auto first = static_cast<unsigned char>(text[end]);
        const std::size_t bytes = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        count += bytes == 4 ? 2 : 1;
        if (count > longest)
            break;
        end += bytes;
    }
    return std::string(text.substr(0, end));
}

/// Names of sheets, each once whatever its letter case.
class SheetNames {
public:
    std::string Make(std::string_view wanted) {
        constexpr std::size_t Longest = 31;
        std::string base = OneLine(wanted);
        std::ranges::replace_if(
            base,
            [](char c) { return std::string_view("[]:*?/\\'").find(c) != std::string_view::npos; },
            ' ');
        base = Cut(base, Longest);
        std::string made = base;
        for (int i = 2; !m_used.insert(UpperCase(made)).second; ++i) {
            const std::string ending = " (" + std::to_string(i) + ")";
            made = Cut(base, Longest - ending.size()) + ending;
        }
        return made;
    }

private:
    std::set<std::string> m_used{"", "HISTORY"}; ///< at first those that are not allowed
};

/// A column of a family and the unit in which a sheet has it.
struct SheetColumn {
    std::string name;
    std::string unit;
    double factor; ///< of the kept unit in that one
    bool isText;
    bool isDerived;
};

/// Lengths and their powers are converted, as far as a unit of length is chosen.
SheetColumn ColumnIn(const ExchangeOptions& options, const sections::Column& column,
                     bool isDerived) {
    const bool isText = column.quantity == Quantity::Text;
    const std::string kept = isText ? "" : column.unit;
    const auto dimension = DimensionOf(kept);
    const bool isPower = dimension && dimension->length != 0 && dimension->force == 0 &&
                         kept.find('/') == std::string::npos;
    if (!options.length || !isPower)
        return {column.name, LabelOf(kept), 1, isText, isDerived};
    const ExchangeUnits& units = ExchangeUnits::Of(options.length);
    const unsigned int chosen =
        options.length == ExchangeLength::Inch ? UnitId::Inch : UnitId::Millimetre;
    return {column.name, LabelOf(kept, {.length = chosen}),
            SizeOf(kept) / std::pow(units.lengthSize, dimension->length), isText, isDerived};
}

std::vector<SheetColumn> ColumnsOf(const sections::Family& family, const ExchangeOptions& options) {
    std::vector<SheetColumn> columns;
    for (const sections::Column& column : family.columns())
        columns.push_back(ColumnIn(options, column, false));
    for (const sections::DerivedColumn& column : family.derivedColumns())
        columns.push_back(ColumnIn(options, column, true));
    return columns;
}

std::string TitleOf(const sections::Family& family) {
    std::string title = family.catalogue().name() + ", " + family.name();
    std::vector<std::string> told;
    for (const sections::Origin* origin : family.origins()) {
        const std::string standard =
            origin->standard + (origin->production.empty() ? "" : " (" + origin->production + ")");
        if (std::ranges::find(told, standard) != told.end())
            continue;
        title += (told.empty() ? ": " : "; ") + standard;
        told.push_back(standard);
    }
    return title;
}

/// What is shared by the sheets of a workbook.
struct Workbook {
    lxw_workbook* book;
    const TemporaryFolder& folder;
    lxw_format* bold = workbook_add_format(book);
    lxw_format* computed = workbook_add_format(book);
};

class Sheet {
public:
    Sheet(const Workbook& workbook, const std::string& name, const sections::Family& family,
          const ExchangeOptions& options)
        : m_workbook(workbook),
          m_sheet(workbook_add_worksheet(workbook.book, name.c_str())),
          m_columns(ColumnsOf(family, options)) {
        if (m_sheet == nullptr)
            workbook.folder.Fail("the sheet \"" + name + "\" cannot be made");
        Add(TitleRow, 0, TitleOf(family), workbook.bold);
        Add(RemarksRow, 0,
            "Axes: " + std::string(AxesOf(options.symbols)) +
                ". Figures in italics are computed, not published.");
        Add(NamesRow, 0, "Name", workbook.bold);
        Add(NamesRow, 1, "VessaName", workbook.bold);
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            Add(NamesRow, PlaceOf(i), SymbolOf(m_columns[i].name, options.symbols), workbook.bold);
        for (std::size_t i = 0; i < m_columns.size(); ++i) // rows are written once, in their order
            Add(UnitsRow, PlaceOf(i), m_columns[i].unit);
    }

    void Add(const sections::Section& section) {
        Add(m_next, 0, section.name());
        Add(m_next, 1, section.programName());
        const std::vector<std::optional<sections::Quantity>> derived = section.allDerived();
        const std::size_t kept = m_columns.size() - derived.size();
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            AddCell(PlaceOf(i), section, m_columns[i],
                    i < kept ? section.find(m_columns[i].name) : derived[i - kept]);
        ++m_next;
    }

    void Finish() const {
        constexpr double NameWidth = 24;
        const TemporaryFolder& folder = m_workbook.folder;
        folder.Require(worksheet_set_column(m_sheet, 0, 1, NameWidth, nullptr));
        worksheet_freeze_panes(m_sheet, FirstSectionRow, 1);
        folder.Require(
            worksheet_autofilter(m_sheet, UnitsRow, 0, m_next - 1, PlaceOf(m_columns.size()) - 1));
        if (std::fflush(m_sheet->optimize_tmpfile) != 0 ||
            std::ferror(m_sheet->optimize_tmpfile) != 0)
            folder.Fail("it is full");
    }

    /// What it takes of the folder of temporary files.
    std::uintmax_t Bytes() const {
        const long end = std::ftell(m_sheet->optimize_tmpfile);
        return end < 0 ? 0 : static_cast<std::uintmax_t>(end);
    }

private:
    static lxw_col_t PlaceOf(std::size_t column) {
        return static_cast<lxw_col_t>(FirstFigureColumn + column);
    }

    void Add(lxw_row_t row, lxw_col_t column, std::string_view text, lxw_format* format = nullptr) {
        constexpr std::size_t Longest = 32767;
        const std::string line = Cut(OneLine(text), Longest);
        m_workbook.folder.Require(
            worksheet_write_string(m_sheet, row, column, line.c_str(), format));
    }

    void AddCell(lxw_col_t place, const sections::Section& section, const SheetColumn& column,
                 const std::optional<sections::Quantity>& quantity) {
        if (column.isText) {
            if (const auto text = section.findText(column.name))
                Add(m_next, place, *text);
            return;
        }
        if (!quantity || !std::isfinite(quantity->figure()))
            return;
        constexpr int Digits = 11; // beyond which rounding is seen, of what is computed
        const bool isKept = column.factor == 1 && !column.isDerived;
        const double figure =
            isKept ? quantity->figure() : RoundedTo(quantity->figure() * column.factor, Digits);
        const bool isComputed = section.source(column.name) == sections::FigureSource::Computed;
        m_workbook.folder.Require(worksheet_write_number(
            m_sheet, m_next, place, figure, isComputed ? m_workbook.computed : nullptr));
    }

    const Workbook& m_workbook;
    lxw_worksheet* m_sheet;
    std::vector<SheetColumn> m_columns;
    lxw_row_t m_next = FirstSectionRow;
};

/// By the path of the catalogue and the family.
using Sheets = std::map<std::pair<std::string, std::string>, Sheet>;

void AddSections(const Workbook& workbook, std::span<const sections::Section> sections,
                 const ExchangeOptions& options) {
    const auto pathOf = [](const sections::Section& section) {
        return section.family().catalogue().path();
    };
    const bool isOneCatalogue = std::ranges::all_of(
        sections, [&](const auto& section) { return pathOf(section) == pathOf(sections.front()); });
    Sheets sheets;
    SheetNames names;
    for (const sections::Section& section : sections) {
        const sections::Family family = section.family();
        const std::pair key(pathOf(section), family.name());
        auto sheet = sheets.find(key);
        if (sheet == sheets.end()) {
            const std::string name = names.Make(
                isOneCatalogue ? family.name() : family.catalogue().name() + " " + family.name());
            sheet = sheets.try_emplace(key, workbook, name, family, options).first;
        }
        sheet->second.Add(section);
        if (options.progress)
            options.progress();
    }
    std::uintmax_t all = 0;
    std::uintmax_t largest = 0;
    for (const auto& [key, sheet] : sheets) {
        sheet.Finish();
        all += sheet.Bytes();
        largest = std::max(largest, sheet.Bytes());
    }
    constexpr std::uintmax_t OtherParts = 1 << 20;
    workbook.folder.RequireRoom(largest + all / 2 + OtherParts); // a copy, and what is packed
}

} // namespace

void WriteXlsx(std::span<const sections::Section> sections, const ExchangeOptions& options,
               std::ostream& file) {
    const TemporaryFolder folder;
    std::string temporary = folder.Path();
    const std::string path = folder.Path() + "/sections.xlsx";
    lxw_workbook_options settings{
        .constant_memory = LXW_TRUE, .tmpdir = temporary.data(), .use_zip64 = LXW_FALSE};
    std::unique_ptr<lxw_workbook, void (*)(lxw_workbook*)> book(
        workbook_new_opt(path.c_str(), &settings), lxw_workbook_free);
    if (!book)
        folder.Fail("memory is exhausted");
    const Workbook workbook{book.get(), folder};
    format_set_bold(workbook.bold);
    format_set_italic(workbook.computed);
    AddSections(workbook, sections, options);
    folder.Require(workbook_close(book.release()));
    file << std::ifstream(path, std::ios::binary).rdbuf();
}

} // namespace dbsection
