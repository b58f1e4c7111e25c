#include "dataaccess/sqlite/KeptFiles.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <linux/magic.h>
#include <list>
#include <numeric>
#include <sys/statfs.h>
#include <utility>

namespace dbsection {
namespace {

std::atomic<std::int64_t> lastNumber = 0;

/// Databases of the host may live longer than other state of the library; this lives longest.
struct Files {
    using List = std::list<std::shared_ptr<KeptFile>>;

    void Retire(List::iterator file) {
        (*file)->Retire();
        all.erase(file);
    }

    std::mutex guard;
    List all; ///< the one that was used last comes first
};

Files& Known() {
    static auto& files = *new Files;
    return files;
}

bool IsSettled(const std::string& path, const FileVersion& version) {
    const auto now = std::chrono::system_clock::now();
    return FileVersion::Find(path.c_str()) == version && version.IsSettled(now);
}

} // namespace

std::atomic<std::size_t> KeptFile::total = 0;
std::atomic<std::size_t> KeptFiles::limit = std::size_t{32} << 20;

KeptFile::KeptFile(const FileVersion& version) : m_version(version), m_number(++lastNumber) {}

std::shared_ptr<const KeptTable> KeptFile::FindTable(std::string_view name) const {
    const std::lock_guard lock(m_guard);
    const auto place = std::ranges::find_if(
        m_tables, [name](const auto& table) { return EqualNoCase(table->Name(), name); });
    return place == m_tables.end() ? nullptr : *place;
}

std::shared_ptr<const KeptTable> KeptFile::Keep(std::shared_ptr<const KeptTable> table) {
    if (auto known = FindTable(table->Name())) // read by another thread meanwhile
        return known;
    const std::lock_guard lock(m_guard);
    m_tables.push_back(table);
    Count(table->Size());
    return table;
}

std::shared_ptr<const KeptFile::Tables> KeptFile::AllTables() const {
    const std::lock_guard lock(m_guard);
    return m_allTables;
}

void KeptFile::SetAllTables(std::shared_ptr<const Tables> tables) {
    const std::lock_guard lock(m_guard);
    m_allTables = std::move(tables);
}

std::vector<std::uint32_t> KeptFile::TablesThatMayHold(const char* column, std::string_view text) {
    const std::lock_guard lock(m_guard);
    auto names = m_names.find(std::string_view(column));
    if (names == m_names.end())
        names = m_names.emplace(column, ReadNames(column)).first;
    std::vector<std::uint32_t> tables;
    if (!names->second) {
        tables.resize(m_allTables ? m_allTables->size() : 0);
        std::iota(tables.begin(), tables.end(), 0U);
        return tables;
    }
    const std::size_t hash = HashNoCase(text);
    const auto last = names->second->end();
    for (auto entry = std::ranges::lower_bound(*names->second, std::pair(hash, 0U));
         entry != last && entry->first == hash; ++entry)
        tables.push_back(entry->second);
    return tables;
}

std::optional<KeptFile::NameIndex> KeptFile::ReadNames(const char* column) {
    NameIndex names;
    if (!m_allTables)
        return std::nullopt;
    std::vector<std::size_t> hashes;
    for (std::size_t table = 0; table < m_allTables->size(); ++table) {
        hashes.clear();
        if (!(*m_allTables)[table]->AppendHashes(column, hashes))
            return std::nullopt;
        for (const std::size_t hash : hashes)
            names.emplace_back(hash, static_cast<std::uint32_t>(table));
    }
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    names.shrink_to_fit();
    Count(names.size() * sizeof(NameIndex::value_type));
    return names;
}

std::optional<KeptResult> KeptFile::FindResult(const std::string& key) const {
    const std::lock_guard lock(m_guard);
    const auto place = m_results.find(key);
    return place == m_results.end() ? std::nullopt : std::optional(place->second);
}

void KeptFile::Keep(const std::string& key, const KeptResult& result) {
    const std::lock_guard lock(m_guard);
    if (m_results.try_emplace(key, result).second)
        Count(result.Size() + key.size());
}

std::shared_ptr<const QueryShape> KeptFile::FindLong(const std::string& key) const {
    const std::lock_guard lock(m_guard);
    const auto place = m_long.find(key);
    return place == m_long.end() ? nullptr : place->second;
}

void KeptFile::KeepLong(const std::string& key, std::shared_ptr<const QueryShape> shape) {
    const std::lock_guard lock(m_guard);
    m_long.insert_or_assign(key, std::move(shape));
}

std::optional<std::int32_t> KeptFile::FindCount(const std::string& table) const {
    const std::lock_guard lock(m_guard);
    const auto place = m_counts.find(table);
    return place == m_counts.end() ? std::nullopt : std::optional(place->second);
}

void KeptFile::KeepCount(const std::string& table, std::int32_t count) {
    const std::lock_guard lock(m_guard);
    m_counts.insert_or_assign(table, count);
}

void KeptFile::Refuse(const std::string& key) {
    const std::lock_guard lock(m_guard);
    m_refused.insert(key);
}

bool KeptFile::IsRefused(const std::string& key) const {
    const std::lock_guard lock(m_guard);
    return m_refused.contains(key);
}

bool KeptFile::IsWorthKeeping(std::int64_t questions) {
    constexpr std::int64_t BytesForAQuestion = 16 << 10; // that are read in the time of one
    const std::lock_guard lock(m_guard);
    m_questions += questions;
    return m_questions * BytesForAQuestion > m_version.Size();
}

bool KeptFile::HasBeenAsked(const std::string& key) {
    constexpr std::size_t Most = 4096;
    const std::lock_guard lock(m_guard);
    if (m_asked.size() == Most)
        m_asked.clear();
    return !m_asked.insert(std::hash<std::string>()(key)).second;
}

void KeptFile::Clear() noexcept {
    const std::lock_guard lock(m_guard);
    m_tables.clear();
    m_allTables.reset();
    m_names.clear();
    m_results.clear();
    m_long.clear();
    m_counts.clear();
    total -= std::exchange(m_size, 0);
}

bool KeptFiles::HasTrustedTimes(const std::string& path) {
    constexpr std::array<long, 6> Trusted{EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                          F2FS_SUPER_MAGIC, TMPFS_MAGIC,     OVERLAYFS_SUPER_MAGIC};
    struct statfs system {};
    return ::statfs(path.c_str(), &system) == 0 &&
           std::ranges::find(Trusted, static_cast<long>(system.f_type)) != Trusted.end();
}

std::shared_ptr<KeptFile> KeptFiles::Find(const std::string& path, const FileVersion& version) {
    constexpr std::size_t Capacity = 64; // more than there are catalogues
    Files& files = Known();
    const std::lock_guard lock(files.guard);
    for (auto place = files.all.begin(); place != files.all.end();) {
        const auto file = place++;
        if ((*file)->Version() == version) {
            files.all.splice(files.all.begin(), files.all, file);
            return files.all.front();
        }
        if ((*file)->Version().IsOfSameFile(version))
            files.Retire(file);
    }
    if (!IsSettled(path, version))
        return nullptr;
    files.all.push_front(std::make_shared<KeptFile>(version));
    if (files.all.size() > Capacity)
        files.Retire(std::prev(files.all.end()));
    return files.all.front();
}

void KeptFiles::Drop(const FileVersion& version) noexcept {
    Files& files = Known();
    const std::lock_guard lock(files.guard);
    for (auto place = files.all.begin(); place != files.all.end();)
        if (const auto file = place++; (*file)->Version().IsOfSameFile(version))
            files.Retire(file);
}

void KeptFiles::Clear() noexcept {
    Files& files = Known();
    const std::lock_guard lock(files.guard);
    while (!files.all.empty())
        files.Retire(files.all.begin());
}

void KeptFiles::SetLimit(std::size_t newLimit) noexcept {
    limit = newLimit;
    Clear(); // what was too large may be kept now
}

void KeptFiles::Trim() noexcept {
    Files& files = Known();
    const std::lock_guard lock(files.guard);
    for (auto place = files.all.rbegin();
         place != files.all.rend() && KeptFile::TotalSize() > limit; ++place)
        (*place)->Clear();
}

} // namespace dbsection
