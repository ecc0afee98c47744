#include "search/ImageLineMatcher.h"

#include <string_view>
#include <vector>

// The first line is the pattern, the rest an image text. The search that jumps from one
// occurrence of the pattern's literal to the next must hit exactly the lines that testing
// every line hits.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    const size_t cut = input.find('\n');
    if (cut == std::string_view::npos)
        return 0;
    const std::string_view text = input.substr(cut + 1);
    for (const auto part : { ImageLineMatcher::Part::PathAndBar, ImageLineMatcher::Part::WholeLine }) {
        const ImageLineMatcher matcher(input.substr(0, cut), part);
        if (matcher.error() != LikePattern::Error::None)
            return 0;
        std::vector<std::string_view> hits;
        matcher.scan(text, hits);
        std::vector<std::string_view> expected;
        size_t start = 0;
        while (start < text.size()) {
            const size_t cr = text.find('\r', start);
            const size_t end = cr == std::string_view::npos ? text.size() : cr;
            const std::string_view line = text.substr(start, end - start);
            if (matcher.matchesLine(line))
                expected.push_back(line);
            start = end + 1;
            if (cr != std::string_view::npos && start < text.size() && text[start] == '\n')
                ++start;
        }
        if (hits != expected)
            __builtin_trap();
    }
    return 0;
}
