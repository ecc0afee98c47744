#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Walks the lines of an image in memory in one pass, finding each line's end and its last
// backslash together. Lines end at CR LF or at a lone CR; a lone LF stays inside its line;
// a last line without an end is a line too.
//
// For each line: onLine(std::string_view line, size_t lastBackslash), where lastBackslash
// is the backslash's offset within the line or std::string_view::npos.
namespace linescanner {

namespace detail {

constexpr size_t blockSize = 64;
constexpr size_t blocksPerRound = 64;

// For each block of 64 bytes: bit i set where byte i is a CR, and where it is a backslash.
// Uses the widest vector instructions the processor has.
void classify(const char *data, size_t blocks, uint64_t *crs, uint64_t *backslashes);

inline int highestBit(uint64_t mask)
{
    return 63 - __builtin_clzll(mask);
}

} // namespace detail

template <typename OnLine> void forEachLine(const char *data, size_t size, OnLine &&onLine)
{
    using namespace detail;
    size_t lineStart = 0;
    size_t lastBackslash = SIZE_MAX; // absolute offset of the latest backslash seen
    uint64_t crMasks[blocksPerRound];
    uint64_t backslashMasks[blocksPerRound];
    char tail[blockSize];

    for (size_t round = 0; round < size; round += blockSize * blocksPerRound) {
        const size_t bytes
            = size - round < blockSize * blocksPerRound ? size - round : blockSize * blocksPerRound;
        const size_t whole = bytes / blockSize;
        classify(data + round, whole, crMasks, backslashMasks);
        size_t blocks = whole;
        if (bytes % blockSize) {
            // The last, partial block is classified from a copy, so no read passes the end.
            std::memset(tail, 0, sizeof tail);
            std::memcpy(tail, data + round + whole * blockSize, bytes % blockSize);
            classify(tail, 1, crMasks + whole, backslashMasks + whole);
            ++blocks;
        }
        for (size_t b = 0; b < blocks; ++b) {
            const size_t block = round + b * blockSize;
            uint64_t crs = crMasks[b];
            const uint64_t backslashes = backslashMasks[b];
            while (crs) {
                const int bit = __builtin_ctzll(crs);
                const size_t end = block + static_cast<size_t>(bit);
                const uint64_t before = backslashes & ((uint64_t(1) << bit) - 1);
                const size_t slash = before ? block + static_cast<size_t>(highestBit(before)) : lastBackslash;
                const bool inLine = slash != SIZE_MAX && slash >= lineStart;
                onLine(std::string_view(data + lineStart, end - lineStart),
                    inLine ? slash - lineStart : std::string_view::npos);
                lineStart = end + 1;
                if (lineStart < size && data[lineStart] == '\n')
                    ++lineStart;
                crs &= crs - 1;
            }
            if (backslashes)
                lastBackslash = block + static_cast<size_t>(highestBit(backslashes));
        }
    }
    if (lineStart < size) {
        const void *slash = ::memrchr(data + lineStart, '\\', size - lineStart);
        onLine(std::string_view(data + lineStart, size - lineStart),
            slash ? static_cast<size_t>(static_cast<const char *>(slash) - (data + lineStart))
                  : std::string_view::npos);
    }
}

// The end of the last line within [from, to) whose end is certain: behind a CR and the LF
// after it. A CR in the last byte could still be followed by an LF, so it doesn't count.
// `from` when there is none. For data that arrives piece by piece.
inline size_t lastLineEnd(const char *data, size_t from, size_t to)
{
    if (to - from < 2)
        return from;
    const void *cr = ::memrchr(data + from, '\r', to - 1 - from);
    if (!cr)
        return from;
    size_t end = static_cast<size_t>(static_cast<const char *>(cr) - data) + 1;
    if (data[end] == '\n')
        ++end;
    return end;
}

} // namespace linescanner
