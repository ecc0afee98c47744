#include "HitList.h"

#include "common/Cp1252.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t kBlockSize = size_t{1} << 20;

} // namespace

void HitList::append(std::string_view prefix, std::string_view line)
{
    const size_t size = prefix.size() + line.size();
    char *at = room(size);
    std::memcpy(at, prefix.data(), prefix.size());
    std::memcpy(at + prefix.size(), line.data(), line.size());
    m_entries.emplace_back(at, size);
    m_prefixSizes.push_back(prefix.size());
}

void HitList::append(HitList &&other)
{
    // Blocks are only ever appended to at m_free, so taking over other's blocks leaves this
    // list's free rest where it was.
    std::move(other.m_blocks.begin(), other.m_blocks.end(), std::back_inserter(m_blocks));
    m_entries.insert(m_entries.end(), other.m_entries.begin(), other.m_entries.end());
    m_prefixSizes.insert(m_prefixSizes.end(), other.m_prefixSizes.begin(), other.m_prefixSizes.end());
    other = HitList();
}

std::vector<HitEntry> HitList::entries() const
{
    // Code page 1252 gives one character per byte, so the prefix's size is the title's end + 1.
    std::vector<HitEntry> out;
    out.reserve(m_entries.size());
    for (size_t i = 0; i < m_entries.size(); ++i)
        out.push_back({ cp1252::toQString(m_entries[i]), static_cast<qsizetype>(m_prefixSizes[i]) - 1 });
    return out;
}

char *HitList::room(size_t size)
{
    if (size > m_freeSize) {
        const size_t blockSize = std::max(size, kBlockSize);
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(blockSize));
        m_free = m_blocks.back().get();
        m_freeSize = blockSize;
    }
    char *at = m_free;
    m_free += size;
    m_freeSize -= size;
    return at;
}
