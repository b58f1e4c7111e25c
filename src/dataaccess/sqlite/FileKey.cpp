#include "dataaccess/sqlite/FileKey.h"

#include "dataaccess/sqlite/EngineError.h"

#include <algorithm>
#include <bitset>
#include <list>
#include <mutex>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <optional>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace dbsection {
namespace {

using Key = std::array<unsigned char, 32>;

struct Derivation {
    const EVP_MD* (*digest)();
    int rounds;
};

Derivation DerivationOf(FileForm form) {
    return form == FileForm::Third ? Derivation{EVP_sha1, 64000} : Derivation{EVP_sha512, 256000};
}

void Derive(Key& key, const FileSalt& salt, std::string_view password, FileForm form) {
    const Derivation derivation = DerivationOf(form);
    const int ok = PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                                     salt.data(), static_cast<int>(salt.size()), derivation.rounds,
                                     derivation.digest(), static_cast<int>(key.size()), key.data());
    if (ok != 1)
        throw CMemoryException::Instance();
}

/// The last derived keys of this process.
class KeyStore {
public:
    struct Entry {
        Entry(const FileSalt& fileSalt, std::string_view secret, FileForm fileForm,
              KeyNumber keyNumber)
            : salt(fileSalt),
              password(secret),
              form(fileForm),
              number(keyNumber) {
            Derive(key, salt, secret, form);
        }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry() { OPENSSL_cleanse(key.data(), key.size()); }

        FileSalt salt;
        SecretText password;
        FileForm form;
        KeyNumber number;
        Key key{};
        bool hasOpened = false;
    };

    const Key& Get(const FileSalt& salt, std::string_view password, FileForm form) {
        if (const Entry* entry = Find(salt, password, form))
            return entry->key;
        constexpr std::size_t Capacity = 64; // more than there are catalogues
        m_entries.emplace_back(salt, password, form, m_lastNumber + 1);
        ++m_lastNumber;
        if (m_entries.size() > Capacity)
            m_entries.pop_front();
        return m_entries.back().key;
    }

    const Entry* Find(const FileSalt& salt, std::string_view password, FileForm form) const {
        return FirstOf(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
            return entry.salt == salt && entry.form == form && entry.password.Get() == password;
        });
    }

    std::optional<FileSalt> SaltOfOpener(std::string_view password) const {
        const Entry* entry =
            FirstOf(m_entries.rbegin(), m_entries.rend(), [&](const Entry& candidate) {
                return candidate.hasOpened && candidate.password.Get() == password;
            });
        return entry == nullptr ? std::nullopt : std::optional(entry->salt);
    }

    void Confirm(KeyNumber number) {
        for (Entry& entry : m_entries)
            entry.hasOpened = entry.hasOpened || entry.number == number;
    }

private:
    template <class Iterator, class Condition>
    static const Entry* FirstOf(Iterator begin, Iterator end, Condition condition) {
        const auto place = std::find_if(begin, end, condition);
        return place == end ? nullptr : &*place;
    }

    KeyNumber m_lastNumber = 0;
    std::list<Entry> m_entries; // never moved, so that no copy of a key is left behind
};

/// The keys, while nobody else reads or derives any.
class LockedStore {
public:
    LockedStore() : m_store(Store()) {}

    KeyStore* operator->() const { return &m_store; }

private:
    static KeyStore& Store() {
        static KeyStore store;
        return store;
    }
    static constinit inline std::mutex guard;

    std::lock_guard<std::mutex> m_lock{guard};
    KeyStore& m_store;
};

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

SecretText::~SecretText() { OPENSSL_cleanse(m_text.data(), m_text.size()); }

SecretText KeyStatement(const FileSalt& salt, std::string_view password, FileForm form) {
    static constexpr std::string_view Digits = "0123456789abcdef";
    const LockedStore store;
    const Key& key = store->Get(salt, password, form);
    std::string statement;
    statement.reserve(128); // so that no copy of a part of it is left behind
    statement = "PRAGMA key = \"x'";
    const auto append = [&statement](std::span<const unsigned char> bytes) {
        for (const unsigned char byte : bytes) {
            statement += Digits[byte >> 4];
            statement += Digits[byte & 0xF];
        }
    };
    append(key);
    append(salt);
    statement += "'\"";
    return SecretText(std::move(statement));
}

KeyNumber FindKey(const FileSalt& salt, std::string_view password, FileForm form) {
    const LockedStore store;
    const KeyStore::Entry* entry = store->Find(salt, password, form);
    return entry == nullptr ? 0 : entry->number;
}

bool IsOfFourthForm(std::span<const unsigned char> firstPage, std::string_view password) {
    constexpr std::size_t MacBytes = 64;
    constexpr unsigned char MacSaltMask = 0x3a;
    constexpr int MacRounds = 2;
    if (firstPage.size() < FourthFormPage)
        return false;
    FileSalt salt;
    std::ranges::copy(firstPage.first(salt.size()), salt.begin());
    // What is signed: the page behind the salt, up to the signature, and its number, which is 1.
    const auto signedPart = firstPage.subspan(salt.size(), FourthFormPage - salt.size() - MacBytes);
    std::vector<unsigned char> page(signedPart.begin(), signedPart.end());
    page.insert(page.end(), {1, 0, 0, 0});

    struct Keys {
        Key page{};
        Key mac{};
        ~Keys() { OPENSSL_cleanse(this, sizeof *this); }
    } keys;
    Derive(keys.page, salt, password, FileForm::Fourth);
    for (unsigned char& byte : salt)
        byte ^= MacSaltMask;
    std::array<unsigned char, MacBytes> mac{};
    const bool isDone =
        PKCS5_PBKDF2_HMAC(reinterpret_cast<const char*>(keys.page.data()),
                          static_cast<int>(keys.page.size()), salt.data(),
                          static_cast<int>(salt.size()), MacRounds, EVP_sha512(),
                          static_cast<int>(keys.mac.size()), keys.mac.data()) == 1 &&
        HMAC(EVP_sha512(), keys.mac.data(), static_cast<int>(keys.mac.size()), page.data(),
             page.size(), mac.data(), nullptr) != nullptr;
    if (!isDone)
        throw CMemoryException::Instance();
    return std::ranges::equal(mac, firstPage.subspan(FourthFormPage - MacBytes, MacBytes));
}

void ConfirmKey(KeyNumber number) { LockedStore()->Confirm(number); }

FileSalt SaltForNewFile(std::string_view password) {
    if (const auto salt = LockedStore()->SaltOfOpener(password))
        return *salt;
    FileSalt salt;
    // The system's random numbers: the first use of the cipher library's may crash without memory.
    if (::getentropy(salt.data(), salt.size()) != 0)
        Fail(SectionError::Io, "The system gives no random numbers; the file is not created.");
    return salt;
}

} // namespace dbsection
