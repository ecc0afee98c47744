#pragma once

#include "HitEntry.h"

#include <memory>
#include <string_view>
#include <vector>

// The hit entries of a file search, code page 1252 texts, kept in large blocks instead of one
// allocation per hit: a search that hits a million lines makes a few hundred allocations.
// Entries never move once appended, so a view returned by operator[] lives as long as the list.
class HitList
{
public:
    HitList() = default;
    HitList(HitList &&) noexcept = default;
    HitList &operator=(HitList &&) noexcept = default;
    HitList(const HitList &) = delete;
    HitList &operator=(const HitList &) = delete;

    size_t size() const { return m_entries.size(); }
    bool empty() const { return m_entries.empty(); }
    std::string_view operator[](size_t i) const { return m_entries[i]; }
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

    // Appends one entry, the two parts joined; the prefix ends in the "<" after the title.
    void append(std::string_view prefix, std::string_view line);
    // Takes over the entries of `other` behind this list's own, without copying their bytes.
    void append(HitList &&other);

    // The entries as text, each knowing where its title ends.
    std::vector<HitEntry> entries() const;

private:
    char *room(size_t size);

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char *m_free = nullptr; // the unused rest of the last block
    size_t m_freeSize = 0;
    std::vector<std::string_view> m_entries;
    std::vector<size_t> m_prefixSizes; // parallel to m_entries
};
