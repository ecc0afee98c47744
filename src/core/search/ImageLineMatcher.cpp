#include "ImageLineMatcher.h"

#include <cstring>

namespace {

constexpr size_t npos = std::string_view::npos;

// The position of the CR that ends the line holding `at`, or the end of the text.
size_t lineEnd(std::string_view text, size_t at)
{
    const void *cr = std::memchr(text.data() + at, '\r', text.size() - at);
    return cr ? static_cast<size_t>(static_cast<const char *>(cr) - text.data()) : text.size();
}

// Where the next line begins after the line that ends at `end`.
size_t nextLineStart(std::string_view text, size_t end)
{
    if (end >= text.size())
        return text.size();
    return end + 1 < text.size() && text[end + 1] == '\n' ? end + 2 : end + 1;
}

// The start of the line that holds `at`, knowing that a line starts at `from` <= `at`.
size_t lineStart(std::string_view text, size_t from, size_t at)
{
    const void *cr = ::memrchr(text.data() + from, '\r', at - from);
    if (!cr)
        return from;
    return nextLineStart(text, static_cast<size_t>(static_cast<const char *>(cr) - text.data()));
}

} // namespace

ImageLineMatcher::ImageLineMatcher(std::string_view pattern, Part part)
    : m_pattern(pattern, LikePattern::Case::Folded)
    , m_part(part)
{
}

bool ImageLineMatcher::matchesLine(std::string_view line) const
{
    if (m_part == Part::PathAndBar) {
        const size_t bar = line.find('|');
        line = bar == npos ? std::string_view() : line.substr(0, bar + 1);
    }
    return m_pattern.matches(line);
}

void ImageLineMatcher::scan(std::string_view text, std::vector<std::string_view> &hits) const
{
    const FoldingSearcher &run = m_pattern.requiredRun();
    size_t pos = 0;
    while (pos < text.size()) {
        size_t start = pos;
        if (!run.empty()) {
            const size_t found = run.find(text, pos);
            if (found == npos)
                return;
            start = lineStart(text, pos, found);
        }
        const size_t end = lineEnd(text, start);
        const std::string_view line = text.substr(start, end - start);
        if (matchesLine(line))
            hits.push_back(line);
        pos = nextLineStart(text, end);
    }
}

size_t ImageLineMatcher::blockEnd(std::string_view text, size_t from, size_t size)
{
    if (size >= text.size() - from)
        return text.size();
    return nextLineStart(text, lineEnd(text, from + size));
}
