#pragma once

#include "Session.h"
#include "Settings.h"

#include <QString>
#include <QStringList>

// What the splash window does once its timer fires: which window follows, and what else
// happens on the way.
struct StartDecision
{
    enum class Window {
        WelcomeDialog,        // first start: the welcome dialog
        ArchiveChooser,   // choose the archive
        MainWindow, // open the default archive in the main window
    };

    Window window = Window::WelcomeDialog;
    bool askingArchive = false;      // the archive choice was opened because the settings ask for it
    bool showMinimizedNotice = false; // show minimizedStartNotice() with the information icon
    bool goToTray = false;           // send the main window to the tray at once
    QString archivePath;             // the default archive, set when window is MainWindow
    QString archiveName;

    // Carries the decision into the run's state: StartedAskingArchive and the open archive.
    void applyTo(Session &session) const;
};

// The decision from the settings (Start, autoarchiv, Standard), the data folder and the
// whole command line text.
StartDecision decideStart(const Settings &settings, const QString &dataFolder, const QString &commandLine);

// The whole command line text: the arguments after the program's name, joined by blanks.
QString wholeCommandLine(const QStringList &arguments);

// A start with the desktop session: the whole command line is exactly "-minimized".
bool isMinimizedStart(const QString &commandLine);

QString minimizedStartNotice();
