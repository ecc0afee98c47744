#include "TextLookup.h"

#include <functional>

namespace {
constexpr size_t firstSize = 1024;

uint32_t hashOf(std::string_view text)
{
    return static_cast<uint32_t>(std::hash<std::string_view>()(text));
}
} // namespace

int32_t TextLookup::find(std::string_view text) const
{
    if (m_slots.empty())
        return -1;
    return m_slots[slotOf(text, hashOf(text))].number;
}

std::pair<int32_t, bool> TextLookup::add(std::string_view text)
{
    // At most half full, so that the run of slots a look-up walks stays short.
    if ((m_texts.size() + 1) * 2 > m_slots.size())
        resize(m_slots.empty() ? firstSize : m_slots.size() * 2);
    const uint32_t hash = hashOf(text);
    Slot &slot = m_slots[slotOf(text, hash)];
    if (slot.number >= 0)
        return { slot.number, false };
    slot = { hash, static_cast<int32_t>(m_texts.size()) };
    m_texts.push_back(text);
    return { slot.number, true };
}

size_t TextLookup::slotOf(std::string_view text, uint32_t hash) const
{
    const size_t mask = m_slots.size() - 1;
    for (size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot &slot = m_slots[at];
        if (slot.number < 0 || (slot.hash == hash && m_texts[static_cast<size_t>(slot.number)] == text))
            return at;
    }
}

void TextLookup::resize(size_t slots)
{
    std::vector<Slot> old(slots);
    old.swap(m_slots);
    const size_t mask = m_slots.size() - 1;
    for (const Slot &slot : old)
        if (slot.number >= 0) {
            size_t at = slot.hash & mask;
            while (m_slots[at].number >= 0)
                at = (at + 1) & mask;
            m_slots[at] = slot;
        }
}
