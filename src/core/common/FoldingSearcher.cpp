#include "FoldingSearcher.h"

#include "Cp1252.h"

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// The raw bytes whose folded form is `folded`: the byte itself and, for a letter, its capital.
std::array<unsigned char, 2> bytesFoldingTo(unsigned char folded, bool fold)
{
    std::array<unsigned char, 2> bytes{folded, folded};
    if (!fold)
        return bytes;
    const auto &lower = cp1252::lowerTable();
    for (int b = 0; b < 256; ++b) {
        if (lower[b] == folded && b != folded)
            bytes[1] = static_cast<unsigned char>(b);
    }
    return bytes;
}

} // namespace

FoldingSearcher::FoldingSearcher(std::string_view needle, bool folded)
    : m_needle(folded ? cp1252::lower(needle) : std::string(needle))
    , m_folded(folded)
{
    const size_t m = m_needle.size();
    m_skip.fill(m == 0 ? 1 : m);
    if (m == 0)
        return;
    m_firstBytes = bytesFoldingTo(static_cast<unsigned char>(m_needle.front()), m_folded);
    m_lastBytes = bytesFoldingTo(static_cast<unsigned char>(m_needle.back()), m_folded);
    const auto &lower = cp1252::lowerTable();
    for (size_t i = 0; i + 1 < m; ++i) {
        const auto needleByte = static_cast<unsigned char>(m_needle[i]);
        for (int b = 0; b < 256; ++b) {
            const unsigned char key = m_folded ? lower[b] : static_cast<unsigned char>(b);
            if (key == needleByte)
                m_skip[b] = m - 1 - i;
        }
    }
}

size_t FoldingSearcher::find(std::string_view text, size_t from) const
{
    const size_t m = m_needle.size();
    if (m == 0)
        return from <= text.size() ? from : std::string_view::npos;
    if (text.size() < m || from > text.size() - m)
        return std::string_view::npos;
    if (!m_folded && m == 1) {
        const void *hit = std::memchr(text.data() + from, m_needle[0], text.size() - from);
        return hit ? static_cast<size_t>(static_cast<const char *>(hit) - text.data())
                   : std::string_view::npos;
    }
    return findVector(text, from);
}

bool FoldingSearcher::matchesAt(const unsigned char *at) const
{
    const auto *pin = reinterpret_cast<const unsigned char *>(m_needle.data());
    const size_t m = m_needle.size();
    if (!m_folded)
        return std::memcmp(at, pin, m) == 0;
    const auto &lower = cp1252::lowerTable();
    for (size_t k = 0; k < m; ++k) {
        if (lower[at[k]] != pin[k])
            return false;
    }
    return true;
}

size_t FoldingSearcher::findVector(std::string_view text, size_t from) const
{
#if defined(__SSE2__)
    // Sixteen candidate positions at a time: a position is tested in full only when both its
    // first and its last byte fit the needle, in either case.
    const auto *hay = reinterpret_cast<const unsigned char *>(text.data());
    const size_t m = m_needle.size();
    const size_t lastStart = text.size() - m;
    const __m128i first0 = _mm_set1_epi8(static_cast<char>(m_firstBytes[0]));
    const __m128i first1 = _mm_set1_epi8(static_cast<char>(m_firstBytes[1]));
    const __m128i last0 = _mm_set1_epi8(static_cast<char>(m_lastBytes[0]));
    const __m128i last1 = _mm_set1_epi8(static_cast<char>(m_lastBytes[1]));
    size_t pos = from;
    for (; pos + 16 <= lastStart + 1; pos += 16) {
        const __m128i head = _mm_loadu_si128(reinterpret_cast<const __m128i *>(hay + pos));
        const __m128i tail = _mm_loadu_si128(reinterpret_cast<const __m128i *>(hay + pos + m - 1));
        const __m128i headFits = _mm_or_si128(_mm_cmpeq_epi8(head, first0), _mm_cmpeq_epi8(head, first1));
        const __m128i tailFits = _mm_or_si128(_mm_cmpeq_epi8(tail, last0), _mm_cmpeq_epi8(tail, last1));
        auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(headFits, tailFits)));
        while (mask != 0) {
            const auto bit = static_cast<size_t>(__builtin_ctz(mask));
            if (matchesAt(hay + pos + bit))
                return pos + bit;
            mask &= mask - 1;
        }
    }
    return findScalar(text, pos);
#else
    return findScalar(text, from);
#endif
}

size_t FoldingSearcher::findScalar(std::string_view text, size_t from) const
{
    const size_t m = m_needle.size();
    if (text.size() < m || from > text.size() - m)
        return std::string_view::npos;
    const auto &lower = cp1252::lowerTable();
    const auto *hay = reinterpret_cast<const unsigned char *>(text.data());
    const auto last = static_cast<unsigned char>(m_needle.back());
    const size_t end = text.size() - m;
    size_t pos = from;
    while (pos <= end) {
        const unsigned char tail = hay[pos + m - 1];
        if ((m_folded ? lower[tail] : tail) == last && matchesAt(hay + pos))
            return pos;
        pos += m_skip[tail];
    }
    return std::string_view::npos;
}
