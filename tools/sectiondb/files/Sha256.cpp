#include "files/Sha256.h"

#include <array>
#include <stdexcept>

namespace dbsection {
namespace {

[[noreturn]] void Fail() { throw std::runtime_error("libcrypto cannot compute a SHA-256."); }

} // namespace

Sha256::Sha256() {
    if (m_context == nullptr || EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr) != 1)
        Fail();
}

void Sha256::Add(std::string_view text) {
    if (EVP_DigestUpdate(m_context.get(), text.data(), text.size()) != 1)
        Fail();
}

std::string Sha256::Hex() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int size = 0;
    if (EVP_DigestFinal_ex(m_context.get(), digest.data(), &size) != 1)
        Fail();
    std::string hex;
    for (unsigned int i = 0; i < size; ++i) {
        hex += "0123456789abcdef"[digest[i] >> 4];
        hex += "0123456789abcdef"[digest[i] & 15];
    }
    return hex;
}

} // namespace dbsection
