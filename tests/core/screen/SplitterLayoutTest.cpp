#include "screen/SplitterLayout.h"

#include <gtest/gtest.h>

TEST(SplitterLayout, MainWindowDragEndsAreClampedAndPanesFillTheClientArea)
{
    // The main window at its stored default size (12240 twips outside) and a narrow one,
    // where the right limit (9000 - 8500 - 260 = 240) lies left of the left minimum (360)
    // and wins. The right pane keeps its least width of 8500, running past a narrow client
    // area; the left pane starts at the margin of 60, the right one behind the 100 wide bar.
    // why, where the bar was dragged, the window, where the bar ends, the right pane's width
    const std::tuple<const char *, float, SplitterWindow, float, float> cases[] = {
        { "far left stops at the margin plus the left minimum", -5000, { 12000, 6900, 12240 }, 360, 11480 },
        { "just inside the left limit", 361, { 12000, 6900, 12240 }, 361, 11479 },
        { "far right stops at the right limit", 20000, { 12000, 6900, 12240 }, 12240 - 8500 - 260, 8500 },
        { "narrow window", 1000, { 8800, 5000, 9000 }, 240, 8500 },
    };
    const SplitterLimits limits = SplitterLimits::mainWindow();
    for (const auto &[why, dragged, window, bar, rightWidth] : cases) {
        SCOPED_TRACE(why);
        const SplitterLayout start = initialSplitterLayout(limits, 3000, window);
        const SplitterLayout layout = layoutSplitter(limits, dragged, window, start.left, start.right);
        EXPECT_EQ(std::tuple(layout.barLeft, layout.left.left, layout.left.width, layout.right.left,
                      layout.right.width),
            std::tuple(bar, 60.0f, bar - 60, bar + 100, rightWidth));
        // Both panes take the height between the top margin of 670 and the bottom one of 100.
        for (const PaneBox &pane : { layout.left, layout.right })
            EXPECT_EQ(std::pair(pane.top, pane.height), std::pair(670.0f, window.innerHeight - 670 - 100));
    }
}
