#include "MainWindowRun.h"
#include "Screenshot.h"

#include "app/DataFolder.h"
#include "app/GermanQtTexts.h"
#include "app/MainWindowLayout.h"
#include "app/Resources.h"
#include "app/TrayAvailability.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPushButton>
#include <QSplitter>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace {

// Qt's own dialogs speak German once the system's translations of Qt are loaded.
TEST(DesktopDefects, QtsOwnButtonsSpeakGerman)
{
    ASSERT_TRUE(installGermanQtTexts(*QCoreApplication::instance()));
    QDialogButtonBox buttons(QDialogButtonBox::Cancel | QDialogButtonBox::Open);
    EXPECT_EQ(buttons.button(QDialogButtonBox::Cancel)->text(), u"Abbrechen"_s);
    EXPECT_EQ(buttons.button(QDialogButtonBox::Open)->text(), u"Öffnen"_s);
    QFileDialog dialog(nullptr, u"Cover-Bild laden"_s);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setNameFilter(u"Bilddateien (*.jpg *.gif *.bmp *.tif *.png)"_s);
    dialog.show();
    screenshot(&dialog, u"dateidialog"_s);
}

// "Hilfe" puts the bundled page into the program folder only where none is, and says so when
// the desktop has no program to show it.
TEST(DesktopDefects, HelpKeepsAPageThatIsThereAndSaysWhenNothingOpensIt)
{
    // the page there before (empty: none), the desktop refuses to open it
    const std::tuple<const char *, QByteArray, bool> cases[] = { { "no page yet", {}, false },
        { "the user's own page", "<html>meine Hilfe</html>", false }, { "no program for it", {}, true } };
    for (const auto &[what, present, desktopRefuses] : cases) {
        SCOPED_TRACE(what);
        MainWindowRun m;
        m.show();
        const QString page = programFolder() + u"/Hilfe.html"_s;
        QFile::remove(page);
        if (!present.isEmpty())
            writeFile(page, present);
        shellopen::ShellRecorder shell;
        if (desktopRefuses)
            shell.refuse();
        m.main->hilfe_Click();
        EXPECT_EQ(fileBytes(page), present.isEmpty() ? fileBytes(resources::helpPage()) : present);
        EXPECT_EQ(shell.opened(), QList<QUrl> { QUrl::fromLocalFile(page) });
        EXPECT_EQ(m.run.prompts().messages().join(u'|'),
            desktopRefuses ? u"Es ist kein Programm zum Öffnen von "_s + page + u" eingerichtet."_s
                           : QString());
    }
}

} // namespace

// "In Tray" on a desktop without a tray minimises to the task bar and says so once; with a
// tray the window hides behind its icon. The start with -minimized does the same, silently.
TEST(DesktopDefects, WithoutATrayTheWindowIsMinimisedNotLost)
{
    // tray there, by the menu ("In Tray" twice, else the start's -minimized), visible, minimized, messages
    const std::tuple<const char *, bool, bool, bool, bool, int> cases[]
        = { { "menu, tray there", true, true, false, false, 0 },
              { "menu, no tray: told once", false, true, true, true, 1 },
              { "minimized start, no tray", false, false, true, true, 0 } };
    for (const auto &[what, trayThere, byMenu, visible, minimized, messages] : cases) {
        SCOPED_TRACE(what);
        MainWindowRun m;
        m.show();
        const tray::TrayOverride tray(trayThere);
        if (byMenu) {
            m.main->mntray_Click();
            m.main->showNormal();
            m.main->mntray_Click();
        } else {
            m.main->goToTray();
        }
        m.run.settle();
        EXPECT_EQ(std::tuple(m.main->isVisible(), m.main->isMinimized(), m.main->trayIcon()->isVisible(),
                      m.run.prompts().messages().size()),
            std::tuple(visible, minimized, trayThere, messages));
    }
}

// The bar between the CD list and the right pane goes as far left as the layout's clamps
// allow (margin and least list width), not only down to the width of the list's title. At the
// default size no caption of the image tab is cut: the print button under the tree is whole or
// not there at all.
TEST(DesktopDefects, SplittersStopAtTheLayoutsClampAndCutNoCaption)
{
    MainWindowRun m;
    m.show();
    auto *splitter = m.control<QSplitter>("splitterMain");
    ASSERT_GT(splitter->sizes().value(0), 100);
    int total = splitter->sizes().value(0) + splitter->sizes().value(1);
    splitter->setSizes({ 30, total - 30 }); // where a drag leaves it
    emit splitter->splitterMoved(30, 1);
    m.run.settle();
    EXPECT_LE(splitter->sizes().value(0), 35);
    EXPECT_GE(splitter->sizes().value(0), twipsToPixels(300));

    m.showTab(2);
    splitter = m.control<QSplitter>("Splitter1");
    auto *print = m.control<QPushButton>("Command7");
    total = splitter->sizes().value(0) + splitter->sizes().value(1);
    // Just wider than the caption alone: the two buttons beside it leave it too little.
    for (const int treeWidth :
        { total / 2, print->sizeHint().width() + 20, print->sizeHint().width() - 10, 60 }) {
        SCOPED_TRACE(treeWidth);
        splitter->setSizes({ treeWidth, total - treeWidth });
        emit splitter->splitterMoved(treeWidth, 1);
        m.run.settle();
        EXPECT_TRUE(print->isHidden() || print->width() >= print->sizeHint().width()) << print->width();
    }
}
