#include "common/Cp1252.h"
#include "common/FoldingSearcher.h"

#include <gtest/gtest.h>

#include <random>

// Broken UTF-8 and each character outside the code page become one "?"; lower-casing folds
// letters only. Names with such characters are the ZIP, RAR and capture tests'.
TEST(Cp1252, RoundTripsEveryDefinedByteMapsTheHighRangeAndFoldsLettersOnly)
{
    std::string all;
    for (int b = 1; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    EXPECT_EQ(cp1252::fromUtf8(cp1252::toUtf8(all)), all);
    EXPECT_EQ(cp1252::toUtf8("\x80"), "\u20AC");
    EXPECT_EQ(cp1252::fromUtf8("\u20AC \u201E \u0160 M\u00FCller \xF0\x9F\x98\x80 a\xC3"),
        "\x80 \x84 \x8A M\xFCller ? a?");
    EXPECT_EQ(cp1252::toQString("Gr\366\337e"), QStringLiteral("Größe"));
    EXPECT_EQ(cp1252::fromQString(QStringLiteral("Größe")), "Gr\366\337e");
    EXPECT_EQ(cp1252::lower("ABC \xC4\xD6\xDC \xD7 \xDF \x8A\x8C\x8E\x9F"),
        "abc \xE4\xF6\xFC \xD7 \xDF \x9A\x9C\x9E\xFF");
}

TEST(FoldingSearcher, AgreesWithAPlainSearchEverywhere)
{
    // A small alphabet with both cases of plain and accented letters makes many near misses,
    // so hits straddle the sixteen-byte blocks and the tail of the text.
    const std::string alphabet = "aAbB\xE4\xC4\x9A\x8A|.";
    std::mt19937 random(7);
    const auto draw = [&](size_t length) {
        std::string s(length, ' ');
        for (char &c : s)
            c = alphabet[random() % alphabet.size()];
        return s;
    };
    for (int round = 0; round < 1000; ++round) {
        const std::string text = draw(random() % 70), needle = draw(1 + random() % 5);
        const bool folded = random() % 2 == 0;
        const size_t from = text.empty() ? 0 : random() % text.size();
        const size_t plain
            = folded ? cp1252::lower(text).find(cp1252::lower(needle), from) : text.find(needle, from);
        ASSERT_EQ(FoldingSearcher(needle, folded).find(text, from), plain)
            << "text '" << text << "' needle '" << needle << "' folded " << folded << " from " << from;
    }
}
