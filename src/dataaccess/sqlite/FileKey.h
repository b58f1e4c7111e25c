// What the first bytes of a database file tell, and the encryption keys of protected files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace dbsection {

/// How many bytes at the beginning of a file ClassifyFile looks at.
inline constexpr std::size_t ClassifiedBytes = 1024;

enum class FileKind { Plain, Protected, NotADatabase };

/// Tells a plain database, a protected one and anything else apart by the first bytes of the file.
FileKind ClassifyFile(std::span<const unsigned char> firstBytes);

/// The salt of a protected file: its first 16 bytes.
using FileSalt = std::array<unsigned char, 16>;

/// Tells the keys that this process derived apart; 0 is none.
using KeyNumber = std::uint64_t;

/// A secret text, overwritten at its end.
class SecretText {
public:
    explicit SecretText(std::string_view text) : m_text(text) {}
    /// Of a text so short that it is moved by copying, the copy would stay.
    explicit SecretText(std::string&& longText) : m_text(std::move(longText)) {}
    SecretText(const SecretText&) = delete;
    SecretText& operator=(const SecretText&) = delete;
    ~SecretText();

    const std::string& Get() const { return m_text; }

private:
    std::string m_text;
};

/// How a file is protected: by the default settings of the cipher's major version 3 (PBKDF2 with
/// HMAC-SHA1, 64,000 rounds; pages of 1024 bytes) or 4 (HMAC-SHA512, 256,000 rounds; 4096 bytes).
enum class FileForm : std::uint8_t { Third, Fourth };

/// The key derivation takes tens of milliseconds, so the results of the last ones are kept, and
/// wiped when they are dropped. Returns the statement that keys a connection to a file with that
/// salt.
SecretText KeyStatement(const FileSalt& salt, std::string_view password, FileForm form);

/// The key derived from that password, if it is still kept.
KeyNumber FindKey(const FileSalt& salt, std::string_view password, FileForm form);

/// The first page of a file of the fourth form.
inline constexpr std::size_t FourthFormPage = 4096;

/// Whether the password protects a file that begins with this page in the fourth form.
bool IsOfFourthForm(std::span<const unsigned char> firstPage, std::string_view password);

/// Tells that a key opened its file.
void ConfirmKey(KeyNumber number);

/// The salt for a new file: that of the last key of the password that opened a file, so that files
/// that are used together need one derivation, or else a random one. A salt that only stands in
/// somebody's file is not taken over: it may have been chosen.
FileSalt SaltForNewFile(std::string_view password);

} // namespace dbsection
