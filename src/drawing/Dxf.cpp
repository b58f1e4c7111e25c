#include "drawing/Drawing.h"

#include <array>
#include <charconv>
#include <string_view>

namespace dbsection {
namespace {

/// The pairs of group code and value that a file consists of.
class Groups {
public:
    Groups& Put(int code, std::string_view value) {
        m_text += std::to_string(code);
        m_text += '\n';
        m_text += value;
        m_text += '\n';
        return *this;
    }
    Groups& Put(int code, int value) { return Put(code, std::string_view(std::to_string(value))); }
    Groups& Put(int code, double value) {
        std::array<char, 32> digits{}; // the shortest form that reads back
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return Put(code, std::string_view(digits.data(), end));
    }

    /// A point by the code of its first coordinate.
    Groups& Put(int code, Point point) {
        return Put(code, point.z).Put(code + 10, point.y).Put(code + 20, 0.0);
    }

    std::string Take() { return std::move(m_text); }

private:
    std::string m_text;
};

constexpr std::array Layers{Layer::Outline, Layer::Axes, Layer::Dimensions, Layer::Text};

void PutHeader(const Drawing& drawing, Groups& groups) {
    constexpr int Millimetres = 4;
    groups.Put(0, "SECTION").Put(2, "HEADER");
    groups.Put(9, "$ACADVER").Put(1, "AC1009");
    groups.Put(9, "$INSUNITS").Put(70, Millimetres);
    groups.Put(9, "$EXTMIN").Put(10, drawing.extent.low);
    groups.Put(9, "$EXTMAX").Put(10, drawing.extent.high);
    groups.Put(0, "ENDSEC");
}

void PutTables(Groups& groups) {
    constexpr int Solid = 65; // the code of the alignment "A"
    groups.Put(0, "SECTION").Put(2, "TABLES");
    groups.Put(0, "TABLE").Put(2, "LTYPE").Put(70, 2);
    groups.Put(0, "LTYPE").Put(2, "CONTINUOUS").Put(70, 0).Put(3, "Solid line");
    groups.Put(72, Solid).Put(73, 0).Put(40, 0.0);
    groups.Put(0, "LTYPE").Put(2, "CENTER").Put(70, 0).Put(3, "Long and short dashes");
    groups.Put(72, Solid).Put(73, 4).Put(40, 24.0);
    for (const double dash : {16.0, -3.0, 2.0, -3.0})
        groups.Put(49, dash);
    groups.Put(0, "ENDTAB");
    groups.Put(0, "TABLE").Put(2, "LAYER").Put(70, static_cast<int>(Layers.size()));
    for (const Layer layer : Layers) {
        constexpr int White = 7;
        constexpr int Red = 1;
        groups.Put(0, "LAYER").Put(2, NameOf(layer)).Put(70, 0);
        groups.Put(62, layer == Layer::Axes ? Red : White);
        groups.Put(6, layer == Layer::Axes ? "CENTER" : "CONTINUOUS");
    }
    groups.Put(0, "ENDTAB").Put(0, "ENDSEC");
}

void PutLoop(const Outline::Loop& loop, Groups& groups) {
    constexpr int Closed = 1;
    groups.Put(0, "POLYLINE").Put(8, NameOf(Layer::Outline)).Put(66, 1).Put(10, Point{});
    groups.Put(70, Closed);
    for (const Vertex& vertex : loop)
        groups.Put(0, "VERTEX")
            .Put(8, NameOf(Layer::Outline))
            .Put(10, vertex.at)
            .Put(42, vertex.bulge);
    groups.Put(0, "SEQEND").Put(8, NameOf(Layer::Outline));
}

/// Characters beyond ASCII by their number, as files of that release have them.
std::string Escaped(std::string_view text);

void PutText(const DrawnText& text, Groups& groups) {
    constexpr int Middle = 1;
    groups.Put(0, "TEXT").Put(8, NameOf(text.layer)).Put(10, text.at).Put(40, text.height);
    groups.Put(1, Escaped(text.text)).Put(50, text.angle);
    if (text.anchor == DrawnText::Anchor::Middle)
        groups.Put(72, Middle).Put(11, text.at);
}

std::string Escaped(std::string_view text) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string escaped;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        if (length == 1) {
            escaped += lead < ' ' ? ' ' : static_cast<char>(lead);
        } else {
            unsigned letter = lead & (0x7FU >> length);
            for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
                letter = letter << 6U | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
            escaped += "\\U+";
            for (int shift = 12; shift >= 0; shift -= 4)
                escaped += Digits[letter >> shift & 0xFU];
        }
        i += length;
    }
    return escaped;
}

} // namespace

std::string Dxf(const Drawing& drawing) {
    Groups groups;
    groups.Put(999, "Lengths in mm");
    PutHeader(drawing, groups);
    PutTables(groups);
    groups.Put(0, "SECTION").Put(2, "ENTITIES");
    for (const Outline::Loop& loop : drawing.outline.Loops())
        PutLoop(loop, groups);
    for (const DrawnLine& line : drawing.lines)
        groups.Put(0, "LINE").Put(8, NameOf(line.layer)).Put(10, line.from).Put(11, line.to);
    for (const DrawnText& text : drawing.texts)
        PutText(text, groups);
    groups.Put(0, "ENDSEC").Put(0, "EOF");
    return groups.Take();
}

} // namespace dbsection
