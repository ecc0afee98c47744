#include "CaptureFilter.h"

#include "common/Cp1252.h"

#include <array>

namespace {

// Upper case as the inverse of the code page's lower case: the letters that have a
// capital get it, everything else (ß, µ, digits) stays.
const std::array<unsigned char, 256> &upperTable()
{
    static const std::array<unsigned char, 256> table = [] {
        std::array<unsigned char, 256> upper {};
        for (int c = 0; c < 256; ++c)
            upper[c] = static_cast<unsigned char>(c);
        const auto &lower = cp1252::lowerTable();
        for (int c = 0; c < 256; ++c) {
            if (lower[c] != c)
                upper[lower[c]] = static_cast<unsigned char>(c);
        }
        return upper;
    }();
    return table;
}

void upperInto(std::string_view text, std::string &out)
{
    const auto &upper = upperTable();
    out.resize(text.size());
    for (size_t i = 0; i < text.size(); ++i)
        out[i] = static_cast<char>(upper[static_cast<unsigned char>(text[i])]);
}

} // namespace

CaptureFilter::CaptureFilter(std::string_view typed)
    : m_cut(cutFilter(typed))
    , m_all(m_cut == "*")
{
    if (m_all)
        return;
    std::string pattern;
    upperInto("*" + m_cut + "*", pattern);
    m_pattern.emplace(pattern, LikePattern::Case::Binary);
}

std::string CaptureFilter::cutFilter(std::string_view typed)
{
    if (typed.empty() || typed.front() != '*')
        return std::string(typed);
    const size_t dot = typed.find('.');
    return dot == std::string_view::npos ? std::string(typed) : std::string(typed.substr(dot + 1));
}

QString CaptureFilter::errorMessage() const
{
    return m_pattern ? likeErrorMessage(m_pattern->error()) : QString();
}

bool CaptureFilter::passes(std::string_view name) const
{
    if (m_all)
        return true;
    upperInto(name, m_upperName);
    return m_pattern->matches(m_upperName);
}
