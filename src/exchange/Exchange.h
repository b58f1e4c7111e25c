// Sections handed on to other programs.
//
//     const ExchangeFormat* format = FindExchangeFormat("calculix");
//     std::ofstream file("frame.inp");
//     Write(*format, sections, {.length = ExchangeLength::Millimetre}, file);
//
// Every file says its units, its axes, and where its sections come from.
#pragma once

#include "platform/Export.h"
#include "records/Symbols.h"
#include "sections/Catalogue.h"
#include "sections/Error.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <span>
#include <string_view>

namespace dbsection {

/// The unit of length of a file; it has forces in N besides mm, in kip besides inches.
enum class ExchangeLength : std::uint8_t { Millimetre, Inch };

struct ExchangeOptions {
    /// Without one mm, and in spreadsheets the units of the catalogue.
    std::optional<ExchangeLength> length{};
    Symbols symbols = Symbols::Program; ///< in what a person reads
    std::function<void()> progress{};   ///< called behind each section

    /// Called where a section lacks what the format needs, which is then left out; without it that
    /// is an error.
    std::function<void(const sections::Error& fault)> leaveOut{};
};

struct ExchangeFormat {
    const char* name;   ///< e.g. "ifc"
    const char* suffix; ///< of files, e.g. ".ifc"
    const char* meaning;
    void (*write)(std::span<const sections::Section> sections, const ExchangeOptions& options,
                  std::ostream& file);
};

/// Those that the library was built with.
DBSECTION_API std::span<const ExchangeFormat> ExchangeFormats();

/// The format of that name, or null.
DBSECTION_API const ExchangeFormat* FindExchangeFormat(std::string_view name);

/// Writes sections piece by piece. Throws sections::Error where a section lacks what the format
/// needs and must not be left out; what the file
/// holds is of no use then. The caller asks the file whether it took all.
inline void Write(const ExchangeFormat& format, std::span<const sections::Section> sections,
                  const ExchangeOptions& options, std::ostream& file) {
    format.write(sections, options, file);
}

} // namespace dbsection
