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
    std::function<QString()> selectedNumberText; // the selected CD's number, as its label shows it
    std::function<void()> reloadCdList;
    std::function<void()> sortByTitle;

    // After a change of the archive: the list is loaded anew, and sorted again when it stood sorted.
    void refreshList(const Session &session) const
    {
        if (reloadCdList)
            reloadCdList();
        if (session.listSorted && sortByTitle)
            sortByTitle();
    }
};
