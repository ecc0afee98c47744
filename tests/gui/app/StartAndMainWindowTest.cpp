#include "MainWindowRun.h"

#include "app/DataFolder.h"
#include "app/GermanQtTexts.h"
#include "app/MainWindowLayout.h"
#include "app/Resources.h"
#include "app/StartDecision.h"
#include "app/Startup.h"
#include "app/TrayAvailability.h"

#include <QDialogButtonBox>
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
        m.main->showHelp();
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
            m.main->goToTrayFromMenu();
            m.main->showNormal();
            m.main->goToTrayFromMenu();
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
// default size no caption of the image tab is cut, and the print button under the tree is
// always there: shortened where its caption has no room, never hidden.
TEST(DesktopDefects, SplittersStopAtTheLayoutsClampAndCutNoCaption)
{
    MainWindowRun m;
    m.show();
    auto *splitter = m.control<QSplitter>("mainSplitter");
    ASSERT_GT(splitter->sizes().value(0), 100);
    int total = splitter->sizes().value(0) + splitter->sizes().value(1);
    splitter->setSizes({ 30, total - 30 }); // where a drag leaves it
    emit splitter->splitterMoved(30, 1);
    m.run.settle();
    EXPECT_LE(splitter->sizes().value(0), 35);
    EXPECT_GE(splitter->sizes().value(0), twipsToPixels(300));

    m.showTab(2);
    splitter = m.control<QSplitter>("imageSplitter");
    auto *print = m.control<QPushButton>("printTreeButton");
    total = splitter->sizes().value(0) + splitter->sizes().value(1);
    // At the default size the button is there; in a narrower pane it reads shorter, at last it
    // shows its icon, but it never goes and its caption is never cut.
    EXPECT_TRUE(print->isVisibleTo(m.main)) << print->text().toStdString();
    const int fullWidth = print->sizeHint().width();
    QStringList captions;
    for (const int treeWidth : { total / 2, fullWidth + 20, 120 }) {
        SCOPED_TRACE(treeWidth);
        splitter->setSizes({ treeWidth, total - treeWidth });
        emit splitter->splitterMoved(treeWidth, 1);
        m.run.settle();
        EXPECT_TRUE(print->isVisibleTo(m.main));
        EXPECT_TRUE(!print->text().isEmpty() || !print->icon().isNull());
        EXPECT_GE(print->width(), print->sizeHint().width()) << print->text().toStdString();
        EXPECT_EQ(print->toolTip(), u"Ordnerstruktur Drucken"_s);
        captions << print->text();
    }
    EXPECT_EQ(captions, QStringList({ u"Ordnerstruktur Drucken"_s, u"Drucken"_s, QString() }));
}

// A load shows the archive in title, list and count, at first in the default layout. A normal
// close stores size, tab and sort for the next load; a maximized one keeps the last normal size.
// A stored width below the floor is raised and rewritten.
TEST(MainWindow, LoadShowsTheArchiveAndCloseStoresTheLayoutForTheNextLoad)
{
    MainWindowRun m;
    Settings &settings = m.run.settings();
    MainWindow *main = m.show();
    EXPECT_EQ(main->windowTitle(), u"Silberbuch 5.1  -  Ravelin   |   Archiv: Test"_s);
    EXPECT_EQ(m.entries(), (QStringList { u"3 birne"_s, u"7 Abc"_s, u"12 Zebra"_s }));
    EXPECT_EQ(m.text("cdCountLabel") + u'|' + m.text("titleLabel"), u"3|Keine CD ausgewählt !"_s);
    EXPECT_EQ(std::tuple(main->size(), m.paneShown(), settings.contains(SettingKey::Breite)),
        std::tuple(QSize(816, 505), u"commentsPage"_s, false));
    main->resize(300, 400);
    EXPECT_GE(main->width(), 600) << "the resize floor";
    main->resize(900, 640);
    m.showTab(3);
    main->sortByTitle();
    main->close();
    m.run.settle();
    EXPECT_EQ(std::tuple(settings.value(SettingKey::Breite) + settings.value(SettingKey::Hoehe),
                  settings.value(SettingKey::StartupMaximized), m.run.program().loadedCount()),
        std::tuple(u"135009600"_s, u"0"_s, 0));

    main = m.show();
    EXPECT_EQ(m.entries().first() + u'|' + m.paneShown(), u"7  Abc|coverPage"_s);
    main->showMaximized();
    m.run.settle();
    main->close();
    m.run.settle();
    EXPECT_EQ(settings.value(SettingKey::StartupMaximized) + u'|' + settings.value(SettingKey::Breite),
        u"2|13500"_s);

    settings.setValue(SettingKey::StartupMaximized, u"0"_s);
    settings.setValue(SettingKey::Breite, u"9000"_s);
    settings.setValue(SettingKey::Hoehe, u"8000"_s);
    EXPECT_EQ(m.show()->size(), QSize(707, 533));
    EXPECT_EQ(settings.value(SettingKey::Breite), u"10600"_s);
}

TEST(Startup, EachKindOfStartLeadsToItsWindow)
{
    // The rules are the core's start table; here one start leads to each window. The default archive is B.
    // name, archives A and B there, Start and autoarchiv before (nullptr: missing), command line, the
    // window, Start after, and "notice" or "tray".
    using S = const char *;
    const std::tuple<S, bool, S, S, S, S, S, S> cases[] = {
        { "first start", false, nullptr, nullptr, "", "WelcomeDialog", "1", "" },
        { "asking, -minimized", true, "1", "1", "-minimized", "ArchiveChooser", "2", "notice" },
        { "automatic", true, "1", "0", "", "MainWindow", "2", "" },
        { "automatic, -minimized", true, "1", "0", "-minimized", "MainWindow", "2", "tray" },
    };
    for (const auto &[name, archives, start, autoarchiv, commandLine, window, counted, extra] : cases) {
        SCOPED_TRACE(name);
        DesktopRun run(QString::fromLatin1(commandLine));
        if (archives) { // two, so that the chooser does not open one by itself
            run.archive(u"A"_s);
            run.archive(u"B"_s);
        }
        if (start)
            run.settings().setValue(SettingKey::Start, QString::fromLatin1(start));
        if (autoarchiv)
            run.settings().setValue(SettingKey::autoarchiv, QString::fromLatin1(autoarchiv));
        run.settings().setValue(SettingKey::Standard, u"B"_s);
        run.program().show<Startup>()->openNextWindow(); // the splash's timer ticks at once
        run.settle();
        // The splash unloads itself in every branch, leaving the one window.
        ASSERT_EQ(std::tuple(run.form<Startup>(), run.program().loadedCount(),
                      run.program().form(QString::fromLatin1(window)) != nullptr,
                      run.settings().value(SettingKey::Start)),
            std::tuple(nullptr, 1, true, QString::fromLatin1(counted)));
        EXPECT_EQ(run.prompts().messages(),
            extra == std::string_view("notice") ? QStringList { minimizedStartNotice() } : QStringList());
        if (MainWindow *main = run.form<MainWindow>()) {
            EXPECT_EQ(run.session().archiveName, u"B"_s);
            EXPECT_EQ(std::pair(main->isVisible(), main->trayIcon()->isVisible()),
                std::pair(extra != std::string_view("tray"), extra == std::string_view("tray")));
            // Two quick presses of the right button, as some desktops report a double click.
            for (int press = 0; press < 2; ++press)
                emit main->trayIcon()->activated(QSystemTrayIcon::Context);
            EXPECT_TRUE(main->isVisible());
        }
    }
}
