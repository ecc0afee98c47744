#include "TrayDoubleClick.h"

bool TrayDoubleClick::completes(Press press, int64_t atMs)
{
    if (press == Press::LeftDouble) {
        m_last = Press::Other;
        return true;
    }
    const bool second = press != Press::Other && press == m_last && atMs - m_lastAtMs <= m_intervalMs;
    // A press that completes a double click does not start the next one.
    m_last = second ? Press::Other : press;
    m_lastAtMs = atMs;
    return second;
}
