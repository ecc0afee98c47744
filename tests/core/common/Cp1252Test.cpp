#include "common/Cp1252.h"
#include "common/DateText.h"
#include "common/Numbers.h"

#include <gtest/gtest.h>

TEST(Cp1252, RoundTripsEveryDefinedByte)
{
    std::string all;
    for (int b = 1; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    EXPECT_EQ(cp1252::fromUtf8(cp1252::toUtf8(all)), all);
}

TEST(Cp1252, MapsTheSpecialsOfTheHighRange)
{
    EXPECT_EQ(cp1252::toUtf8("\x80"), "\u20AC");
    EXPECT_EQ(cp1252::fromUtf8("\u20AC \u201E \u0160"), "\x80 \x84 \x8A");
    EXPECT_EQ(cp1252::fromUtf8("M\u00FCller.doc"), "M\xFCller.doc");
}

TEST(Cp1252, UnmappableAndBrokenInputBecomeQuestionMarks)
{
    EXPECT_EQ(cp1252::fromUtf8("\u4E2D\u6587.txt"), "??.txt");
    EXPECT_EQ(cp1252::fromUtf8("a\xC3"), "a?");
    EXPECT_EQ(cp1252::fromUtf8("\xF0\x9F\x98\x80"), "?");
}

TEST(Cp1252, QStringEdge)
{
    EXPECT_EQ(cp1252::toQString("Gr\xF6\xDF" "e"), QStringLiteral("Größe"));
    EXPECT_EQ(cp1252::fromQString(QStringLiteral("Größe")), "Gr\xF6\xDF" "e");
}

TEST(Cp1252, LowerFoldsLettersOnly)
{
    EXPECT_EQ(cp1252::lower("ABC \xC4\xD6\xDC \xD7 \xDF \x8A\x8C\x8E\x9F"), "abc \xE4\xF6\xFC \xD7 \xDF \x9A\x9C\x9E\xFF");
}

TEST(Numbers, BankersRoundingTiesToEven)
{
    const std::pair<double, int64_t> cases[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {3.5, 4}, {-2.5, -2},
                                                {-1.5, -2}, {2.4999, 2}, {2.5001, 3}, {150.0, 150}};
    for (const auto &[value, expected] : cases)
        EXPECT_EQ(bankersRound(value), expected) << value;
}

TEST(Numbers, HashFormatDropsZero)
{
    EXPECT_EQ(formatHash(0), QString());
    EXPECT_EQ(formatHash(7), QStringLiteral("7"));
    EXPECT_EQ(formatHash(-12), QStringLiteral("-12"));
}

TEST(DateText, GermanFormAndMidnightRule)
{
    EXPECT_EQ(germanDateText({2002, 7, 28, 18, 2, 44}), "28.07.2002 18:02:44");
    EXPECT_EQ(germanDateText({2003, 2, 1, 0, 0, 0}), "01.02.2003");
    EXPECT_EQ(germanDateText({2003, 1, 19, 0, 12, 31}), "19.01.2003 00:12:31");
    EXPECT_EQ(germanDateText({1601, 1, 1, 0, 0, 0}), "01.01.1601");
}

TEST(DateText, UtcBreakdownIncludingBeforeTheEpoch)
{
    EXPECT_EQ(germanDateText(utcDateTime(1027879364)), "28.07.2002 18:02:44");
    EXPECT_EQ(germanDateText(utcDateTime(-11644473600LL)), "01.01.1601");
}
