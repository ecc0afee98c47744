#pragma once

#include "app/TrayDoubleClick.h"
#include "common/MainWindowLink.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QStyleHints>
#include <QMainWindow>
#include <QPointer>

#include <cstdint>
#include <memory>

class CdDetailView;
class ImageBrowser;
class Program;
class QSystemTrayIcon;
class SearchWindows;
class CaptureDialog;
class EditCdDialog;
class NewCdDialog;

namespace Ui {
class MainWindow;
}

// The main window: the CD list of the open archive on the left, the CD on display on three
// tabs on the right, menus, toolbar and the tray icon. It is loaded anew at each change of
// archive. Its public procedures are what the other windows call back.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(Program &program);
    ~MainWindow() override;

    // Reloads the CD list from the archive in its stored order; the row selected before is
    // selected again, whichever CD it holds now.
    void reloadCdList();
    // Sorts the CD list by title.
    void sortByTitle();
    // Deletes the CD after asking. A failure of the delete is reported from the menu and
    // swallowed from the toolbar, where the list stays as it was.
    void deleteCd(int16_t number, bool quietFailure = false);
    // Lays the window out as it was stored when it closed the last time.
    void restoreLayout();
    // The menu's way to the tray: as goToTray, and where the desktop has no tray it says once
    // that the window was minimized instead.
    void goToTrayFromMenu();
    // To the tray, or minimized where the desktop has none; the start with -minimized.
    void goToTray();
    // Ends the run: tray icon gone, every window unloaded.
    void endRun();
    // A new image for the selected CD.
    void captureNewImage();
    // Edits the selected CD.
    void editSelectedCd();

    // The menu and toolbar commands.
    void sortByNumber();
    void deleteSelectedCd();
    void runToolbarButton(const QString &key);
    void changeArchive();
    void showHelp();
    void showSelectedCd();
    void showSelectedTab();

    // The number of the CD selected in the list, -1 with none selected.
    int16_t selectedCd() const;
    // The selected tab, 1 to 3.
    int selectedTab() const;

    QSystemTrayIcon *trayIcon() const { return m_tray; }
    ImageBrowser *browser() const { return m_browser; }
    MainWindowLink link();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildToolbar();
    void buildTabs();
    void connectMenus();
    void showPane(int tab);
    void setCurrentCdFromSelection();
    void layoutPanes();
    void fitPrintTreeButton();
    void storeLayout();
    void fillList(const QStringList &entries);
    void showNewCd();
    void showSearch();
    template <class W> void showDialog(QPointer<W> &dialog);
    // Takes the selected CD as the current one; without one says so and gives false.
    bool selectCurrentCd();

    Program &m_program;
    std::unique_ptr<Ui::MainWindow> m_ui;
    ImageBrowser *m_browser;
    std::unique_ptr<CdDetailView> m_detail;
    SearchWindows *m_search;
    QSystemTrayIcon *m_tray;
    bool m_noTraySaid = false; // the missing tray is told once a run
    TrayDoubleClick m_trayClicks { QGuiApplication::styleHints()->mouseDoubleClickInterval() };
    QElapsedTimer m_trayClock;
    QPointer<NewCdDialog> m_newCdDialog;
    QPointer<EditCdDialog> m_editCdDialog;
    QPointer<CaptureDialog> m_captureDialog;
    bool m_treeShareSet = false; // the tree's share of the image tab was laid out once
};
