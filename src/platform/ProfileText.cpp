#include "platform/ProfileText.h"

#include "platform/Text.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

namespace dbsection {

namespace {

enum class LineKind { Other, Section, Entry };

struct Line {
    LineKind kind = LineKind::Other;
    std::string_view whole{}; ///< with its line end
    std::string_view name{};  ///< of the section, or the key of the entry
    std::string_view value{}; ///< of the entry, without its quotes
    std::string_view head{};  ///< what stands before the entry's value
    std::string_view end{};   ///< the line end, empty in a last line without one
};

std::string_view WithoutByteOrderMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text;
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view LineEndOf(std::string_view whole) {
    const std::size_t length = whole.ends_with("\r\n") ? 2 : whole.ends_with('\n') ? 1 : 0;
    return whole.substr(whole.size() - length);
}

Line ParseLine(std::string_view whole) {
    Line line{.whole = whole, .end = LineEndOf(whole)};
    const std::string_view text = Trim(WithoutByteOrderMark(whole));
    if (text.empty() || text.front() == ';' || text.front() == '#')
        return line;
    if (text.front() == '[') {
        if (const std::size_t close = text.find(']'); close != std::string_view::npos) {
            line.kind = LineKind::Section;
            line.name = Trim(text.substr(1, close - 1));
        }
        return line;
    }
    const std::size_t equals = text.find('=');
    const std::string_view key = Trim(text.substr(0, equals));
    if (equals == std::string_view::npos || key.empty())
        return line;
    line.kind = LineKind::Entry;
    line.name = key;
    const std::string_view value = Trim(text.substr(equals + 1));
    line.head = whole.substr(0, static_cast<std::size_t>(value.data() - whole.data()));
    line.value = WithoutQuotes(value);
    return line;
}

/// Walks the lines of a text and knows the section that each of them stands in.
class LineWalker {
public:
    explicit LineWalker(std::string_view text) : m_rest(text) {}

    /// Moves to the next line; false after the last one.
    bool Next() {
        if (m_rest.empty())
            return false;
        const std::size_t end = std::min(m_rest.find('\n'), m_rest.size() - 1) + 1;
        m_line = ParseLine(m_rest.substr(0, end));
        m_rest.remove_prefix(end);
        if (m_line.kind == LineKind::Section) {
            m_sectionName = m_line.name;
            m_section = UpperCase(m_line.name);
            m_counts = m_seen.insert(m_section).second;
        }
        return true;
    }

    const Line& Current() const { return m_line; }

    /// Name of the section, in upper case, and as it is written.
    const std::string& Section() const { return m_section; }
    std::string_view SectionName() const { return m_sectionName; }

    /// Whether the line stands in a section, and in the first of its name.
    bool Counts() const { return m_counts; }

private:
    std::string_view m_rest;
    Line m_line;
    std::string_view m_sectionName;
    std::string m_section;
    bool m_counts = false;
    std::unordered_set<std::string> m_seen;
};

} // namespace

ProfileIndex::ProfileIndex(std::string text) : m_text(std::move(text)) {
    for (LineWalker walker(m_text); walker.Next();) {
        const Line& line = walker.Current();
        if (line.kind == LineKind::Entry && walker.Counts())
            m_values.try_emplace(Name(walker.SectionName(), line.name), line.value);
    }
}

std::optional<std::string_view> ProfileIndex::Find(std::string_view section,
                                                   std::string_view key) const {
    const auto place = m_values.find(Name(Trim(section), Trim(key)));
    return place == m_values.end() ? std::nullopt : std::optional(place->second);
}

namespace {

struct KeyChange {
    std::string_view key;
    std::optional<std::string_view> value{}; ///< none: the key is deleted
    bool written = false;
};

struct SectionChange {
    std::string_view section;
    bool deleted = false; ///< before the keys are written
    std::vector<KeyChange> keys{};
};

std::string HeaderText(std::string_view section) { return "[" + std::string(section) + "]"; }

std::string EntryText(std::string_view key, std::string_view value) {
    return std::string(key) + "=" + std::string(value);
}

template <class Change>
Change* FindChange(std::vector<Change>& changes, std::string_view Change::*name,
                   std::string_view wanted) {
    const auto place = std::ranges::find_if(
        changes, [&](const Change& change) { return EqualNoCase(change.*name, wanted); });
    return place == changes.end() ? nullptr : &*place;
}

/// The changes by section and key; of several changes of one key the last remains.
std::vector<SectionChange> Collect(std::span<const ProfileEntry> entries) {
    std::vector<SectionChange> sections;
    for (const ProfileEntry& entry : entries) {
        const std::string_view name = Trim(entry.section);
        SectionChange* section = FindChange(sections, &SectionChange::section, name);
        if (section == nullptr)
            section = &sections.emplace_back(SectionChange{.section = name});
        if (entry.key == nullptr) {
            *section = {.section = name, .deleted = true};
            continue;
        }
        const std::string_view key = Trim(entry.key);
        KeyChange* change = FindChange(section->keys, &KeyChange::key, key);
        if (change == nullptr)
            change = &section->keys.emplace_back(KeyChange{.key = key});
        change->value = entry.value == nullptr ? std::nullopt : std::optional(Trim(entry.value));
    }
    return sections;
}

/// Copies a text and makes the changes on the way.
class ProfileEditor {
public:
    ProfileEditor(std::string_view text, std::span<const ProfileEntry> entries)
        : m_text(text),
          m_changes(Collect(entries)) {
        const std::size_t firstEnd = std::min(text.find('\n'), text.size() - 1);
        if (!text.empty() && LineEndOf(text.substr(0, firstEnd + 1)) == "\r\n")
            m_lineEnd = "\r\n";
    }

    std::string Run() {
        for (LineWalker walker(m_text); walker.Next();)
            CopyLine(walker.Current(), walker.Counts());
        FinishSection();
        for (SectionChange& change : m_changes)
            AppendSection(change);
        return std::move(m_output);
    }

private:
    void CopyLine(const Line& line, bool counts) {
        if (line.kind == LineKind::Section)
            BeginSection(line, counts);
        else if (line.kind == LineKind::Entry && m_section != nullptr)
            CopyEntry(line);
        else
            m_output += line.whole;
    }

    void BeginSection(const Line& line, bool counts) {
        FinishSection();
        SectionChange* change = FindChange(m_changes, &SectionChange::section, line.name);
        // A deleted section goes in all its repetitions: otherwise the next one would count.
        m_section = change != nullptr && (counts || change->deleted) ? change : nullptr;
        if (m_section == nullptr || !m_section->deleted)
            CopyAnchor(line.whole);
    }

    void CopyEntry(const Line& line) {
        if (m_section->deleted)
            return;
        KeyChange* change = FindChange(m_section->keys, &KeyChange::key, line.name);
        if (change == nullptr || change->written)
            CopyAnchor(line.whole);
        else if (change->value) {
            CopyAnchor(std::string(line.head) + std::string(*change->value) +
                       std::string(line.end));
            change->written = true;
        }
    }

    /// Copies a line after which new keys may be inserted.
    void CopyAnchor(std::string_view line) {
        m_output += line;
        m_anchor = m_output.size();
    }

    /// Adds the keys that the section did not have, before the comments and blank lines at its end.
    void FinishSection() {
        if (m_section != nullptr && !m_section->deleted)
            Insert(m_anchor, NewEntries(*m_section));
        m_section = nullptr;
    }

    void AppendSection(SectionChange& change) {
        const std::string entries = NewEntries(change);
        if (entries.empty())
            return;
        if (!m_output.empty() && m_output.back() != '\n')
            m_output += m_lineEnd;
        m_output += HeaderText(change.section) + std::string(m_lineEnd) + entries;
    }

    std::string NewEntries(SectionChange& change) const {
        std::string lines;
        for (KeyChange& key : change.keys) {
            if (key.value && !key.written)
                lines += EntryText(key.key, *key.value) + std::string(m_lineEnd);
            key.written = true;
        }
        return lines;
    }

    void Insert(std::size_t position, std::string lines) {
        // A last line without line end stays without one.
        if (!lines.empty() && m_output[position - 1] != '\n') {
            lines.insert(0, m_lineEnd);
            lines.resize(lines.size() - m_lineEnd.size());
        }
        m_output.insert(position, lines);
    }

    std::string_view m_text;
    std::vector<SectionChange> m_changes;
    std::string_view m_lineEnd = "\n";
    std::string m_output;
    std::size_t m_anchor = 0;
    SectionChange* m_section = nullptr; ///< the changes of the section being copied
};

} // namespace

bool IsWritable(const ProfileEntry& entry) {
    const auto isOneLine = [](std::string_view text) {
        return text.find_first_of("\r\n") == std::string_view::npos;
    };
    if (entry.section == nullptr)
        return false;
    const std::string_view section = Trim(entry.section);
    if (!isOneLine(section) || ParseLine(HeaderText(section)).name != section)
        return false;
    if (entry.key == nullptr)
        return true;
    const std::string_view key = Trim(entry.key);
    const std::string text = EntryText(key, "");
    const Line line = ParseLine(text);
    return isOneLine(key) && line.kind == LineKind::Entry && line.name == key &&
           (entry.value == nullptr || isOneLine(Trim(entry.value)));
}

std::string ChangeProfileText(std::string_view text, std::span<const ProfileEntry> entries) {
    return ProfileEditor(text, entries).Run();
}

} // namespace dbsection
