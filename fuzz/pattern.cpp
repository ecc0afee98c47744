#include "common/Cp1252.h"
#include "common/LikePattern.h"

#include <string>
#include <string_view>

namespace {

// The pattern rule read straight from the pattern text, by backtracking: slow and plain, the
// reference the compiled matcher must agree with.
bool referenceMatch(std::string_view pattern, std::string_view text)
{
    if (pattern.empty())
        return text.empty();
    const char p = pattern.front();
    if (p == '*')
        return referenceMatch(pattern.substr(1), text) || (!text.empty() && referenceMatch(pattern, text.substr(1)));
    if (p == '[') {
        const size_t close = pattern.find(']', 1);
        std::string_view list = pattern.substr(1, close - 1);
        const std::string_view rest = pattern.substr(close + 1);
        if (list.empty())
            return referenceMatch(rest, text);
        if (text.empty())
            return false;
        bool negate = false;
        if (list.front() == '!') {
            negate = true;
            list.remove_prefix(1);
        }
        const auto c = static_cast<unsigned char>(text.front());
        bool member = false;
        for (size_t k = 0; k < list.size(); ++k) {
            const auto from = static_cast<unsigned char>(list[k]);
            if (k + 2 < list.size() && list[k + 1] == '-') {
                member = member || (c >= from && c <= static_cast<unsigned char>(list[k + 2]));
                k += 2;
            } else {
                member = member || c == from;
            }
        }
        return member != negate && referenceMatch(rest, text.substr(1));
    }
    if (text.empty())
        return false;
    const bool one = p == '?' || (p == '#' ? text.front() >= '0' && text.front() <= '9' : text.front() == p);
    return one && referenceMatch(pattern.substr(1), text.substr(1));
}

} // namespace

// The first line is the pattern, the rest the text; both case modes are checked.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    const size_t cut = input.find('\n');
    if (cut == std::string_view::npos || cut > 64 || size - cut > 256)
        return 0;
    const std::string_view pattern = input.substr(0, cut);
    const std::string_view text = input.substr(cut + 1);
    const LikePattern binary(pattern, LikePattern::Case::Binary);
    if (!binary.isValid())
        return 0;
    if (binary.matches(text) != referenceMatch(pattern, text))
        __builtin_trap();
    // Folded, a range is read in lower case: "[X-f]" becomes the reversed "[x-f]" and is refused.
    const LikePattern folded(pattern, LikePattern::Case::Folded);
    if (folded.isValid() && folded.matches(text) != referenceMatch(cp1252::lower(pattern), cp1252::lower(text)))
        __builtin_trap();
    return 0;
}
