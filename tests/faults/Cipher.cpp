// The cipher library and the engine's use of it, as trials need them.
//
// The engine does not survive an allocation that fails in its cipher: it frees memory twice, or
// writes a page that nobody can read. The library makes sure of that memory before; here the
// allocations of the cryptography fail where the library itself calls it, and none of the engine's
// does from the key to the first page.
#include "faults/Injector.h"

#include <cstdlib>
#include <dlfcn.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <optional>
#include <sqlcipher/sqlite3.h>
#include <stdexcept>
#include <string_view>

using faults::Failure;
using faults::IsDue;

namespace {

constexpr int Rounds = 2; ///< of key derivation: a trial is not to wait for it

/// The database that has a key but no page yet.
sqlite3* keyed = nullptr;

bool isDeriving = false; ///< in a call of the library's

void* Malloc(std::size_t size, const char*, int) {
    return isDeriving && IsDue(Failure::Memory) ? nullptr : std::malloc(size);
}

void* Realloc(void* memory, std::size_t size, const char*, int) {
    return isDeriving && IsDue(Failure::Memory) ? nullptr : std::realloc(memory, size);
}

void Free(void* memory, const char*, int) { std::free(memory); }

template <class Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)

extern "C" {

int PKCS5_PBKDF2_HMAC(const char* password, int passwordSize, const unsigned char* salt,
                      int saltSize, int /*rounds*/, const EVP_MD* digest, int keySize,
                      unsigned char* key) {
    isDeriving = true;
    const int result = Next<decltype(PKCS5_PBKDF2_HMAC)>("PKCS5_PBKDF2_HMAC")(
        password, passwordSize, salt, saltSize, Rounds, digest, keySize, key);
    isDeriving = false;
    return result;
}

int PKCS5_PBKDF2_HMAC_SHA1(const char* password, int passwordSize, const unsigned char* salt,
                           int saltSize, int /*rounds*/, int keySize, unsigned char* key) {
    return Next<decltype(PKCS5_PBKDF2_HMAC_SHA1)>("PKCS5_PBKDF2_HMAC_SHA1")(
        password, passwordSize, salt, saltSize, Rounds, keySize, key);
}

int sqlite3_exec(sqlite3* database, const char* sql, int (*row)(void*, int, char**, char**),
                 void* context, char** message) {
    const std::string_view text(sql == nullptr ? "" : sql);
    if (text.starts_with("PRAGMA key"))
        keyed = database;
    std::optional<faults::Unarmed> unarmed;
    if (keyed == database && faults::Strikes(Failure::Memory))
        unarmed.emplace();
    if (text.starts_with("SELECT") || text.starts_with("PRAGMA application_id"))
        keyed = nullptr;
    return Next<decltype(sqlite3_exec)>("sqlite3_exec")(database, sql, row, context, message);
}
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

void faults::InstallCipherHooks() {
    if (CRYPTO_set_mem_functions(Malloc, Realloc, Free) != 1)
        throw std::logic_error("the cryptography has allocated before its hooks were set");
    // It crashes when its first use meets no memory; it is in use from now on.
    static sqlite3* first = nullptr;
    if (sqlite3_open(":memory:", &first) != SQLITE_OK ||
        sqlite3_exec(first, "PRAGMA key = 'x'", nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error("the engine does not begin");
}
