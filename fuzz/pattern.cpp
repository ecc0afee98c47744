#include "common/Cp1252.h"
#include "common/LikePattern.h"

#include <string>
#include <string_view>
#include <vector>

namespace {

// The pattern rule read straight from the pattern text, by backtracking with a memo of the
// positions tried: slow and plain, the reference the compiled matcher must agree with.
class Reference
{
public:
    Reference(std::string_view pattern, std::string_view text)
        : m_pattern(pattern)
        , m_text(text)
        , m_memo((pattern.size() + 1) * (text.size() + 1), -1)
    {
    }

    bool matches() { return match(0, 0); }

private:
    bool match(size_t p, size_t t)
    {
        signed char &known = m_memo[p * (m_text.size() + 1) + t];
        if (known < 0)
            known = step(p, t) ? 1 : 0;
        return known == 1;
    }

    bool step(size_t p, size_t t)
    {
        if (p == m_pattern.size())
            return t == m_text.size();
        const char c = m_pattern[p];
        if (c == '*')
            return match(p + 1, t) || (t < m_text.size() && match(p, t + 1));
        if (c == '[') {
            const size_t close = m_pattern.find(']', p + 1);
            std::string_view list = m_pattern.substr(p + 1, close - p - 1);
            if (list.empty())
                return match(close + 1, t);
            if (t == m_text.size())
                return false;
            bool negate = false;
            if (list.front() == '!') {
                negate = true;
                list.remove_prefix(1);
            }
            const auto x = static_cast<unsigned char>(m_text[t]);
            bool member = false;
            for (size_t k = 0; k < list.size(); ++k) {
                const auto from = static_cast<unsigned char>(list[k]);
                if (k + 2 < list.size() && list[k + 1] == '-') {
                    member = member || (x >= from && x <= static_cast<unsigned char>(list[k + 2]));
                    k += 2;
                } else {
                    member = member || x == from;
                }
            }
            return member != negate && match(close + 1, t + 1);
        }
        if (t == m_text.size())
            return false;
        const char x = m_text[t];
        const bool one = c == '?' || (c == '#' ? x >= '0' && x <= '9' : x == c);
        return one && match(p + 1, t + 1);
    }

    std::string_view m_pattern;
    std::string_view m_text;
    std::vector<signed char> m_memo;
};

bool referenceMatch(std::string_view pattern, std::string_view text)
{
    return Reference(pattern, text).matches();
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
