#include "search/HitList.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(HitList, KeepsEntriesInOrderAcrossBlocksAndMerges)
{
    // Long lines fill several blocks; a line longer than a block gets one of its own.
    const std::string longLine(3 << 20, 'x');
    HitList first;
    HitList second;
    std::vector<std::string> expected;
    for (int i = 0; i < 30000; ++i) {
        const std::string line
            = "d:\\ordner\\datei" + std::to_string(i) + std::string(static_cast<size_t>(i % 97), 'a');
        first.append("1-Eins<", line);
        expected.push_back("1-Eins<" + line);
    }
    second.append("2-Zwei<", longLine);
    second.append("2-Zwei<", "");
    first.append(std::move(second));
    expected.push_back("2-Zwei<" + longLine);
    expected.push_back("2-Zwei<");
    first.append("3-Drei<", "d:\\x|1|2");
    expected.push_back("3-Drei<d:\\x|1|2");

    EXPECT_TRUE(second.empty());
    ASSERT_EQ(first.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(first[i], expected[i]) << i;
}

} // namespace
