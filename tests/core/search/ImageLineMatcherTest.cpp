#include "search/ImageLineMatcher.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string_view>;

// Blocks cut where blockEnd says give the lines of the whole text, whatever the block size,
// a CR LF split across the cut included.
TEST(ImageLineMatcher, BlockByBlockScanGivesTheLinesOfTheWhole)
{
    const std::string_view text = "Haus|1\r\nx\nhaus\r\rBaum\r\n\r\nHAUS\r\nhaus";
    const ImageLineMatcher matcher("*haus*", ImageLineMatcher::Part::WholeLine);
    Lines whole;
    matcher.scan(text, whole);
    ASSERT_EQ(whole, (Lines { "Haus|1", "x\nhaus", "HAUS", "haus" }));
    for (size_t blockSize = 1; blockSize <= 9; ++blockSize) {
        Lines blocked;
        for (size_t from = 0; from < text.size();) {
            const size_t to = ImageLineMatcher::blockEnd(text, from, blockSize);
            ASSERT_GT(to, from);
            matcher.scan(text.substr(from, to - from), blocked);
            from = to;
        }
        EXPECT_EQ(blocked, whole) << "blocks of " << blockSize;
    }
}

} // namespace
