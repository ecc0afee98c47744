#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QWidget>

// Writes a picture of a window to $SILBERBUCH_SCREENSHOTS/<name>.png when that variable is
// set, so that a person can look at what a GUI test drove. Does nothing otherwise.
inline void screenshot(QWidget *window, const QString &name)
{
    const QString folder = qEnvironmentVariable("SILBERBUCH_SCREENSHOTS");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    // Layouts follow a changed text only when their posted request is handled.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    window->grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
}
