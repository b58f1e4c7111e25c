#include "records/NameKey.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <numeric>

namespace dbsection {
namespace {

using Letters = std::u32string;

/// The characters of a UTF-8 text; a byte that belongs to none stands for itself.
Letters Decoded(std::string_view text) {
    Letters decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
        char32_t letter = more == 0 ? lead : lead & (0x3FU >> more);
        for (std::size_t k = 1; k <= more && i + k < text.size(); ++k)
            letter = letter << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
        decoded.push_back(letter);
        i += more + 1;
    }
    return decoded;
}

void Encode(char32_t letter, std::string& text) {
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (letter < 0x80) {
        put(letter);
        return;
    }
    if (letter < 0x800) {
        put(0xC0 | letter >> 6);
    } else if (letter < 0x10000) {
        put(0xE0 | letter >> 12);
        put(0x80 | (letter >> 6 & 0x3F));
    } else {
        put(0xF0 | letter >> 18);
        put(0x80 | (letter >> 12 & 0x3F));
        put(0x80 | (letter >> 6 & 0x3F));
    }
    put(0x80 | (letter & 0x3F));
}

/// A block of small letters, and how far before them their capitals stand.
struct Case {
    char32_t first;
    char32_t last;
    char32_t distance;
};

constexpr std::array SmallLetters{
    Case{U'a', U'z', 0x20},   Case{0xE0, 0xF6, 0x20},   Case{0xF8, 0xFE, 0x20},
    Case{0x3B1, 0x3C9, 0x20}, Case{0x430, 0x44F, 0x20}, Case{0x450, 0x45F, 0x50},
};

/// Blocks in which each capital, at an even or an odd place, is followed by its small letter.
struct Pairs {
    char32_t first;
    char32_t last;
};

constexpr std::array LettersInPairs{Pairs{0x100, 0x137}, Pairs{0x139, 0x148}, Pairs{0x14A, 0x177},
                                    Pairs{0x179, 0x17E}, Pairs{0x460, 0x481}, Pairs{0x48A, 0x4BF}};

char32_t Capital(char32_t letter) {
    for (const Case& block : SmallLetters)
        if (letter >= block.first && letter <= block.last)
            return letter - block.distance;
    for (const Pairs& block : LettersInPairs)
        if (letter >= block.first && letter <= block.last)
            return letter - (letter - block.first) % 2;
    return letter;
}

bool IsAscii(char32_t letter) { return letter < 0x80; }

/// One letter for all signs of a diameter, circles among them.
char32_t Unified(char32_t letter) {
    constexpr char32_t Diameter = 0x3A6; // capital phi
    constexpr std::u32string_view Diameters = U"\u00D8\u2205\u2300\u03D5\u25CB\u25EF\u3007";
    return Diameters.find(letter) != std::u32string_view::npos ? Diameter : letter;
}

/// What a name is compared by.
char32_t Comparable(char32_t letter) {
    return IsAscii(letter) ? static_cast<char32_t>(ToUpper(static_cast<char>(letter)))
                           : Unified(Capital(letter));
}

bool IsNumeral(char32_t letter) { return letter >= U'0' && letter <= U'9'; }

bool IsPoint(char32_t letter) { return letter == U'.' || letter == U','; }

/// Letters of which most that are asked for are ASCII.
class LetterSet {
public:
    constexpr explicit LetterSet(std::u32string_view letters) : m_letters(letters) {
        for (const char32_t letter : letters)
            if (letter < m_ascii.size())
                m_ascii[letter] = true;
    }

    bool Contains(char32_t letter) const {
        return letter < m_ascii.size() ? m_ascii[letter]
                                       : m_letters.find(letter) != std::u32string_view::npos;
    }

private:
    std::u32string_view m_letters;
    std::array<bool, 0x80> m_ascii{};
};

/// Signs that stand between two numbers, among them two letters that look like one.
bool IsTimes(char32_t letter) {
    static constexpr LetterSet Signs(U"X*\u00D7\u0425\u2715\u2A2F\u22C5\u00B7");
    return Signs.Contains(letter);
}

bool IsSeparator(char32_t letter) {
    static constexpr LetterSet Signs(U" \t\r\n-.,()\"/&+#_:;\u00A0\u00AB\u00BB\u2032\u2033\u2212");
    const bool isPunctuation = letter >= 0x2000 && letter <= 0x201F; // blanks, dashes, quotes
    return isPunctuation || Signs.Contains(letter);
}

constexpr std::array Denominators{2.0, 4.0, 8.0, 16.0, 32.0, 64.0};

/// Takes a name apart from its beginning to its end.
class Reader {
public:
    Reader(std::string_view name, NameKey& key) : m_text(Decoded(name)), m_key(key) {
        std::ranges::transform(m_text, m_text.begin(), Comparable);
    }

    void Read() {
        while (m_at < m_text.size())
            if (IsAtNumber())
                ReadNumber();
            else
                ReadLetter();
    }

private:
    enum class Last { Nothing, Letter, Number };

    char32_t At(std::size_t place) const { return place < m_text.size() ? m_text[place] : U'\0'; }

    /// A point behind a letter, as in "No.2", does not belong to the number behind it.
    bool IsAtNumber() const {
        return IsNumeral(At(m_at)) ||
               (IsPoint(At(m_at)) && IsNumeral(At(m_at + 1)) && !m_isBehindLetter);
    }

    double Digits() { return NumberAt(m_at); }

    void ReadNumber() {
        double value = Digits();
        if (IsPoint(At(m_at)) && IsNumeral(At(m_at + 1))) {
            const std::size_t point = m_at++;
            const double decimals = Digits();
            value += decimals / std::pow(10, static_cast<double>(m_at - point - 1));
        } else if (IsFraction(value, m_at)) {
            value = Over(value);
        } else if (IsBeforeFraction()) {
            ++m_at;
            const double numerator = Digits();
            value += Over(numerator);
        }
        constexpr double Largest = 1e12;
        m_key.thousandths.push_back(std::llround(std::min(value, Largest) * 1000));
        m_last = Last::Number;
        m_isBehindLetter = false;
    }

    double Over(double numerator) {
        ++m_at;
        const double denominator = Digits();
        return denominator == 0 ? numerator : numerator / denominator;
    }

    /// The number there, of which `place` becomes the end.
    double NumberAt(std::size_t& place) const {
        double value = 0;
        for (; IsNumeral(At(place)); ++place)
            value = value * 10 + static_cast<double>(At(place) - U'0');
        return value;
    }

    /// Whether the slash there makes a fraction of an inch, such as 3/8, and does not stand between
    /// two sizes, as in 200/100/8.
    bool IsFraction(double numerator, std::size_t slash) const {
        std::size_t place = slash + 1;
        if (At(slash) != U'/' || !IsNumeral(At(place)))
            return false;
        const double denominator = NumberAt(place);
        const bool isOfInch = std::ranges::find(Denominators, denominator) != Denominators.end();
        return isOfInch && numerator < denominator && At(place) != U'/';
    }

    /// Whether a fraction follows a whole number: 2-1/2 or 2 1/2.
    bool IsBeforeFraction() const {
        std::size_t place = m_at;
        if (At(place) != U'-' && At(place) != U' ')
            return false;
        const std::size_t begin = ++place;
        const double numerator = NumberAt(place);
        return place > begin && IsFraction(numerator, place);
    }

    void ReadLetter() {
        const char32_t letter = m_text[m_at++];
        m_isBehindLetter = false;
        if (IsSeparator(letter) || (IsTimes(letter) && IsBetweenNumbers()))
            return;
        Encode(letter, m_key.letters);
        if (letter != U'*') // which marks the number before it
            m_last = Last::Letter;
        m_isBehindLetter = true;
    }

    bool IsBetweenNumbers() const {
        std::size_t next = m_at;
        while (At(next) == U' ')
            ++next;
        const bool isBeforeNumber =
            IsNumeral(At(next)) || (IsPoint(At(next)) && IsNumeral(At(next + 1)));
        return m_last == Last::Number && isBeforeNumber;
    }

    Letters m_text;
    NameKey& m_key;
    std::size_t m_at = 0;
    Last m_last = Last::Nothing;
    bool m_isBehindLetter = false; ///< without anything in between
};

std::string ShortNumber(std::int64_t thousandths) {
    std::string text = std::to_string(thousandths / 1000);
    if (const std::int64_t rest = thousandths % 1000; rest != 0) {
        std::string decimals = std::to_string(1000 + rest).substr(1);
        decimals.erase(decimals.find_last_not_of('0') + 1);
        text += "." + decimals;
    }
    return text;
}

} // namespace

NameKey::NameKey(std::string_view name) { Reader(name, *this).Read(); }

std::string NameKey::Text() const {
    std::string text = letters;
    char separator = ' ';
    for (const std::int64_t number : thousandths) {
        text += separator + ShortNumber(number);
        separator = 'x';
    }
    return text;
}

std::uint64_t NameKey::Hash() const {
    constexpr std::uint64_t Prime = 0x9e3779b97f4a7c15;
    std::uint64_t hash = HashNoCase(letters);
    for (const std::int64_t number : thousandths) {
        hash = (hash ^ static_cast<std::uint64_t>(number)) * Prime;
        hash ^= hash >> 32;
    }
    return hash;
}

bool NameKey::BeginsWith(const NameKey& typed) const {
    const std::size_t count = typed.thousandths.size();
    if (!letters.starts_with(typed.letters) || count > thousandths.size())
        return false;
    if (count == 0)
        return true;
    const auto last = typed.thousandths.end() - 1;
    return std::equal(typed.thousandths.begin(), last, thousandths.begin()) &&
           ShortNumber(thousandths[count - 1]).starts_with(ShortNumber(*last));
}

int NameDistance(std::string_view left, std::string_view right, int most) {
    const auto width = right.size() + 1;
    if (std::abs(std::ssize(left) - std::ssize(right)) > most)
        return most + 1;
    std::vector<int> before(width);
    std::vector<int> row(width);
    std::vector<int> next(width);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 1; i <= left.size(); ++i) {
        next[0] = static_cast<int>(i);
        for (std::size_t j = 1; j < width; ++j) {
            const int replaced = left[i - 1] == right[j - 1] ? 0 : 1;
            next[j] = std::min({row[j] + 1, next[j - 1] + 1, row[j - 1] + replaced});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1])
                next[j] = std::min(next[j], before[j - 2] + 1);
        }
        if (std::ranges::min(next) > most)
            return most + 1;
        before.swap(row);
        row.swap(next);
    }
    return row.back();
}

double NumbersApart(const NameKey& left, const NameKey& right) {
    const auto& shorter =
        (left.thousandths.size() < right.thousandths.size() ? left : right).thousandths;
    const auto& longer =
        (left.thousandths.size() < right.thousandths.size() ? right : left).thousandths;
    auto apart = static_cast<double>(longer.size() - shorter.size());
    for (std::size_t i = 0; i < shorter.size(); ++i) {
        const auto larger = static_cast<double>(std::max(shorter[i], longer[i]));
        if (larger > 0)
            apart += static_cast<double>(std::abs(shorter[i] - longer[i])) / larger;
    }
    return apart;
}

} // namespace dbsection
