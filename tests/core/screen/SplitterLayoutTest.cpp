#include "screen/SplitterLayout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

// The main window at its stored default size: 12240 by 7575 twips outside, a client area a
// little smaller.
const SplitterWindow defaultWindow { 12000, 6900, 12240 };

SplitterLayout dragTo(float barLeft, const SplitterWindow &window = defaultWindow)
{
    const SplitterLimits limits = SplitterLimits::mainWindow();
    const SplitterLayout start = initialSplitterLayout(limits, 3000, window);
    return layoutSplitter(limits, barLeft, window, start.left, start.right);
}

} // namespace

TEST(SplitterLayout, MainWindowLimits)
{
    const SplitterLimits limits = SplitterLimits::mainWindow();
    EXPECT_EQ(limits.fromTopMin, 670);
    EXPECT_EQ(limits.fromLeftMin, 60);
    EXPECT_EQ(limits.fromRightMin, 60);
    EXPECT_EQ(limits.fromBottomMin, 100);
    EXPECT_EQ(limits.objectRightMinWidth, 8500);
    EXPECT_EQ(limits.objectLeftMinWidth, 300);
    EXPECT_EQ(limits.splitterWidth, 100);
}

TEST(SplitterLayout, DragEndsAreClampedToTheLimits)
{
    struct Case
    {
        const char *name;
        float dragged;
        float expectedBar;
    };
    const Case cases[] = {
        { "far left stops at the left margin plus the left minimum", -5000, 360 },
        { "just inside the left limit stays", 361, 361 },
        { "inside the range stays", 2000, 2000 },
        { "far right stops at the outer width less the right minimum and the frame", 20000,
            12240 - 8500 - 260 },
    };
    for (const Case &c : cases) {
        const SplitterLayout layout = dragTo(c.dragged);
        EXPECT_FLOAT_EQ(layout.barLeft, c.expectedBar) << c.name;
        EXPECT_FLOAT_EQ(layout.left.left, 60) << c.name;
        EXPECT_FLOAT_EQ(layout.left.width, c.expectedBar - 60) << c.name;
        EXPECT_FLOAT_EQ(layout.right.left, c.expectedBar + 100) << c.name;
        // The right pane fills the client area, but never below its least width.
        EXPECT_FLOAT_EQ(layout.right.width, std::max(8500.0f, 12000 - 60 - (c.expectedBar + 100))) << c.name;
    }
}

TEST(SplitterLayout, PanesTakeTheHeightBetweenTheMargins)
{
    const SplitterLayout layout = dragTo(2000);
    EXPECT_FLOAT_EQ(layout.left.top, 670);
    EXPECT_FLOAT_EQ(layout.left.height, 6900 - 670 - 100);
    EXPECT_FLOAT_EQ(layout.right.top, 670);
    EXPECT_FLOAT_EQ(layout.right.height, layout.left.height);
}

TEST(SplitterLayout, RightLimitWinsOverTheLeftMinimumInANarrowWindow)
{
    // 9000 outside: the right limit (240) lies left of the left minimum (360).
    const SplitterLayout layout = dragTo(1000, { 8800, 5000, 9000 });
    EXPECT_FLOAT_EQ(layout.barLeft, 240);
    // The right pane keeps its least width and runs past the client area.
    EXPECT_FLOAT_EQ(layout.right.width, 8500);
}

TEST(SplitterLayout, RoomTestUsesTheLeftMinimumOnBothSides)
{
    // No right limit; the room test alone keeps the bar at least two left minimums away
    // from the right margin.
    SplitterLimits limits;
    limits.objectRightMinWidth = 0;
    const SplitterWindow window { 3000, 2000, 3200 };
    const SplitterLayout layout = layoutSplitter(limits, 2500, window, {}, {});
    EXPECT_FLOAT_EQ(layout.left.width, 3000 - 300 - 0);
    EXPECT_FLOAT_EQ(layout.barLeft, 2700);
    const SplitterLayout inside = layoutSplitter(limits, 2400, window, {}, {});
    EXPECT_FLOAT_EQ(inside.barLeft, 2400);
}

TEST(SplitterLayout, DegenerateSizesKeepTheCurrentBoxes)
{
    SplitterLimits limits;
    limits.objectRightMinWidth = 0;
    limits.fromTopMin = 500;
    limits.splitterWidth = 800;
    const PaneBox leftNow { 0, 0, 100, 777 };
    const PaneBox rightNow { 0, 0, 555, 777 };
    // The client area is lower than the top margin, and too narrow for a right pane.
    const SplitterLayout layout = layoutSplitter(limits, 400, { 700, 300, 900 }, leftNow, rightNow);
    EXPECT_FLOAT_EQ(layout.left.height, 777);
    EXPECT_FLOAT_EQ(layout.right.width, 555);
}
