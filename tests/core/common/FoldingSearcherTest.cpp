#include "common/FoldingSearcher.h"
#include "common/Cp1252.h"

#include <gtest/gtest.h>

#include <random>

TEST(FoldingSearcher, FindsWithAndWithoutCase)
{
    const std::string text = "d:\\Bilder\\HAUS.jpg|1|2\r\nd:\\haus";
    EXPECT_EQ(FoldingSearcher("haus", true).find(text), 10u);
    EXPECT_EQ(FoldingSearcher("haus", false).find(text), 27u);
    EXPECT_EQ(FoldingSearcher("haus", false).find(text, 28), std::string_view::npos);
    EXPECT_EQ(FoldingSearcher("zzz", true).find("zz"), std::string_view::npos);
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
