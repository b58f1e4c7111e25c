// A section's name as people type it, brought to one form.
//
//     NameKey("HE 200 A") == NameKey("hea-200");    NameKey("W 12 x 26") == NameKey("W12X26.0");
//     NameKey("L2-1/2X2X.188") == NameKey("l 2.5*2*3/16");
//
// Only the letters and the numbers of a name count, each in their order. Letter case does not, in
// any alphabet with cases; neither do blanks, dashes, brackets, the sign between two numbers, nor
// how a number is written: with a decimal point or comma, as a fraction, with zeros at its end. A
// slash makes a fraction of an inch below 1, such as 3/8; otherwise it stands between two numbers.
// Numbers are told apart by thousandths, as catalogues print the sixteenths of an inch.
#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

struct DBSECTION_API NameKey {
    explicit NameKey(std::string_view name); ///< in UTF-8

    std::string letters; ///< in capitals, UTF-8
    std::vector<std::int64_t> thousandths;

    /// Whether there is neither letter nor number.
    bool IsEmpty() const { return letters.empty() && thousandths.empty(); }

    /// One text for each key, such as "HEA 200" or "W 12x26".
    std::string Text() const;

    /// Whether a person who types this name may have typed that much: "W 12x2" of "W 12x26". The
    /// letters may end before those of the name, the last number before its last digits.
    bool BeginsWith(const NameKey& typed) const;

    /// Equal keys have the same.
    std::uint64_t Hash() const;

    bool operator==(const NameKey&) const = default;
};

/// How far two names are apart: the single changes of letters and digits (one left out, put in,
/// replaced, or swapped with its neighbour) that make one of the other, or anything above `most`
/// where there are more than that.
DBSECTION_API int NameDistance(std::string_view left, std::string_view right, int most);

/// How far the numbers of two names are apart: the sum of their relative differences, a number
/// that only one of them has counting 1.
DBSECTION_API double NumbersApart(const NameKey& left, const NameKey& right);

} // namespace dbsection
