#include "search/ImageLineMatcher.h"
#include "common/Cp1252.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// The lines of a text cut one by one at CR, an LF after the CR skipped: the plain reading
// that the buffer scan must agree with.
std::vector<std::string_view> plainLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find('\r', pos);
        if (end == std::string_view::npos)
            end = text.size();
        lines.push_back(text.substr(pos, end - pos));
        pos = end + 1;
        if (pos < text.size() && text[pos] == '\n')
            ++pos;
    }
    return lines;
}

TEST(ImageLineMatcher, FoldedMatchEqualsLowerCasingBothSides)
{
    // Every byte of the code page as the word against every byte as the line.
    for (int w = 1; w < 256; ++w) {
        const std::string word(1, static_cast<char>(w));
        if (word.find_first_of("*?#[") != std::string::npos)
            continue;
        const ImageLineMatcher folded("*" + word + "*", ImageLineMatcher::Part::WholeLine);
        const LikePattern lowered("*" + cp1252::lower(word) + "*", LikePattern::Case::Binary);
        for (int t = 1; t < 256; ++t) {
            const std::string line(1, static_cast<char>(t));
            ASSERT_EQ(folded.matchesLine(line), lowered.matches(cp1252::lower(line))) << w << " ~ " << t;
        }
    }
}

TEST(ImageLineMatcher, BufferScanAgreesWithLineByLineOnRandomTexts)
{
    const std::string alphabet = "hausHAUS\xE4\xC4|\\:.12\r\r\n\n";
    const char *const patterns[]
        = { "*haus*", "*h?us*", "*\xE4*", "*a|*", "*", "*s\r\nh*", "*#*", "h*", "*[au]s*" };
    std::mt19937 random(5);
    for (int round = 0; round < 3000; ++round) {
        std::string text(random() % 60, ' ');
        for (char &c : text)
            c = alphabet[random() % alphabet.size()];
        const auto part = round % 2 ? ImageLineMatcher::Part::WholeLine : ImageLineMatcher::Part::PathAndBar;
        const ImageLineMatcher matcher(patterns[random() % std::size(patterns)], part);
        std::vector<std::string_view> expected;
        for (std::string_view line : plainLines(text)) {
            if (matcher.matchesLine(line))
                expected.push_back(line);
        }
        std::vector<std::string_view> whole;
        matcher.scan(text, whole);
        ASSERT_EQ(whole, expected) << "text '" << text << "'";
        // Block by block, with blocks cut where blockEnd says, the lines stay the same.
        std::vector<std::string_view> blocked;
        const size_t blockSize = 1 + random() % 8;
        for (size_t from = 0; from < text.size();) {
            const size_t to = ImageLineMatcher::blockEnd(text, from, blockSize);
            ASSERT_GT(to, from);
            std::vector<std::string_view> part;
            matcher.scan(std::string_view(text).substr(from, to - from), part);
            for (std::string_view line : part) // views into the block are views into the text
                blocked.push_back(line);
            from = to;
        }
        ASSERT_EQ(blocked, expected) << "text '" << text << "' blocks of " << blockSize;
    }
}

} // namespace
