#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Walks the lines of an image in memory in one pass, finding each line's end and its last
// backslash together, 64 bytes at a time. Lines end at CR LF or at a lone CR; a lone LF
// stays inside its line; a last line without an end is a line too.
//
// For each line: onLine(std::string_view line, size_t lastBackslash), where lastBackslash
// is the backslash's offset within the line or std::string_view::npos.
namespace linescanner {

namespace detail {

// Bit i set where block[i] == c, for the 64 bytes at `block`.
inline uint64_t matches(const char *block, char c)
{
#if defined(__SSE2__)
    const __m128i needle = _mm_set1_epi8(c);
    uint64_t mask = 0;
    for (int part = 0; part < 4; ++part) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(block + 16 * part));
        mask |= static_cast<uint64_t>(static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, needle))))
            << (16 * part);
    }
    return mask;
#else
    uint64_t mask = 0;
    for (int i = 0; i < 64; ++i)
        mask |= static_cast<uint64_t>(block[i] == c) << i;
    return mask;
#endif
}

inline int highestBit(uint64_t mask)
{
    return 63 - __builtin_clzll(mask);
}

} // namespace detail

template <typename OnLine> void forEachLine(const char *data, size_t size, OnLine &&onLine)
{
    size_t lineStart = 0;
    size_t lastBackslash = SIZE_MAX; // absolute offset of the latest backslash seen
    char tail[64];
    for (size_t block = 0; block < size; block += 64) {
        const char *bytes = data + block;
        uint64_t valid = ~uint64_t(0);
        if (size - block < 64) {
            // The last, partial block is scanned from a copy, so no read passes the end.
            std::memset(tail, 0, sizeof tail);
            std::memcpy(tail, bytes, size - block);
            bytes = tail;
            valid = (uint64_t(1) << (size - block)) - 1;
        }
        uint64_t crs = detail::matches(bytes, '\r') & valid;
        const uint64_t backslashes = detail::matches(bytes, '\\') & valid;
        while (crs) {
            const int bit = __builtin_ctzll(crs);
            const size_t end = block + static_cast<size_t>(bit);
            const uint64_t before = backslashes & ((uint64_t(1) << bit) - 1);
            const size_t slash
                = before ? block + static_cast<size_t>(detail::highestBit(before)) : lastBackslash;
            const bool inLine = slash != SIZE_MAX && slash >= lineStart;
            onLine(std::string_view(data + lineStart, end - lineStart),
                inLine ? slash - lineStart : std::string_view::npos);
            lineStart = end + 1;
            if (lineStart < size && data[lineStart] == '\n')
                ++lineStart;
            crs &= crs - 1;
        }
        if (backslashes)
            lastBackslash = block + static_cast<size_t>(detail::highestBit(backslashes));
    }
    if (lineStart < size) {
        const void *slash = ::memrchr(data + lineStart, '\\', size - lineStart);
        onLine(std::string_view(data + lineStart, size - lineStart),
            slash ? static_cast<size_t>(static_cast<const char *>(slash) - (data + lineStart))
                  : std::string_view::npos);
    }
}

} // namespace linescanner
