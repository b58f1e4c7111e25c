// Connect texts: a protected file opens where a plain reading of the text finds its password, and a
// plain file opens whatever is given.
#include "Fuzz.h"

#include "DataAccessSupport.h"

#include <openssl/evp.h>

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the engine's names are short

// The derivation is made cheap, for the library and the engine alike: the text is what is tried.
extern "C" int PKCS5_PBKDF2_HMAC(const char* password, int passwordSize, const unsigned char* salt,
                                 int saltSize, int, const EVP_MD*, int keySize,
                                 unsigned char* key) {
    std::uint64_t hash = 14695981039346656037U;
    const auto add = [&](unsigned char byte) { hash = (hash ^ byte) * 1099511628211U; };
    for (int i = 0; i < saltSize; ++i)
        add(salt[i]);
    for (int i = 0; i < passwordSize; ++i)
        add(static_cast<unsigned char>(password[i]));
    for (int i = 0; i < keySize; ++i) {
        add(static_cast<unsigned char>(i));
        key[i] = static_cast<unsigned char>(hash >> 32);
    }
    return 1;
}

extern "C" int PKCS5_PBKDF2_HMAC_SHA1(const char* password, int passwordSize,
                                      const unsigned char* salt, int saltSize, int iterations,
                                      int keySize, unsigned char* key) {
    return PKCS5_PBKDF2_HMAC(password, passwordSize, salt, saltSize, iterations, EVP_sha1(),
                             keySize, key);
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace {

/// The value of the first PWD among the parts, or the whole text where no part has a "=".
std::string PasswordIn(const std::string& connect) {
    if (connect.find('=') == std::string::npos)
        return connect;
    std::string rest = connect;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        const std::string part = rest.substr(0, end);
        rest.erase(0, std::min(end + 1, rest.size()));
        const std::size_t equals = part.find('=');
        if (equals != std::string::npos &&
            fuzz::Upper(fuzz::Trimmed(part.substr(0, equals))) == "PWD")
            return part.substr(equals + 1);
    }
    return "";
}

int Open(const std::string& path, const std::string& connect) {
    DatabaseHandle database;
    return openDatabase(database.Address(), path.c_str(), 1, 0, 0, connect.c_str(), nullptr);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string plain = fuzz::Folder().File("plain.db3");
    static const std::string guarded = fuzz::Folder().File("protected.db3");
    static const bool isMade = [] {
        testsupport::CreateCatalogue(plain, 3);
        testsupport::CreateCatalogue(guarded, 3, ";PWD=right");
        return true;
    }();
    static_cast<void>(isMade);
    const std::string connect = fuzz::AsArgument(data, size);
    fuzz::Require(Open(plain, connect) == 1, "a plain file opens");
    const bool isRight = PasswordIn(connect) == "right";
    fuzz::Require(Open(guarded, connect) == (isRight ? 1 : -1),
                  std::string("the protected file ") + (isRight ? "opens" : "stays closed") + ": " +
                      connect);
    return 0;
}
