#include "SearchWindows.h"

#include "print/ResultsPrintDialog.h"

#include "CommentHitNavigator.h"
#include "ResultsWindow.h"
#include "SearchDialog.h"

#include "app/DataFolder.h"

namespace {

template <typename Window>
Window *raised(Window *window)
{
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

} // namespace

SearchWindows::SearchWindows(Session &session, Settings &settings, SearchLink link, QWidget *mainWindow)
    : QObject(mainWindow)
    , m_session(session)
    , m_settings(settings)
    , m_link(std::move(link))
    , m_mainWindow(mainWindow)
{
}

SearchDialog *SearchWindows::showSearch()
{
    if (!m_search) {
        m_search = new SearchDialog(*this, m_mainWindow);
        emit windowLoaded(m_search);
    }
    return raised(m_search.data());
}

ResultsWindow *SearchWindows::showResults()
{
    if (!m_results) {
        m_results = new ResultsWindow(*this, m_mainWindow);
        emit windowLoaded(m_results);
    }
    return raised(m_results.data());
}

CommentHitNavigator *SearchWindows::showNavigator()
{
    if (m_navigator)
        delete m_navigator;
    m_navigator = new CommentHitNavigator(*this, m_session.foundCdNumbers, m_mainWindow);
    emit windowLoaded(m_navigator);
    return raised(m_navigator.data());
}

ResultsPrintDialog *SearchWindows::showPrintResults(const QString &searchWord)
{
    if (!m_printResults) {
        m_printResults = new ResultsPrintDialog(m_session, m_settings, searchWord, m_mainWindow);
        emit windowLoaded(m_printResults);
    }
    return raised(m_printResults.data());
}

QString SearchWindows::dataFolder() const
{
    return getDataFolder(m_session, m_settings);
}
