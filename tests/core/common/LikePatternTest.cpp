#include "common/LikePattern.h"

#include <gtest/gtest.h>

// Umlauts written as code page 1252 bytes: \xC4 Ä, \xE4 ä, \337 ß, \x8A Š, \x9A š. A pattern covers the
// whole text; ß has no capital; binary, umlauts sort behind z; a dash at the end of a list is literal, an
// empty list consumes nothing; the required run "ha" of "*ha?s*" is found first.
TEST(LikePattern, MatchesByTheRule)
{
    const std::tuple<const char *, const char *, bool, bool> cases[] = { { "haus", "hause", false, false },
        { "haus", "Haus", false, false }, { "haus", "HAUS", true, true },
        { "*\xE4rger*", "d:\\\xC4RGER.txt|1|01.01.2000", true, true }, { "\x9A*", "\x8Akoda", true, true },
        { "stra\337e", "STRASSE", true, false }, { "[a-z]", "\xE4", false, false },
        { "*haus*", "d:\\Bilder\\hau.jpg", false, false }, { "d:\\*", "d:\\x", false, true },
        { "*.txt", "txt", false, false }, { "*", "", false, true }, { "", "", false, true },
        { "", "a", false, false }, { "h?us", "hus", false, false }, { "cd##", "cd07", false, true },
        { "cd##", "cd0x", false, false }, { "[!hm]aus", "laus", false, true },
        { "[!hm]aus", "haus", false, false }, { "[a-c]x", "bx", false, true }, { "[a-]x", "-x", false, true },
        { "a[*]b", "a*b", false, true }, { "a[*]b", "axb", false, false }, { "a[]b", "ab", false, true },
        { "a]", "a]", false, true }, { "*a*b*c", "xaxbxbxc", false, true },
        { "*a*b*c", "xaxbxbx", false, false }, { "*.[jg][pi][gf]", "bild.gif", false, true },
        { "[A-C]*", "beta", true, true }, { "*ha?s*", "das haus", false, true },
        { "*hal?s*", "das haus", false, false } };
    for (const auto &[pattern, text, folded, expected] : cases) {
        const LikePattern like(pattern, folded ? LikePattern::Case::Folded : LikePattern::Case::Binary);
        ASSERT_TRUE(like.isValid()) << pattern;
        EXPECT_EQ(like.matches(text), expected) << pattern << " ~ " << text << " folded " << folded;
    }
}

TEST(LikePattern, BadListsAreErrorsNotMatches)
{
    // The message of an unclosed list is the query test's.
    const LikePattern pattern("*[abc*");
    EXPECT_EQ(std::tuple(pattern.error(), pattern.matches("abc"), LikePattern("[z-a]").error()),
        std::tuple(LikePattern::Error::UnclosedBracket, false, LikePattern::Error::BadRange));
}
