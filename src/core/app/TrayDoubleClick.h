#pragma once

#include <cstdint>

// Tells a double click on the tray icon from single clicks. Desktops report clicks on a
// status icon in different ways: some send a double click of the left button as such,
// others only single presses of either button. Two presses of one button within the
// double-click interval count as a double click as well.
class TrayDoubleClick
{
public:
    enum class Press { LeftDouble, Left, Right, Other };

    explicit TrayDoubleClick(int intervalMs)
        : m_intervalMs(intervalMs)
    {
    }

    // Whether this press completes a double click, at `atMs` on a steady clock.
    bool completes(Press press, int64_t atMs);

private:
    int m_intervalMs;
    Press m_last = Press::Other;
    int64_t m_lastAtMs = 0;
};
