#include "page/Page.h"

#include "page/PageText.h"

#include <array>
#include <new>
#include <zlib.h>

namespace dbsection {
namespace {

/// The text compressed in the zlib format, which browsers unpack.
std::string Deflated(std::string_view text) {
    uLongf size = compressBound(text.size());
    std::string packed(size, '\0');
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                  reinterpret_cast<const Bytef*>(text.data()), text.size(),
                  Z_BEST_COMPRESSION) != Z_OK)
        throw std::bad_alloc(); // the one error that there can be
    packed.resize(size);
    return packed;
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view Digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto byte = [&](std::size_t i) -> unsigned {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
    };
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const unsigned three = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        for (const int shift : {18, 12, 6, 0})
            text += Digits[three >> shift & 0x3F];
    }
    for (std::size_t missing = (3 - bytes.size() % 3) % 3; missing > 0; --missing)
        text[text.size() - missing] = '=';
    return text;
}

} // namespace

std::string PageOf(std::string_view data) {
    std::string page(PageBeforeData);
    return page.append(Base64(Deflated(data))).append(PageBehindData);
}

} // namespace dbsection
