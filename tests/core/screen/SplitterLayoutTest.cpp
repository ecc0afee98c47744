#include "screen/SplitterLayout.h"

#include <gtest/gtest.h>

TEST(SplitterLayout, MainWindowDragEndsAreClampedAndPanesFillTheClientArea)
{
    // The main window at its stored default size (12240 twips outside) and a narrow one,
    // where the right limit (9000 - 8500 - 260 = 240) lies left of the left minimum (360)
    // and wins. The right pane keeps its least width of 8500, running past a narrow client
    // area; the left pane starts at the margin of 60, the right one behind the 100 wide bar.
    const struct
    {
        const char *why;
        float dragged;
        SplitterWindow window;
        float bar, rightWidth;
    } cases[] = {
        { "far left stops at the margin plus the left minimum", -5000, { 12000, 6900, 12240 }, 360, 11480 },
        { "just inside the left limit", 361, { 12000, 6900, 12240 }, 361, 11479 },
        { "far right stops at the right limit", 20000, { 12000, 6900, 12240 }, 12240 - 8500 - 260, 8500 },
        { "narrow window", 1000, { 8800, 5000, 9000 }, 240, 8500 },
    };
    const SplitterLimits limits = SplitterLimits::mainWindow();
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const SplitterLayout start = initialSplitterLayout(limits, 3000, c.window);
        const SplitterLayout layout = layoutSplitter(limits, c.dragged, c.window, start.left, start.right);
        EXPECT_FLOAT_EQ(layout.barLeft, c.bar);
        EXPECT_FLOAT_EQ(layout.left.left, 60);
        EXPECT_FLOAT_EQ(layout.left.width, c.bar - 60);
        EXPECT_FLOAT_EQ(layout.right.left, c.bar + 100);
        EXPECT_FLOAT_EQ(layout.right.width, c.rightWidth);
        // Both panes take the height between the top margin of 670 and the bottom one of 100.
        for (const PaneBox &pane : { layout.left, layout.right }) {
            EXPECT_FLOAT_EQ(pane.top, 670);
            EXPECT_FLOAT_EQ(pane.height, c.window.innerHeight - 670 - 100);
        }
    }
}
