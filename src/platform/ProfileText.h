// Settings texts: what a line of a private-profile file means, for reading and for changing it.
#pragma once

#include "platform/PrivateProfile.h"
#include "platform/Text.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace dbsection {

/// The entries of a settings text, found without regard to case.
class ProfileIndex {
public:
    explicit ProfileIndex(std::string text);
    ProfileIndex(const ProfileIndex&) = delete;
    ProfileIndex& operator=(const ProfileIndex&) = delete;

    /// The value of an entry, valid as long as the index.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

private:
    /// Section and key.
    using Name = std::pair<std::string_view, std::string_view>;

    struct Hash {
        std::size_t operator()(const Name& name) const {
            return HashNoCase(name.first) * 31 + HashNoCase(name.second);
        }
    };
    struct IsSame {
        bool operator()(const Name& left, const Name& right) const {
            return EqualNoCase(left.first, right.first) && EqualNoCase(left.second, right.second);
        }
    };

    std::string m_text; ///< in which all names and values stand
    std::unordered_map<Name, std::string_view, Hash, IsSame> m_values;
};

/// Whether a change, once written, would be read back as meant.
bool IsWritable(const ProfileEntry& entry);

/// The text after the changes, which must be writable; all else in it stays byte for byte.
std::string ChangeProfileText(std::string_view text, std::span<const ProfileEntry> entries);

} // namespace dbsection
