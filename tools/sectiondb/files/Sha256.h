// The SHA-256 of texts.
#pragma once

#include <memory>
#include <openssl/evp.h>
#include <string>
#include <string_view>

namespace dbsection {

class Sha256 {
public:
    Sha256();

    void Add(std::string_view text);

    /// The digest of all that was added, as 64 lower-case hexadecimal digits. Nothing can be added
    /// after it.
    std::string Hex();

private:
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> m_context{EVP_MD_CTX_new(),
                                                                      &EVP_MD_CTX_free};
};

} // namespace dbsection
