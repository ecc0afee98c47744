#include "common/LikePattern.h"

#include <gtest/gtest.h>

// Umlauts written as code page 1252 bytes: \xC4 Ä, \xE4 ä, \xDF ß, \x8A Š, \x9A š.
TEST(LikePattern, MatchesByTheRule)
{
    const struct
    {
        const char *pattern, *text;
        bool folded, expected;
    } cases[] = {
        { "haus", "hause", false, false }, // the whole text
        { "haus", "Haus", false, false },
        { "haus", "HAUS", true, true },
        { "*\xE4rger*", "d:\\\xC4RGER.txt|1|01.01.2000", true, true },
        { "\x9A*",
            "\x8A"
            "koda",
            true, true },
        { "stra\xDF"
          "e",
            "STRASSE", true, false }, // ß has no capital
        { "[a-z]", "\xE4", false, false }, // binary: umlauts sort behind z
        { "*haus*", "d:\\Bilder\\hau.jpg", false, false },
        { "d:\\*", "d:\\x", false, true },
        { "*.txt", "txt", false, false },
        { "*", "", false, true },
        { "", "", false, true },
        { "", "a", false, false },
        { "h?us", "hus", false, false },
        { "cd##", "cd07", false, true },
        { "cd##", "cd0x", false, false },
        { "[!hm]aus", "laus", false, true },
        { "[!hm]aus", "haus", false, false },
        { "[a-c]x", "bx", false, true },
        { "[a-]x", "-x", false, true }, // a dash at the end is literal
        { "a[*]b", "a*b", false, true },
        { "a[*]b", "axb", false, false },
        { "a[]b", "ab", false, true }, // an empty list consumes nothing
        { "a]", "a]", false, true },
        { "*a*b*c", "xaxbxbxc", false, true },
        { "*a*b*c", "xaxbxbx", false, false },
        { "*.[jg][pi][gf]", "bild.gif", false, true },
        { "[A-C]*", "beta", true, true },
        { "*ha?s*", "das haus", false, true }, // the required run "ha" is found first
        { "*hal?s*", "das haus", false, false },
    };
    for (const auto &c : cases) {
        const LikePattern pattern(
            c.pattern, c.folded ? LikePattern::Case::Folded : LikePattern::Case::Binary);
        ASSERT_TRUE(pattern.isValid()) << c.pattern;
        EXPECT_EQ(pattern.matches(c.text), c.expected)
            << c.pattern << " ~ " << c.text << " folded " << c.folded;
    }
}

TEST(LikePattern, BadListsAreErrorsNotMatches)
{
    const LikePattern pattern("*[abc*");
    EXPECT_EQ(pattern.error(), LikePattern::Error::UnclosedBracket);
    EXPECT_FALSE(pattern.matches("abc"));
    EXPECT_FALSE(likeErrorMessage(pattern.error()).isEmpty());
    EXPECT_EQ(LikePattern("[z-a]").error(), LikePattern::Error::BadRange);
}
