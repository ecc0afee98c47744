#include "FoldingSearcher.h"

#include "Cp1252.h"

#include <cstring>

FoldingSearcher::FoldingSearcher(std::string_view needle, bool folded)
    : m_needle(folded ? cp1252::lower(needle) : std::string(needle))
    , m_folded(folded)
{
    const size_t m = m_needle.size();
    m_skip.fill(m == 0 ? 1 : m);
    if (m == 0)
        return;
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
    const auto &lower = cp1252::lowerTable();
    const auto *hay = reinterpret_cast<const unsigned char *>(text.data());
    const auto *pin = reinterpret_cast<const unsigned char *>(m_needle.data());
    const unsigned char last = pin[m - 1];
    const size_t end = text.size() - m;
    size_t pos = from;
    while (pos <= end) {
        const unsigned char tail = hay[pos + m - 1];
        if ((m_folded ? lower[tail] : tail) == last) {
            size_t k = 0;
            if (m_folded) {
                while (k + 1 < m && lower[hay[pos + k]] == pin[k])
                    ++k;
            } else {
                while (k + 1 < m && hay[pos + k] == pin[k])
                    ++k;
            }
            if (k + 1 == m)
                return pos;
        }
        pos += m_skip[tail];
    }
    return std::string_view::npos;
}
