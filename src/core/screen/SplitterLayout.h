#pragma once

// The limits and layout of the draggable bar between two side-by-side panes of a window.
// All lengths are twips. The bar's position is its left edge in the window's client area.

struct SplitterLimits
{
    float objectRightMinWidth = 300; // least width of the right pane; 0 or less: no limit
    float objectLeftMinWidth = 300; // least width of the left pane
    float splitterWidth = 180; // width of the bar
    float fromTopMin = 0; // margins around the pair
    float fromRightMin = 0;
    float fromLeftMin = 0;
    float fromBottomMin = 0;

    // The values the main window sets for the bar between the CD list and the tabs.
    static SplitterLimits mainWindow();
};

struct PaneBox
{
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

// What the layout reads of the window: the client area and the outer width, frame included.
struct SplitterWindow
{
    float innerWidth = 0;
    float innerHeight = 0;
    float outerWidth = 0;
};

struct SplitterLayout
{
    float barLeft = 0;
    PaneBox left;
    PaneBox right;
};

// Puts the bar back into its allowed range and places both panes around it. The clamps run
// in a fixed order: the left minimum first, then the right limit (which wins), then the
// room test. A height or right width that would come out at 0 or less keeps the pane's
// current value, so the current boxes are passed in.
SplitterLayout layoutSplitter(const SplitterLimits &limits, float barLeft, const SplitterWindow &window,
    const PaneBox &leftNow, const PaneBox &rightNow);

// The starting layout: the left pane at the top left margin with its current width, the
// bar at its right edge, then the layout above.
SplitterLayout initialSplitterLayout(
    const SplitterLimits &limits, float leftWidth, const SplitterWindow &window);
