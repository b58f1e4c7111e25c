// What the first bytes of a database file tell, and the encryption keys of protected files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

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

/// Key derivation of the cipher's default settings: those of its major version 3 (PBKDF2 with
/// HMAC-SHA1, 64,000 rounds) or 4 (HMAC-SHA512, 256,000 rounds).
///
/// The derivation takes tens of milliseconds, so the results of the last ones are kept, and wiped
/// when they are dropped. Returns the statement that keys a connection; WipeText it after use.
std::string KeyStatement(const FileSalt& salt, std::string_view password, int cipherMajor);

/// The key derived from that password, if it is still kept.
KeyNumber FindKey(const FileSalt& salt, std::string_view password);

/// Overwrites a secret text and empties it.
void WipeText(std::string& text);

} // namespace dbsection
