#include "images/CaptureFilter.h"

#include <gtest/gtest.h>

TEST(CaptureFilter, CutsALeadingStarUpToTheFirstDot)
{
    const struct
    {
        const char *typed;
        const char *cut;
    } cases[] = {
        { "*.txt", "txt" },
        { "*.*", "*" },
        { "*", "*" },
        { "*.tar.gz", "tar.gz" },
        { "*abc", "*abc" },
        { "a*.txt", "a*.txt" },
        { "", "" },
        { "txt", "txt" },
    };
    for (const auto &c : cases)
        EXPECT_EQ(CaptureFilter::cutFilter(c.typed), c.cut) << c.typed;
}

TEST(CaptureFilter, MatchesTheUpperCasedFilterAnywhereInTheUpperCasedName)
{
    // Names and filters in code page 1252 bytes: \xDF ß, \xE4 ä, \xC4 Ä, \xFF ÿ, \x9F Ÿ.
    const struct
    {
        const char *filter;
        const char *name;
        bool passes;
    } cases[] = {
        { "*.txt", "notiz.txt", true },
        { "*.txt", "NOTIZ.TXT", true },
        { "*.TXT", "notiz.txt", true },
        { "*.txt", "bild.jpg", false },
        { "*.txt", "txtliste.doc", true }, // only "txt" is left of the filter
        { "*.txt", "a.txt.bak", true },
        { "a*.txt", "Daten.txt", true }, // no leading star: the dot stays, an inner "a" is enough
        { "a*.txt", "Daten_txt", false },
        { "*.mp#", "lied.mp3", true },
        { "*.mp#", "lied.mpx", false },
        { "*.[jt]*", "haus.jpg", true },
        { "*.[!jt]*", "jt", false },
        { "*.*", "", true }, // the nameless line of an unreadable folder
        { "*", "", true },
        { "*.txt", "", false },
        { "", "", true }, // "**" matches everything, the empty name too
        { "", "beliebig.bin", true },
        { "*stra\xDF"
          "e*",
            "STRA\xDF"
            "E.txt",
            true },
        { "*\xE4rger*", "\xC4RGER.doc", true },
        { "*\xFF*", "\x9F", true },
    };
    for (const auto &c : cases) {
        const CaptureFilter filter(c.filter);
        ASSERT_TRUE(filter.errorMessage().isEmpty()) << c.filter;
        EXPECT_EQ(filter.passes(c.name), c.passes) << c.filter << " ~ " << c.name;
    }
}

TEST(CaptureFilter, APatternThatCannotBeMatchedHasAGermanMessage)
{
    // "[_-z]" upper-cased is "[_-Z]", a range running backwards: the name side and the filter
    // side are both upper-cased, never lower-cased.
    const char *const refused[] = { "*.[", "[abc", "*.[_-z]", "*.[z-a]" };
    for (const char *typed : refused) {
        const CaptureFilter filter(typed);
        EXPECT_TRUE(filter.errorMessage().startsWith(QStringLiteral("Ungültiges Suchmuster"))) << typed;
        EXPECT_FALSE(filter.passes("a")) << typed;
    }
    EXPECT_TRUE(CaptureFilter("*.[a-z]").errorMessage().isEmpty());
}
