#pragma once

#include "SearchLink.h"

#include <QObject>
#include <QPointer>

class CommentHitNavigator;
class ResultsPrintDialog;
class QWidget;
struct Session;
class Settings;
class ResultsWindow;
class SearchDialog;

// The three windows of searching, each a single instance that is created on first use and
// gone when it is closed. The main window owns one of these and opens the search dialog
// through it; the windows reach each other through it as well.
class SearchWindows : public QObject
{
    Q_OBJECT

public:
    // `mainWindow` becomes the parent of every search window.
    SearchWindows(Session &session, Settings &settings, SearchLink link, QWidget *mainWindow);

    // The search dialog, loaded if need be and brought to the front. The caller has set the
    // session's current CD from the CD list; a dialog that is loaded already keeps its options.
    SearchDialog *showSearch();
    // The result list, loaded if need be; a list that is open already is refilled by its caller.
    ResultsWindow *showResults();
    // The navigator over the session's found CDs. A navigator that is open shows the numbers
    // of the search before, so it gives way to a fresh one.
    CommentHitNavigator *showNavigator();
    // The print dialog of the results, for the hits the session keeps, under their word.
    ResultsPrintDialog *showPrintResults(const QString &searchWord);

    Session &session() const { return m_session; }
    Settings &settings() const { return m_settings; }
    const SearchLink &link() const { return m_link; }
    QWidget *mainWindow() const { return m_mainWindow; }
    // The data folder under which the images lie, no trailing separator.
    QString dataFolder() const;

signals:
    // A search window was created; the program keeps a list of its loaded windows.
    void windowLoaded(QWidget *window);

private:
    Session &m_session;
    Settings &m_settings;
    SearchLink m_link;
    QPointer<QWidget> m_mainWindow;
    QPointer<SearchDialog> m_search;
    QPointer<ResultsWindow> m_results;
    QPointer<CommentHitNavigator> m_navigator;
    QPointer<ResultsPrintDialog> m_printResults;
};
