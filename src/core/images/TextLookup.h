#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

// Numbers texts in the order they are added and finds a text's number, for many short texts
// looked up while a large file streams through the processor's cache: open addressing in
// one small array, so that a look-up mostly costs one cache line where a table of linked
// nodes costs several. The texts are not copied and must outlive the table.
class TextLookup
{
public:
    // The number of `text`, or -1.
    int32_t find(std::string_view text) const;
    // The number of `text`, a new one (the count of texts before) when it is not there yet;
    // and whether it is new.
    std::pair<int32_t, bool> add(std::string_view text);

private:
    struct Slot
    {
        uint32_t hash = 0; // the low half of the text's hash: where it goes, and a first check
        int32_t number = -1;
    };

    // The slot holding `text`, or the empty one where it belongs.
    size_t slotOf(std::string_view text, uint32_t hash) const;
    void resize(size_t slots);

    std::vector<Slot> m_slots;
    std::vector<std::string_view> m_texts;
};
