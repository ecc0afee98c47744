#include "common/Cp1252.h"
#include "common/FoldingSearcher.h"

#include <gtest/gtest.h>

#include <random>

namespace {

size_t naiveFind(std::string_view text, std::string_view needle, bool folded, size_t from)
{
    for (size_t pos = from; pos + needle.size() <= text.size(); ++pos) {
        bool same = true;
        for (size_t k = 0; k < needle.size() && same; ++k) {
            char a = text[pos + k];
            char b = needle[k];
            if (folded) {
                a = cp1252::toLower(a);
                b = cp1252::toLower(b);
            }
            same = a == b;
        }
        if (same)
            return pos;
    }
    return std::string_view::npos;
}

} // namespace

TEST(FoldingSearcher, FindsWithAndWithoutCase)
{
    const std::string text = "d:\\Bilder\\HAUS.jpg|1|2\r\nd:\\haus";
    EXPECT_EQ(FoldingSearcher("haus", true).find(text), 10u);
    EXPECT_EQ(FoldingSearcher("haus", false).find(text), 27u);
    EXPECT_EQ(FoldingSearcher("haus", false).find(text, 28), std::string_view::npos);
    EXPECT_EQ(FoldingSearcher("|", false).find(text), 18u);
    EXPECT_EQ(FoldingSearcher("zzz", true).find("zz"), std::string_view::npos);
}

TEST(FoldingSearcher, AgreesWithANaiveSearchEverywhere)
{
    // A small alphabet with both cases of plain and accented letters makes many near misses,
    // so hits straddle the sixteen-byte blocks and the tail of the text.
    const std::string alphabet = "aAbB\xE4\xC4\x9A\x8A|.";
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string text(random() % 70, ' ');
        for (char &c : text)
            c = alphabet[random() % alphabet.size()];
        std::string needle(1 + random() % 5, ' ');
        for (char &c : needle)
            c = alphabet[random() % alphabet.size()];
        const bool folded = random() % 2 == 0;
        const size_t from = text.empty() ? 0 : random() % text.size();
        ASSERT_EQ(FoldingSearcher(needle, folded).find(text, from), naiveFind(text, needle, folded, from))
            << "text '" << text << "' needle '" << needle << "' folded " << folded << " from " << from;
    }
}
