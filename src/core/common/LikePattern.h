#pragma once

#include "FoldingSearcher.h"

#include <QString>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The catalogue's pattern match on code page 1252 bytes: "*" any run, "?" one character,
// "#" one digit, "[abc]", "[a-z]" and "[!abc]" character lists; everything else stands for
// itself. Compiled once per pattern; matches() allocates nothing, so it can run over
// millions of image lines.
class LikePattern
{
public:
    enum class Case { Binary, Folded };
    enum class Error { None, UnclosedBracket, BadRange };

    // A pattern that does not compile has error() != None and matches nothing.
    explicit LikePattern(std::string_view pattern, Case mode = Case::Binary);

    Error error() const { return m_error; }
    bool isValid() const { return m_error == Error::None; }

    bool matches(std::string_view text) const;

    // The longest run of plain characters that every match must contain (case folded when
    // the pattern is): a caller can look for it in a large buffer before testing lines.
    const FoldingSearcher &requiredRun() const { return m_requiredRun; }

private:
    // One position of the pattern: a star, or the set of bytes it accepts.
    struct Token
    {
        bool star = false;
        std::array<uint64_t, 4> accepts{};
        bool accept(unsigned char c) const { return (accepts[c >> 6] >> (c & 63)) & 1u; }
    };
    enum class Shape { General, Exact, Prefix, Suffix, Contains };

    void compile(std::string_view pattern, bool folded);
    void classify(std::string_view pattern, bool folded);
    bool matchGeneral(std::string_view text) const;
    bool matchLiteralAt(std::string_view text, size_t offset) const;

    Error m_error = Error::None;
    bool m_folded = false;
    std::vector<Token> m_tokens;
    Shape m_shape = Shape::General;
    std::string m_literal; // the literal of the non-general shapes, folded when needed
    FoldingSearcher m_requiredRun;
};

// The German message for a pattern that does not compile, for every place a pattern is typed.
QString likeErrorMessage(LikePattern::Error error);
