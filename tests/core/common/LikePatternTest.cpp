#include "common/LikePattern.h"

#include "common/Cp1252.h"

#include <gtest/gtest.h>

#include <random>

namespace {

struct LikeCase
{
    const char *name;
    const char *pattern;
    const char *text;
    bool folded;
    bool expected;
};

class LikeMatch : public ::testing::TestWithParam<LikeCase>
{
};

TEST_P(LikeMatch, AgreesWithTheRule)
{
    const LikeCase &c = GetParam();
    const LikePattern pattern(c.pattern, c.folded ? LikePattern::Case::Folded : LikePattern::Case::Binary);
    ASSERT_TRUE(pattern.isValid());
    EXPECT_EQ(pattern.matches(c.text), c.expected) << c.pattern << " ~ " << c.text;
}

// Umlauts written as code page 1252 bytes: \xC4 Ä, \xE4 ä, \xDF ß, \x8A Š, \x9A š.
const LikeCase kCases[] = {
    {"exact", "haus", "haus", false, true},
    {"exactIsWhole", "haus", "hause", false, false},
    {"binaryRespectsCase", "haus", "Haus", false, false},
    {"foldedIgnoresCase", "haus", "HAUS", true, true},
    {"foldedUmlaut", "*\xE4rger*", "d:\\\xC4RGER.txt|1|01.01.2000", true, true},
    {"foldedCaronPair", "\x9A*", "\x8A" "koda", true, true},
    {"sharpSHasNoCapital", "stra\xDF" "e", "STRASSE", true, false},
    {"binaryUmlautAfterZ", "[a-z]", "\xE4", false, false},
    {"contains", "*haus*", "d:\\Bilder\\haus.jpg|1|2", false, true},
    {"containsMiss", "*haus*", "d:\\Bilder\\hau.jpg", false, false},
    {"prefix", "d:\\*", "d:\\x", false, true},
    {"suffix", "*.txt", "liesmich.txt", false, true},
    {"suffixTooShort", "*.txt", "txt", false, false},
    {"starAlone", "*", "", false, true},
    {"emptyPatternEmptyText", "", "", false, true},
    {"emptyPatternText", "", "a", false, false},
    {"questionOne", "h?us", "haus", false, true},
    {"questionNeedsOne", "h?us", "hus", false, false},
    {"digit", "cd##", "cd07", false, true},
    {"digitRefusesLetter", "cd##", "cd0x", false, false},
    {"list", "[hm]aus", "maus", false, true},
    {"listMiss", "[hm]aus", "laus", false, false},
    {"negatedList", "[!hm]aus", "laus", false, true},
    {"negatedListMiss", "[!hm]aus", "haus", false, false},
    {"range", "[a-c]x", "bx", false, true},
    {"dashAtEndIsLiteral", "[a-]x", "-x", false, true},
    {"bracketedStarIsLiteral", "a[*]b", "a*b", false, true},
    {"bracketedStarNotWildcard", "a[*]b", "axb", false, false},
    {"emptyListConsumesNothing", "a[]b", "ab", false, true},
    {"closingBracketAloneIsLiteral", "a]", "a]", false, true},
    {"backtracking", "*a*b*c", "xaxbxbxc", false, true},
    {"backtrackingMiss", "*a*b*c", "xaxbxbx", false, false},
    {"starThenList", "*.[jg][pi][gf]", "bild.gif", false, true},
    {"foldedList", "[A-C]*", "beta", true, true},
    {"generalWithRequiredRun", "*ha?s*", "das haus", false, true},
    {"generalRequiredRunMissing", "*hal?s*", "das haus", false, false},
};

INSTANTIATE_TEST_SUITE_P(Cases, LikeMatch, ::testing::ValuesIn(kCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(LikePattern, UnclosedBracketIsAnErrorNotACrash)
{
    const LikePattern pattern("*[abc*");
    EXPECT_EQ(pattern.error(), LikePattern::Error::UnclosedBracket);
    EXPECT_FALSE(pattern.matches("abc"));
    EXPECT_FALSE(likeErrorMessage(pattern.error()).isEmpty());
}

TEST(LikePattern, ReversedRangeIsAnError)
{
    EXPECT_EQ(LikePattern("[z-a]").error(), LikePattern::Error::BadRange);
}

TEST(LikePattern, RequiredRunIsTheLongestLiteral)
{
    const LikePattern pattern("*a?haus*x", LikePattern::Case::Folded);
    EXPECT_EQ(pattern.requiredRun().needle(), "haus");
}

} // namespace

namespace {

// The rule in its plainest form, on already folded texts: slow, but obviously right.
bool reference(std::string_view pattern, std::string_view text)
{
    if (pattern.empty())
        return text.empty();
    const char p = pattern.front();
    if (p == '*')
        return reference(pattern.substr(1), text) || (!text.empty() && reference(pattern, text.substr(1)));
    if (text.empty())
        return false;
    const char t = text.front();
    bool fits = p == t;
    if (p == '?')
        fits = true;
    else if (p == '#')
        fits = t >= '0' && t <= '9';
    return fits && reference(pattern.substr(1), text.substr(1));
}

} // namespace

TEST(LikePattern, AgreesWithTheReferenceOnRandomPatterns)
{
    const std::string textAlphabet = "abAB1\xE4\xC4";
    const std::string patternAlphabet = "abAB1\xE4\xC4*?#";
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string pattern(random() % 7, ' ');
        for (char &c : pattern)
            c = patternAlphabet[random() % patternAlphabet.size()];
        std::string text(random() % 9, ' ');
        for (char &c : text)
            c = textAlphabet[random() % textAlphabet.size()];
        const bool folded = random() % 2 == 0;
        const LikePattern like(pattern, folded ? LikePattern::Case::Folded : LikePattern::Case::Binary);
        const bool expected = folded ? reference(cp1252::lower(pattern), cp1252::lower(text)) : reference(pattern, text);
        ASSERT_EQ(like.matches(text), expected) << "'" << pattern << "' ~ '" << text << "' folded " << folded;
    }
}
