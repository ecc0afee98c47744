#include "images/LineScanner.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

struct Line
{
    std::string text;
    size_t lastBackslash;
    bool operator==(const Line &) const = default;
};

std::vector<Line> scanned(const std::string &data)
{
    std::vector<Line> lines;
    linescanner::forEachLine(data.data(), data.size(), [&lines](std::string_view line, size_t lastBackslash) {
        lines.push_back({ std::string(line), lastBackslash });
    });
    return lines;
}

// The rule written out plainly: a line ends at CR LF or a lone CR.
std::vector<Line> reference(const std::string &data)
{
    std::vector<Line> lines;
    std::string line;
    const auto finish = [&] {
        lines.push_back({ line, line.rfind('\\') });
        line.clear();
    };
    for (size_t i = 0; i < data.size(); ++i) {
        if (data[i] == '\r') {
            finish();
            if (i + 1 < data.size() && data[i + 1] == '\n')
                ++i;
        } else {
            line += data[i];
        }
    }
    if (!line.empty())
        finish();
    return lines;
}

} // namespace

TEST(LineScanner, LineEndsAndBackslashesOnEveryBlockEdge)
{
    // Line ends and backslashes placed on and around the edges of the 64-byte blocks and
    // of the 4 KiB rounds, and at the very end.
    for (const size_t at : { 0, 1, 62, 63, 64, 65, 127, 128, 4094, 4095, 4096, 4097, 8191, 8192 }) {
        for (const char *end : { "\r\n", "\r", "\r\r\n" }) {
            std::string data(at, 'a');
            data += end;
            data += "d:\\x\\y|1|\nz";
            data += std::string(70, 'b');
            data += "\\";
            data += "\r\n";
            EXPECT_EQ(scanned(data), reference(data)) << at << " " << end;
            data.pop_back(); // ends in a lone CR
            EXPECT_EQ(scanned(data), reference(data)) << at << " lone CR at the end";
            data.pop_back(); // no line end at all
            EXPECT_EQ(scanned(data), reference(data)) << at << " no end";
        }
    }
}

TEST(LineScanner, AgreesWithThePlainRuleOnRandomData)
{
    std::mt19937 random(11);
    const char alphabet[] = { 'a', '\\', '\r', '\n', '|', '>' };
    for (int round = 0; round < 50; ++round) {
        std::string data(random() % 9000, ' ');
        for (char &c : data)
            c = random() % 4 ? 'x' : alphabet[random() % sizeof alphabet];
        ASSERT_EQ(scanned(data), reference(data)) << round;
    }
}

TEST(LineScanner, LastLineEndNeedsTheByteAfterACr)
{
    struct Case
    {
        const char *name;
        std::string data;
        size_t from;
        size_t expected;
    };
    const Case cases[] = {
        { "no CR", "abc", 0, 0 },
        { "CR LF", "ab\r\ncd", 0, 4 },
        { "lone CR", "ab\rcd", 0, 3 },
        { "CR as the last byte may still get its LF", "ab\r\ncd\r", 0, 4 },
        { "only a CR at the end", "abc\r", 0, 0 },
        { "the last of several", "a\r\nb\r\nc", 0, 6 },
        { "from the middle", "a\r\nb\r\nc", 3, 6 },
        { "nothing after from", "a\r\nb", 3, 3 },
    };
    for (const Case &c : cases)
        EXPECT_EQ(linescanner::lastLineEnd(c.data.data(), c.from, c.data.size()), c.expected) << c.name;
}
