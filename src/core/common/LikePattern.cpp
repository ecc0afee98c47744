#include "LikePattern.h"

#include "Cp1252.h"

namespace {

using ByteSet = std::array<bool, 256>;

struct Parsed
{
    bool star = false;
    bool plain = false; // a character that stands for itself
    char plainChar = 0;
    ByteSet set{};
};

} // namespace

LikePattern::LikePattern(std::string_view pattern, Case mode)
    : m_folded(mode == Case::Folded)
{
    compile(pattern, m_folded);
    if (m_error == Error::None)
        classify(pattern, m_folded);
}

void LikePattern::compile(std::string_view rawPattern, bool folded)
{
    const std::string pattern = folded ? cp1252::lower(rawPattern) : std::string(rawPattern);
    std::vector<Parsed> parsed;
    size_t i = 0;
    while (i < pattern.size()) {
        const auto c = static_cast<unsigned char>(pattern[i]);
        Parsed token;
        if (c == '*') {
            token.star = true;
            ++i;
        } else if (c == '?') {
            token.set.fill(true);
            ++i;
        } else if (c == '#') {
            for (int d = '0'; d <= '9'; ++d)
                token.set[d] = true;
            ++i;
        } else if (c == '[') {
            const size_t close = pattern.find(']', i + 1);
            if (close == std::string::npos) {
                m_error = Error::UnclosedBracket;
                m_tokens.clear();
                return;
            }
            std::string_view list(pattern.data() + i + 1, close - i - 1);
            i = close + 1;
            if (list.empty())
                continue; // "[]" stands for the empty text: it consumes nothing
            bool negate = false;
            if (list.front() == '!') {
                negate = true;
                list.remove_prefix(1);
            }
            ByteSet members{};
            for (size_t k = 0; k < list.size(); ++k) {
                const auto from = static_cast<unsigned char>(list[k]);
                if (k + 2 < list.size() && list[k + 1] == '-') {
                    const auto to = static_cast<unsigned char>(list[k + 2]);
                    if (to < from) {
                        m_error = Error::BadRange;
                        m_tokens.clear();
                        return;
                    }
                    for (int b = from; b <= to; ++b)
                        members[b] = true;
                    k += 2;
                } else {
                    members[from] = true;
                }
            }
            for (int b = 0; b < 256; ++b)
                token.set[b] = members[b] != negate;
        } else {
            token.plain = true;
            token.plainChar = static_cast<char>(c);
            token.set[c] = true;
            ++i;
        }
        if (token.star && !parsed.empty() && parsed.back().star)
            continue;
        parsed.push_back(token);
    }

    const auto &lower = cp1252::lowerTable();
    m_tokens.reserve(parsed.size());
    std::string run;
    std::string longestRun;
    for (const Parsed &p : parsed) {
        Token token;
        token.star = p.star;
        for (int b = 0; b < 256 && !p.star; ++b) {
            const int key = folded ? lower[b] : b;
            if (p.set[key])
                token.accepts[b >> 6] |= uint64_t{1} << (b & 63);
        }
        m_tokens.push_back(token);
        if (p.plain) {
            run.push_back(p.plainChar);
            if (run.size() > longestRun.size())
                longestRun = run;
        } else {
            run.clear();
        }
    }
    m_requiredRun = FoldingSearcher(longestRun, folded);
}

void LikePattern::classify(std::string_view rawPattern, bool folded)
{
    // Only a pattern of plain characters with stars at its ends gets a shortcut.
    std::string_view body = rawPattern;
    const bool leadingStar = !body.empty() && body.front() == '*';
    while (!body.empty() && body.front() == '*')
        body.remove_prefix(1);
    const bool trailingStar = !body.empty() && body.back() == '*';
    while (!body.empty() && body.back() == '*')
        body.remove_suffix(1);
    if (body.find_first_of("*?#[") != std::string_view::npos)
        return;
    if (body.empty() && leadingStar) {
        m_shape = Shape::Contains;
        m_literal.clear();
        m_requiredRun = FoldingSearcher();
        return;
    }
    m_literal = folded ? cp1252::lower(body) : std::string(body);
    if (leadingStar && trailingStar)
        m_shape = Shape::Contains;
    else if (leadingStar)
        m_shape = Shape::Suffix;
    else if (trailingStar)
        m_shape = Shape::Prefix;
    else
        m_shape = Shape::Exact;
}

bool LikePattern::matches(std::string_view text) const
{
    if (m_error != Error::None)
        return false;
    const size_t m = m_literal.size();
    switch (m_shape) {
    case Shape::Exact:
        return text.size() == m && matchLiteralAt(text, 0);
    case Shape::Prefix:
        return text.size() >= m && matchLiteralAt(text, 0);
    case Shape::Suffix:
        return text.size() >= m && matchLiteralAt(text, text.size() - m);
    case Shape::Contains:
        return m_requiredRun.find(text) != std::string_view::npos;
    case Shape::General:
        break;
    }
    return matchGeneral(text);
}

bool LikePattern::matchLiteralAt(std::string_view text, size_t offset) const
{
    const auto &lower = cp1252::lowerTable();
    for (size_t k = 0; k < m_literal.size(); ++k) {
        auto c = static_cast<unsigned char>(text[offset + k]);
        if (m_folded)
            c = lower[c];
        if (c != static_cast<unsigned char>(m_literal[k]))
            return false;
    }
    return true;
}

bool LikePattern::matchGeneral(std::string_view text) const
{
    if (!m_requiredRun.empty() && m_requiredRun.find(text) == std::string_view::npos)
        return false;
    // Every token but the star takes exactly one byte, so remembering the last star is
    // enough to backtrack: linear in practice and free of allocations.
    const size_t n = text.size();
    const size_t m = m_tokens.size();
    constexpr size_t none = static_cast<size_t>(-1);
    size_t t = 0;
    size_t p = 0;
    size_t starToken = none;
    size_t starText = 0;
    while (t < n) {
        if (p < m && m_tokens[p].star) {
            starToken = ++p;
            starText = t;
        } else if (p < m && m_tokens[p].accept(static_cast<unsigned char>(text[t]))) {
            ++p;
            ++t;
        } else if (starToken != none) {
            p = starToken;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < m && m_tokens[p].star)
        ++p;
    return p == m;
}

QString likeErrorMessage(LikePattern::Error error)
{
    switch (error) {
    case LikePattern::Error::None:
        return {};
    case LikePattern::Error::UnclosedBracket:
        return QStringLiteral("Ungültiges Suchmuster: Eine eckige Klammer \"[\" wird nicht geschlossen.");
    case LikePattern::Error::BadRange:
        return QStringLiteral("Ungültiges Suchmuster: Ein Bereich in eckigen Klammern ist verkehrt herum angegeben (z.B. [z-a]).");
    }
    return {};
}
