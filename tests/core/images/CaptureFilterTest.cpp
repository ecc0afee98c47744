#include "images/CaptureFilter.h"

#include <gtest/gtest.h>

TEST(CaptureFilter, CutsALeadingStarUpToTheFirstDot)
{
    const std::pair<const char *, const char *> cases[] = { { "*.txt", "txt" }, { "*.*", "*" }, { "*", "*" },
        { "*.tar.gz", "tar.gz" }, { "*abc", "*abc" }, { "a*.txt", "a*.txt" }, { "", "" }, { "txt", "txt" } };
    for (const auto &[typed, cut] : cases)
        EXPECT_EQ(CaptureFilter::cutFilter(typed), cut) << typed;
}

TEST(CaptureFilter, MatchesTheUpperCasedFilterAnywhereInTheUpperCasedName)
{
    // Only "txt" is left of "*.txt"; without a leading star the dot stays and an inner "a"
    // is enough; the nameless line of an unreadable folder passes "*.*"; "" is "**".
    // Code page 1252 in octal: \337 ß, \344 ä, \304 Ä, \377 ÿ, \237 Ÿ.
    const std::tuple<const char *, const char *, bool> cases[] = { { "*.txt", "notiz.txt", true },
        { "*.txt", "NOTIZ.TXT", true }, { "*.TXT", "notiz.txt", true }, { "*.txt", "bild.jpg", false },
        { "*.txt", "txtliste.doc", true }, { "a*.txt", "Daten.txt", true }, { "a*.txt", "Daten_txt", false },
        { "*.mp#", "lied.mp3", true }, { "*.mp#", "lied.mpx", false }, { "*.[jt]*", "haus.jpg", true },
        { "*.[!jt]*", "jt", false }, { "*.*", "", true }, { "*.txt", "", false },
        { "", "beliebig.bin", true }, { "*stra\337e*", "STRA\337E.txt", true },
        { "*\344rger*", "\304RGER.doc", true }, { "*\377*", "\237", true } };
    for (const auto &[typed, name, passes] : cases) {
        const CaptureFilter filter(typed);
        ASSERT_TRUE(filter.errorMessage().isEmpty()) << typed;
        EXPECT_EQ(filter.passes(name), passes) << typed << " ~ " << name;
    }
}

TEST(CaptureFilter, APatternThatCannotBeMatchedHasAGermanMessage)
{
    // "[_-z]" upper-cased is "[_-Z]", a range running backwards: the name side and the filter
    // side are both upper-cased, never lower-cased.
    for (const char *typed : { "*.[", "[abc", "*.[_-z]", "*.[z-a]" }) {
        const CaptureFilter filter(typed);
        EXPECT_TRUE(filter.errorMessage().startsWith(QStringLiteral("Ungültiges Suchmuster"))) << typed;
        EXPECT_FALSE(filter.passes("a")) << typed;
    }
    EXPECT_TRUE(CaptureFilter("*.[a-z]").errorMessage().isEmpty());
}
