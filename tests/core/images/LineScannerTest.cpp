#include "images/LineScanner.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

// Each line with the offset of its last backslash.
using Lines = std::vector<std::pair<std::string, size_t>>;

Lines scanned(const std::string &data)
{
    Lines lines;
    linescanner::forEachLine(data.data(), data.size(),
        [&lines](std::string_view line, size_t lastBackslash) { lines.emplace_back(line, lastBackslash); });
    return lines;
}

// The rule written out plainly: a line ends at CR LF or a lone CR.
Lines reference(const std::string &data)
{
    Lines lines;
    std::string line;
    for (size_t i = 0; i < data.size(); ++i) {
        if (data[i] != '\r') {
            line += data[i];
            continue;
        }
        lines.emplace_back(line, line.rfind('\\'));
        line.clear();
        if (i + 1 < data.size() && data[i + 1] == '\n')
            ++i;
    }
    if (!line.empty())
        lines.emplace_back(line, line.rfind('\\'));
    return lines;
}

} // namespace

TEST(LineScanner, AgreesWithThePlainRuleOnEveryBlockEdgeAndOnRandomData)
{
    // Line ends and backslashes on and around the edges of the 64-byte blocks and of the
    // 4 KiB rounds, and at the very end: with CR LF, with a lone CR, with no end at all.
    for (const size_t at : { 0, 1, 62, 63, 64, 65, 127, 128, 4094, 4095, 4096, 4097, 8191, 8192 }) {
        for (const char *end : { "\r\n", "\r", "\r\r\n" }) {
            std::string data
                = std::string(at, 'a') + end + "d:\\x\\y|1|\nz" + std::string(70, 'b') + "\\\r\n";
            for (int cut = 0; cut < 3; ++cut, data.pop_back())
                EXPECT_EQ(scanned(data), reference(data)) << at << " " << end << " cut " << cut;
        }
    }
    std::mt19937 random(11);
    const char alphabet[] = { 'a', '\\', '\r', '\n', '|', '>' };
    for (int round = 0; round < 50; ++round) {
        std::string data(random() % 9000, ' ');
        for (char &c : data)
            c = random() % 4 ? 'x' : alphabet[random() % sizeof alphabet];
        ASSERT_EQ(scanned(data), reference(data)) << round;
    }
}
