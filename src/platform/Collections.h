// Lists, arrays and maps of the platform layer: thin shells on standard containers.
//
//     CStringList names;
//     names.AddTail("W12X26");
//     for (const CString& name : names) ...
//
// An index or a position out of range throws the invalid-argument error. Maps iterate in the order
// of insertion.
#pragma once

#include "platform/CString.h"
#include "platform/Exceptions.h"

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#ifndef __AFX_H__

using WORD = std::uint16_t;
using DWORD = std::uint32_t;

/// A place in a list or a map; null is the end.
struct POSITIONTag;
using POSITION = POSITIONTag*;

/// Array indexed from 0.
template <class T>
class CArrayShell {
public:
    int GetSize() const { return static_cast<int>(m_items.size()); }
    bool IsEmpty() const { return m_items.empty(); }
    void SetSize(int size) { m_items.resize(static_cast<std::size_t>(size < 0 ? 0 : size)); }
    void RemoveAll() { m_items.clear(); }

    /// Appends an element and returns its index.
    int Add(T value) {
        m_items.push_back(std::move(value));
        return GetSize() - 1;
    }

    const T& GetAt(int index) const { return m_items[Checked(index)]; }
    T& ElementAt(int index) { return m_items[Checked(index)]; }
    void SetAt(int index, T value) { m_items[Checked(index)] = std::move(value); }

    /// Stores an element, growing the array as needed; new elements before it are empty.
    void SetAtGrow(int index, T value) {
        if (index < 0)
            dbsection::ThrowInvalidArgument();
        if (index > GetSize())
            SetSize(index);
        if (index == GetSize())
            Add(std::move(value));
        else
            SetAt(index, std::move(value));
    }

    const T& operator[](int index) const { return GetAt(index); }
    T& operator[](int index) { return ElementAt(index); }

    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::size_t Checked(int index) const {
        if (index < 0 || index >= GetSize())
            dbsection::ThrowInvalidArgument();
        return static_cast<std::size_t>(index);
    }

    std::vector<T> m_items;
};

using CStringArray = CArrayShell<CString>;
using CUIntArray = CArrayShell<unsigned int>;
using CDWordArray = CArrayShell<DWORD>;

namespace dbsection {

/// Positions are indexes counted from 1, so that the null position is the end.
inline POSITION PositionOf(std::size_t index, std::size_t size) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a position is an index in a pointer's clothes
    return index < size ? reinterpret_cast<POSITION>(index + 1) : nullptr;
}

inline std::size_t IndexOf(POSITION position, std::size_t size) {
    const auto index = reinterpret_cast<std::uintptr_t>(position) - 1;
    if (position == nullptr || index >= size)
        ThrowInvalidArgument();
    return index;
}

} // namespace dbsection

/// List of strings. The block size of the constructor is accepted for its callers' sake.
class CStringList {
public:
    explicit CStringList(int /*blockSize*/ = 10) {}

    int GetCount() const { return static_cast<int>(m_items.size()); }
    bool IsEmpty() const { return m_items.empty(); }
    void RemoveAll() { m_items.clear(); }
    void AddTail(CString text) { m_items.push_back(std::move(text)); }

    POSITION GetHeadPosition() const { return dbsection::PositionOf(0, m_items.size()); }

    /// The string at `position`, which moves on and becomes null after the last one.
    const CString& GetNext(POSITION& position) const {
        const std::size_t index = dbsection::IndexOf(position, m_items.size());
        position = dbsection::PositionOf(index + 1, m_items.size());
        return m_items[index];
    }

    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::vector<CString> m_items;
};

/// Map from key to value. The two argument types are accepted for their callers' sake.
template <class Key, class KeyArgument, class Value, class ValueArgument>
class CMap {
public:
    explicit CMap(int /*blockSize*/ = 10) {}

    int GetCount() const { return static_cast<int>(m_entries.size()); }
    bool IsEmpty() const { return m_entries.empty(); }
    void InitHashTable(unsigned int buckets) { m_index.reserve(buckets); }

    void SetAt(KeyArgument key, ValueArgument value) {
        const auto [place, isNew] = m_index.try_emplace(key, m_entries.size());
        if (!isNew) {
            m_entries[place->second].second = value;
            return;
        }
        try {
            m_entries.emplace_back(key, value);
        } catch (...) { // out of memory: the map stays as it was
            m_index.erase(place);
            throw;
        }
    }

    /// Writes the value of `key` and returns true, or returns false and writes nothing.
    bool Lookup(KeyArgument key, Value& value) const {
        const auto place = m_index.find(key);
        if (place == m_index.end())
            return false;
        value = m_entries[place->second].second;
        return true;
    }

    void RemoveAll() {
        m_entries.clear();
        m_index.clear();
    }

    POSITION GetStartPosition() const { return dbsection::PositionOf(0, m_entries.size()); }

    /// The entry at `position`, which moves on and becomes null after the last one.
    void GetNextAssoc(POSITION& position, Key& key, Value& value) const {
        const std::size_t index = dbsection::IndexOf(position, m_entries.size());
        position = dbsection::PositionOf(index + 1, m_entries.size());
        std::tie(key, value) = m_entries[index];
    }

    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

private:
    std::vector<std::pair<Key, Value>> m_entries;
    std::unordered_map<Key, std::size_t> m_index;
};

/// Names the map from a 16-bit key to a pointer in CTypedPtrMap.
class CMapWordToPtr;

/// Map from key to typed pointer; the pointers are not owned.
template <class Base, class Key, class Pointer>
class CTypedPtrMap : public CMap<Key, Key, Pointer, Pointer> {
public:
    using CMap<Key, Key, Pointer, Pointer>::CMap;
};

#endif
