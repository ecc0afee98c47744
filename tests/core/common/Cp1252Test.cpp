#include "common/Cp1252.h"

#include <gtest/gtest.h>

TEST(Cp1252, RoundTripsEveryDefinedByteAndMapsTheHighRange)
{
    std::string all;
    for (int b = 1; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    EXPECT_EQ(cp1252::fromUtf8(cp1252::toUtf8(all)), all);
    EXPECT_EQ(cp1252::toUtf8("\x80"), "\u20AC");
    EXPECT_EQ(cp1252::fromUtf8("\u20AC \u201E \u0160 M\u00FCller"), "\x80 \x84 \x8A M\xFCller");
    EXPECT_EQ(cp1252::toQString("Gr\366\337e"), QStringLiteral("Größe"));
    EXPECT_EQ(cp1252::fromQString(QStringLiteral("Größe")), "Gr\366\337e");
}

// Characters outside the code page and broken UTF-8 each become one "?".
TEST(Cp1252, UnmappableAndBrokenInputBecomeQuestionMarks)
{
    EXPECT_EQ(cp1252::fromUtf8("\u4E2D\u6587.txt"), "??.txt");
    EXPECT_EQ(cp1252::fromUtf8("a\xC3"), "a?");
    EXPECT_EQ(cp1252::fromUtf8("\xF0\x9F\x98\x80"), "?");
}

TEST(Cp1252, LowerFoldsLettersOnly)
{
    EXPECT_EQ(cp1252::lower("ABC \xC4\xD6\xDC \xD7 \xDF \x8A\x8C\x8E\x9F"),
        "abc \xE4\xF6\xFC \xD7 \xDF \x9A\x9C\x9E\xFF");
}
