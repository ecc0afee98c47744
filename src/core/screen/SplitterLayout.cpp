#include "SplitterLayout.h"

namespace {

// The fixed allowance for the window's frame in the right limit.
constexpr float frameAllowance = 260;

} // namespace

SplitterLimits SplitterLimits::mainWindow()
{
    SplitterLimits limits;
    limits.fromTopMin = 670;
    limits.fromLeftMin = 60;
    limits.fromRightMin = 60;
    limits.fromBottomMin = 100;
    limits.objectRightMinWidth = 8500;
    limits.splitterWidth = 100;
    return limits;
}

SplitterLayout layoutSplitter(const SplitterLimits &limits, float barLeft, const SplitterWindow &window,
    const PaneBox &leftNow, const PaneBox &rightNow)
{
    SplitterLayout out;
    out.left = leftNow;
    out.right = rightNow;

    if (limits.fromLeftMin + limits.objectLeftMinWidth > barLeft)
        barLeft = limits.fromLeftMin + limits.objectLeftMinWidth;
    if (limits.objectRightMinWidth > 0) {
        const float limit = window.outerWidth - limits.objectRightMinWidth - frameAllowance;
        if (limit < barLeft)
            barLeft = limit;
    }

    out.left.left = limits.fromLeftMin;
    out.left.top = limits.fromTopMin;
    out.left.width = barLeft - out.left.left;

    // The room test weighs the left minimum on both sides; that is how the bar has always
    // been kept off the right edge.
    const float room = window.innerWidth - limits.fromLeftMin - limits.fromRightMin;
    if (room - out.left.width - limits.objectLeftMinWidth < limits.objectLeftMinWidth) {
        out.left.width = room - limits.objectLeftMinWidth - limits.objectRightMinWidth;
        barLeft = out.left.left + out.left.width;
    }

    const float height = window.innerHeight - limits.fromTopMin - limits.fromBottomMin;
    if (height > 0)
        out.left.height = height;

    out.right.left = barLeft + limits.splitterWidth;
    const float rightWidth = window.innerWidth - limits.fromRightMin - out.right.left;
    if (rightWidth > 0)
        out.right.width = rightWidth < limits.objectRightMinWidth ? limits.objectRightMinWidth : rightWidth;
    out.right.top = out.left.top;
    out.right.height = out.left.height;

    out.barLeft = barLeft;
    return out;
}

SplitterLayout initialSplitterLayout(
    const SplitterLimits &limits, float leftWidth, const SplitterWindow &window)
{
    PaneBox left;
    left.left = limits.fromLeftMin;
    left.top = limits.fromTopMin;
    left.width = leftWidth;
    left.height = window.innerHeight - limits.fromTopMin - limits.fromBottomMin;
    PaneBox right;
    right.left = left.left + left.width + limits.splitterWidth;
    right.top = left.top;
    right.width = window.innerWidth - right.left - limits.fromRightMin;
    right.height = left.height;
    return layoutSplitter(limits, left.left + left.width, window, left, right);
}
