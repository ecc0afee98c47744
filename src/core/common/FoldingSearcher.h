#pragma once

#include <array>
#include <string>
#include <string_view>

// Finds a fixed byte string in a text, optionally ignoring code page 1252 letter case.
// Horspool's skip table over raw bytes, so a folded search costs no more than a binary one.
class FoldingSearcher
{
public:
    FoldingSearcher() = default;
    FoldingSearcher(std::string_view needle, bool folded);

    // Position of the first occurrence at or after `from`, or std::string_view::npos.
    size_t find(std::string_view text, size_t from = 0) const;
    bool empty() const { return m_needle.empty(); }
    const std::string &needle() const { return m_needle; }

private:
    size_t findScalar(std::string_view text, size_t from) const;
    size_t findVector(std::string_view text, size_t from) const;
    bool matchesAt(const unsigned char *at) const;

    std::string m_needle; // folded to lower case when m_folded
    bool m_folded = false;
    std::array<size_t, 256> m_skip{};
    // The raw bytes that the first and the last needle byte stand for (a letter's two cases).
    std::array<unsigned char, 2> m_firstBytes{};
    std::array<unsigned char, 2> m_lastBytes{};
};
