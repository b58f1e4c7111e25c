#include "dataaccess/sqlite/FileKey.h"

#include "dataaccess/CSectionException.h"

#include <algorithm>
#include <bitset>
#include <list>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <string_view>

namespace dbsection {
namespace {

using Key = std::array<unsigned char, 32>;

struct Derivation {
    const EVP_MD* (*digest)();
    int rounds;
};

Derivation DerivationOf(int cipherMajor) {
    return cipherMajor < 4 ? Derivation{EVP_sha1, 64000} : Derivation{EVP_sha512, 256000};
}

void Derive(Key& key, const FileSalt& salt, std::string_view password, int cipherMajor) {
    const Derivation derivation = DerivationOf(cipherMajor);
    const int ok = PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                                     salt.data(), static_cast<int>(salt.size()), derivation.rounds,
                                     derivation.digest(), static_cast<int>(key.size()), key.data());
    if (ok != 1)
        throw CMemoryException::Instance();
}

/// The last derived keys of this process.
class KeyStore {
public:
    const Key& Get(const FileSalt& salt, std::string_view password, int cipherMajor) {
        if (const Entry* entry = FindEntry(salt, password))
            return entry->key;
        constexpr std::size_t Capacity = 64; // more than there are catalogues
        m_entries.emplace_back(salt, password, cipherMajor, m_lastNumber + 1);
        ++m_lastNumber;
        if (m_entries.size() > Capacity)
            m_entries.pop_front();
        return m_entries.back().key;
    }

    KeyNumber Find(const FileSalt& salt, std::string_view password) const {
        const Entry* entry = FindEntry(salt, password);
        return entry == nullptr ? 0 : entry->number;
    }

private:
    struct Entry {
        Entry(const FileSalt& fileSalt, std::string_view secret, int cipherMajor,
              KeyNumber keyNumber)
            : salt(fileSalt),
              password(secret),
              number(keyNumber) {
            Derive(key, salt, password, cipherMajor);
        }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry() {
            OPENSSL_cleanse(key.data(), key.size());
            WipeText(password);
        }

        FileSalt salt;
        std::string password;
        KeyNumber number;
        Key key{};
    };

    const Entry* FindEntry(const FileSalt& salt, std::string_view password) const {
        const auto place = std::ranges::find_if(m_entries, [&](const Entry& entry) {
            return entry.salt == salt && entry.password == password;
        });
        return place == m_entries.end() ? nullptr : &*place;
    }

    KeyNumber m_lastNumber = 0;
    std::list<Entry> m_entries; // never moved, so that no copy of a key is left behind
};

KeyStore& Store() {
    static KeyStore store;
    return store;
}

} // namespace

FileKind ClassifyFile(std::span<const unsigned char> firstBytes) {
    constexpr std::string_view Magic("SQLite format 3\0", 16);
    constexpr std::size_t SmallestPage = 512;
    // Ciphertext uses nearly all byte values; texts, headers and pages in the clear far fewer.
    constexpr std::size_t LeastValuesOfCiphertext = 180;

    if (firstBytes.size() < SmallestPage)
        return FileKind::NotADatabase;
    if (std::ranges::equal(firstBytes.first(Magic.size()), Magic, {}, {},
                           [](char c) { return static_cast<unsigned char>(c); }))
        return FileKind::Plain;
    std::bitset<256> values;
    for (const unsigned char byte : firstBytes)
        values.set(byte);
    return values.count() >= LeastValuesOfCiphertext ? FileKind::Protected : FileKind::NotADatabase;
}

std::string KeyStatement(const FileSalt& salt, std::string_view password, int cipherMajor) {
    static constexpr std::string_view Digits = "0123456789abcdef";
    std::string statement = "PRAGMA key = \"x'";
    statement.reserve(statement.size() + 2 * Key().size() + 2);
    for (const unsigned char byte : Store().Get(salt, password, cipherMajor)) {
        statement += Digits[byte >> 4];
        statement += Digits[byte & 0xF];
    }
    return statement += "'\"";
}

KeyNumber FindKey(const FileSalt& salt, std::string_view password) {
    return Store().Find(salt, password);
}

void WipeText(std::string& text) {
    OPENSSL_cleanse(text.data(), text.size());
    text.clear();
}

} // namespace dbsection
