#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

// Keeps copies of many short texts in a few large blocks. A kept text never moves, so views
// of it stay valid as long as the arena.
class TextArena
{
public:
    TextArena() = default;
    TextArena(const TextArena &) = delete;
    TextArena &operator=(const TextArena &) = delete;

    std::string_view keep(std::string_view text);

private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char *m_free = nullptr;
    size_t m_left = 0;
};
