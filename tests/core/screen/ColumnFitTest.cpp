#include "screen/ColumnFit.h"

#include <gtest/gtest.h>

#include <array>

// The widths a list gives its columns: a whole column is never narrower than its widest text,
// the column that takes the rest gets what is left, and never less than its minimum.
TEST(ColumnFit, WholeColumnsKeepTheirWidestTextAndOneColumnTakesTheRest)
{
    // widest texts of three columns: name 300, size 60, date 130
    const auto widest = [](int column) { return std::array { 300, 60, 130 }[static_cast<size_t>(column)]; };
    const ColumnNeed fileList[] = { { .takesRest = true }, { .whole = true }, { .whole = true } };
    const ColumnNeed results[] = { { .share = 100 }, { .share = 100 }, { .share = 80, .whole = true } };
    const ColumnNeed wideShare[] = { { .share = 100 }, { .share = 100 }, { .share = 200, .whole = true } };
    // why, the list's width, the columns, the widths
    const std::tuple<const char *, int, std::span<const ColumnNeed>, std::vector<int>> cases[] = {
        { "name takes the rest", 500, fileList, { 310, 60, 130 } },
        { "name keeps its minimum in a narrow list", 200, fileList, { 40, 60, 130 } },
        { "a share narrower than the date grows to its text", 280, results, { 100, 100, 130 } },
        { "a share wider than the date stays", 400, wideShare, { 100, 100, 200 } },
    };
    for (const auto &[why, available, needs, widths] : cases) {
        SCOPED_TRACE(why);
        EXPECT_EQ(fitColumns(available, needs, widest, 40), widths);
    }
}
