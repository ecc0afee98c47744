#pragma once

#include "Settings.h"

#include <QString>
#include <QStringList>

// The stored layout of the main window: size in twips, window state, selected tab and the
// order of the CD list.
struct MainWindowLayout
{
    enum State { Normal = 0, Minimized = 1, Maximized = 2 };

    int widthTwips = 12240; // within 16 bits after a load; a closing window may report more
    float heightTwips = 7575.0f;
    int windowState = Normal;
    int tab = 1; // 1 to 3
    bool sorted = false;
};

// The narrowest width a load gives the main window; a stored width below it is rewritten.
inline constexpr int kLayoutWidthFloor = 10600;
// The narrowest width the main window keeps while it is resized.
inline constexpr int kResizeWidthFloor = 8995;
inline constexpr int kTwipsPerPixel = 15;

struct LayoutLoad
{
    MainWindowLayout layout;
    // One German notice per stored value that could not be used; its default stood in.
    QStringList messages;
};

// Reads Breite, Hoehe, StartupMaximized, TabStrip and Sort. A width below the floor is
// raised to it and stored as "10600"; the height is taken as it stands.
LayoutLoad loadMainWindowLayout(Settings &settings);

// Stores the layout of a closing window. Width and height are stored only when the window
// is not maximized, so a maximized close keeps the last normal size.
void storeMainWindowLayout(Settings &settings, const MainWindowLayout &layout);

int twipsToPixels(double twips);
int pixelsToTwips(int pixels);
