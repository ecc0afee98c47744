#include "TextArena.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr size_t blockSize = size_t(64) << 10;
}

std::string_view TextArena::keep(std::string_view text)
{
    if (text.size() > m_left) {
        const size_t size = std::max(blockSize, text.size());
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(size));
        m_free = m_blocks.back().get();
        m_left = size;
    }
    if (!text.empty())
        std::memcpy(m_free, text.data(), text.size());
    const std::string_view kept(m_free, text.size());
    m_free += text.size();
    m_left -= text.size();
    return kept;
}
