#include "images/CaptureFilter.h"

#include <gtest/gtest.h>

TEST(CaptureFilter, MatchesTheUpperCasedFilterAnywhereInTheUpperCasedName)
{
    // Only "txt" is left of "*.txt"; without a leading star the dot stays; the nameless line
    // of an unreadable folder passes "*.*"; "" is "**". Code page 1252: \344 ä, \304 Ä.
    const std::tuple<const char *, const char *, bool> cases[] = { { "*.TXT", "notiz.txt", true },
        { "*.txt", "bild.jpg", false }, { "*.txt", "txtliste.doc", true }, { "a*.txt", "Daten.txt", true },
        { "a*.txt", "Daten_txt", false }, { "*.[jt]*", "haus.jpg", true }, { "*.*", "", true },
        { "*.txt", "", false }, { "", "beliebig.bin", true }, { "*\344rger*", "\304RGER.doc", true } };
    for (const auto &[typed, name, passes] : cases) {
        const CaptureFilter filter(typed);
        ASSERT_TRUE(filter.errorMessage().isEmpty()) << typed;
        EXPECT_EQ(filter.passes(name), passes) << typed << " ~ " << name;
    }
    // "[_-z]" upper-cased runs backwards: both sides are upper-cased, never lower-cased.
    for (const char *typed : { "*.[", "*.[_-z]" }) {
        const CaptureFilter filter(typed);
        EXPECT_TRUE(filter.errorMessage().startsWith(QStringLiteral("Ungültiges Suchmuster"))) << typed;
        EXPECT_FALSE(filter.passes("a")) << typed;
    }
}
