#include "EngineCalls.h"

#include "TestSupport.h"

#include <array>
#include <openssl/evp.h>
#include <stdexcept>

namespace sectionbench {
namespace {

void Require(bool success, sqlite3* database) {
    if (!success)
        throw std::runtime_error(std::string("the engine failed: ") + sqlite3_errmsg(database));
}

bool CipherIsVersion3() {
    const EngineDatabase database(":memory:", nullptr);
    const EngineStatement version(database, "PRAGMA cipher_version");
    Require(sqlite3_step(version.Get()) == SQLITE_ROW, database.Get());
    return *sqlite3_column_text(version.Get(), 0) == '3';
}

} // namespace

EngineDatabase::EngineDatabase(const std::string& path, const char* keyStatement) {
    Require(sqlite3_open_v2(path.c_str(), &m_database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK,
            m_database);
    if (keyStatement != nullptr)
        Execute(keyStatement);
}

void EngineDatabase::Execute(const std::string& sql) const {
    Require(sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
            m_database);
}

EngineStatement::EngineStatement(const EngineDatabase& database, const std::string& sql) {
    const int code = sqlite3_prepare_v2(database.Get(), sql.c_str(), static_cast<int>(sql.size()),
                                        &m_statement, nullptr);
    Require(code == SQLITE_OK, database.Get());
}

std::string DeriveKeyStatement(const std::string& path, const std::string& password) {
    constexpr std::size_t SaltSize = 16;
    const std::string salt = testsupport::ReadFile(path).substr(0, SaltSize);
    const bool isVersion3 = CipherIsVersion3();
    std::array<unsigned char, 32> key{};
    PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                      reinterpret_cast<const unsigned char*>(salt.data()),
                      static_cast<int>(salt.size()), isVersion3 ? 64000 : 256000,
                      isVersion3 ? EVP_sha1() : EVP_sha512(), static_cast<int>(key.size()),
                      key.data());
    std::string statement = "PRAGMA key = \"x'";
    for (const unsigned char byte : key) {
        statement += "0123456789abcdef"[byte >> 4];
        statement += "0123456789abcdef"[byte & 0xF];
    }
    return statement + "'\"";
}

} // namespace sectionbench
