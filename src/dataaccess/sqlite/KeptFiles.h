// What files hold, kept in memory while they are what they were.
#pragma once

#include "dataaccess/sqlite/KeptTable.h"
#include "platform/FileVersion.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace dbsection {

/// What was read of one version of a file. Threads may share it.
///
/// What a version holds never changes, and every later change of the file shows in its version:
/// what is kept is what the engine would read. To have it answer, one must hold the version against
/// the file, and must have opened the file.
class KeptFile {
public:
    explicit KeptFile(const FileVersion& version);
    KeptFile(const KeptFile&) = delete;
    KeptFile& operator=(const KeptFile&) = delete;
    ~KeptFile() { Clear(); }

    const FileVersion& Version() const { return m_version; }

    /// Tells the versions that this process has met apart.
    std::int64_t Number() const { return m_number; }

    /// The table, or null where it is not kept; letter case is ignored.
    std::shared_ptr<const KeptTable> FindTable(std::string_view name) const;
    std::shared_ptr<const KeptTable> Keep(std::shared_ptr<const KeptTable> table);

    /// All tables, in their order in the file; null before they were told.
    using Tables = std::vector<std::shared_ptr<const KeptTable>>;
    std::shared_ptr<const Tables> AllTables() const;
    void SetAllTables(std::shared_ptr<const Tables> tables);

    /// The numbers, in their order, of the tables of which a row may have the text in the column,
    /// whatever its letter case. All tables must have been told.
    std::vector<std::uint32_t> TablesThatMayHold(const char* column, std::string_view text);

    /// The result of a statement, told by a key.
    std::optional<KeptResult> FindResult(const std::string& key) const;
    void Keep(const std::string& key, const KeptResult& result);

    /// What a statement for more than few rows of a table delivers; null where none was noted.
    std::shared_ptr<const QueryShape> FindLong(const std::string& key) const;
    void KeepLong(const std::string& key, std::shared_ptr<const QueryShape> shape);

    /// The number of rows in a table.
    std::optional<std::int32_t> FindCount(const std::string& table) const;
    void KeepCount(const std::string& table, std::int32_t count);

    /// Notes a statement, or a table, that could not be kept; it is not tried again.
    void Refuse(const std::string& key);
    bool IsRefused(const std::string& key) const;

    /// Counts questions; true from the time on when reading a table to keep it costs no more than
    /// the questions so far, which the engine answered.
    bool IsWorthKeeping(std::int64_t questions);

    /// Whether the statement has been asked before.
    bool HasBeenAsked(const std::string& key);

    /// Forgets all.
    void Clear() noexcept;

    /// Forgets all, for the last time: others keep what is read from now on.
    void Retire() noexcept {
        m_isRetired = true;
        Clear();
    }
    bool IsRetired() const { return m_isRetired; }

    /// Bytes of what is kept of all files.
    static std::size_t TotalSize() { return total; }

private:
    /// The hash of a text, and the number of a table that has it.
    using NameIndex = std::vector<std::pair<std::size_t, std::uint32_t>>;
    std::optional<NameIndex> ReadNames(const char* column);
    void Count(std::size_t size) {
        m_size += size;
        total += size;
    }

    static std::atomic<std::size_t> total;

    const FileVersion m_version;
    const std::int64_t m_number;
    std::atomic<bool> m_isRetired = false;
    mutable std::mutex m_guard;
    Tables m_tables;
    std::shared_ptr<const Tables> m_allTables;
    /// By column; none where a table holds others than texts.
    std::map<std::string, std::optional<NameIndex>, std::less<>> m_names;
    std::unordered_map<std::string, KeptResult> m_results;
    std::unordered_map<std::string, std::shared_ptr<const QueryShape>> m_long;
    std::unordered_map<std::string, std::int32_t> m_counts; ///< by table
    std::unordered_set<std::string> m_refused;
    std::unordered_set<std::size_t> m_asked; ///< hashes of statements
    std::int64_t m_questions = 0;
    std::size_t m_size = 0;
};

/// The versions of files of which this process keeps something: the last one of each, and those of
/// the files that were used last.
class KeptFiles {
public:
    /// Whether a file lies where every change is stamped with a fine time, by this machine alone.
    static bool HasTrustedTimes(const std::string& path);

    /// The version as the file has it now; null where a later change might not show in it.
    static std::shared_ptr<KeptFile> Find(const std::string& path, const FileVersion& version);

    /// Forgets a file that is being written.
    static void Drop(const FileVersion& version) noexcept;

    static void Clear() noexcept;

    /// The most bytes that may be kept from now on. The files that were not used for longest give
    /// way.
    static void SetLimit(std::size_t limit) noexcept;
    static std::size_t Limit() { return limit; }

    /// To be called when something was added to what is kept of a file.
    static void Trim() noexcept;

private:
    static std::atomic<std::size_t> limit;
};

} // namespace dbsection
