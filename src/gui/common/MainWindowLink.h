#pragma once

#include "app/Session.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>

// What the record and capture windows need of the main window. They talk back to it
// through these few entries only, as they did through its public procedures and labels.
struct MainWindowLink
{
    QPointer<QWidget> window; // shown again after a cancel, enabled after a capture
    std::function<QString()> selectedNumberText; // caption of Label8: the selected CD's number
    std::function<void()> refresh_cdlist;
    std::function<void()> sortList1;

    // After a change of the archive: the list is loaded anew, and sorted again when it stood sorted.
    void refreshList(const Session &session) const
    {
        if (refresh_cdlist)
            refresh_cdlist();
        if (session.listSorted && sortList1)
            sortList1();
    }
};
