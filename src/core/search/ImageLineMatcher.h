#pragma once

#include "common/LikePattern.h"

#include <string_view>
#include <vector>

// Decides which lines of an image text a search pattern hits. The pattern and the line are
// compared in lower case (code page 1252). An image text is read as the catalogue reads a
// text file: a line ends at a CR, an LF right after that CR belongs to the line break, and
// after a final line break there is no further line.
class ImageLineMatcher
{
public:
    // The part of a line that is compared: the path up to and including the first "|" (empty
    // for a line without "|"), or the whole line.
    enum class Part { PathAndBar, WholeLine };

    ImageLineMatcher(std::string_view pattern, Part part);

    LikePattern::Error error() const { return m_pattern.error(); }

    // Appends the hit lines of `text`, which must begin at a line start, to `hits` in order.
    // A pattern with a literal run is looked for in the whole text first and only the lines
    // around its occurrences are tested; one without is tested line by line.
    void scan(std::string_view text, std::vector<std::string_view> &hits) const;

    bool matchesLine(std::string_view line) const;

    // The end of a block of at least `size` bytes from `from` that ends after a line break or
    // at the end of `text`: scanning a text block by block gives the same lines as a whole.
    static size_t blockEnd(std::string_view text, size_t from, size_t size);

private:
    LikePattern m_pattern;
    Part m_part;
};
