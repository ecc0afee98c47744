#include "DesktopRun.h"
#include "ExampleImage.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "archives/openarchiv.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QSystemTrayIcon>
#include <QTabBar>
#include <QToolBar>

namespace {

template <class T = QWidget> T *control(QWidget *window, const char *name)
{
    T *found = window->findChild<T *>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

// A run with the archive "Test" of three CDs open in the main window.
struct MainRun
{
    explicit MainRun(const QString &commandLine = {})
        : run(commandLine)
    {
        auto archive = run.archive(QStringLiteral("Test"));
        archive->cd(7, QStringLiteral("Abc"), QStringLiteral("Sta1|eins|zwei|End1"), 1001);
        archive->cd(3, QStringLiteral("birne"));
        archive->cd(12, QStringLiteral("Zebra"));
        run.image(1001, exampleImage());
        run.openArchive(QStringLiteral("Test"));
    }

    Hauptfenster *show()
    {
        main = run.program().show<Hauptfenster>();
        run.settle();
        return main;
    }

    QString paneShown() { return control<QStackedWidget>(main, "Frame2")->currentWidget()->objectName(); }

    DesktopRun run;
    Hauptfenster *main = nullptr;
};

} // namespace

TEST(Hauptfenster, LoadShowsTheArchiveInTitleListAndCount)
{
    MainRun m;
    Hauptfenster *main = m.show();
    EXPECT_EQ(main->windowTitle(), QStringLiteral("Silberbuch 5.1  -  Ravelin   |   Archiv: Test"));
    auto *list = control<QListWidget>(main, "List2");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("3 birne"));
    EXPECT_EQ(list->item(1)->text(), QStringLiteral("7 Abc"));
    EXPECT_EQ(list->currentRow(), -1);
    EXPECT_EQ(control<QLabel>(main, "Label9")->text(), QStringLiteral("3"));
    EXPECT_EQ(control<QLabel>(main, "Text2")->text(), QStringLiteral("Keine CD ausgewählt !"));
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_1"));
}

TEST(Hauptfenster, MenuBarInItsOrderWithTheTrayEntryAtTheRightEnd)
{
    MainRun m;
    Hauptfenster *main = m.show();
    QStringList titles;
    for (QAction *action : main->menuBar()->actions())
        titles << action->text();
    EXPECT_EQ(titles,
        (QStringList { QStringLiteral("&Datei"), QStringLiteral("&CD"), QStringLiteral("&Suchen"),
            QStringLiteral("&Druc&ken"), QStringLiteral("&Optionen"), QStringLiteral("&Hilfe") }));
    auto *corner = qobject_cast<QMenuBar *>(main->menuBar()->cornerWidget(Qt::TopRightCorner));
    ASSERT_NE(corner, nullptr);
    ASSERT_EQ(corner->actions().size(), 1);
    EXPECT_EQ(corner->actions()[0]->objectName(), QStringLiteral("mntray"));
    EXPECT_EQ(corner->actions()[0]->text(), QStringLiteral("In &Tray"));

    QStringList cdMenu;
    for (QAction *action : control<QMenu>(main, "mCD")->actions())
        cdMenu << (action->isSeparator() ? QStringLiteral("-") : action->objectName());
    EXPECT_EQ(cdMenu,
        (QStringList { QStringLiteral("mnunewCD"), QStringLiteral("mnueditCD"), QStringLiteral("mnudeleteCD"),
            QStringLiteral("-"), QStringLiteral("sortListe"), QStringLiteral("sortNummer") }));
    QStringList help;
    for (QAction *action : control<QMenu>(main, "help")->actions())
        help << (action->isSeparator() ? QStringLiteral("-") : action->text());
    EXPECT_EQ(help,
        (QStringList { QStringLiteral("Hilf&e"), QStringLiteral("Support"), QStringLiteral("Wunschfunktion"),
            QStringLiteral("-"), QStringLiteral("Nach Updates suchen"), QStringLiteral("Ravelin Homepage"),
            QStringLiteral("-"), QStringLiteral("Ü&ber Silberbuch...") }));
}

TEST(Hauptfenster, ToolbarKeysAndTabsCarryTheirTips)
{
    MainRun m;
    Hauptfenster *main = m.show();
    auto *toolbar = control<QToolBar>(main, "Toolbar1");
    QStringList keys;
    for (QAction *action : toolbar->actions())
        keys << (action->isSeparator() ? QStringLiteral("|") : action->objectName());
    EXPECT_EQ(keys.join(QString()), QStringLiteral("a|cde|ghi|klm|o|q"));
    EXPECT_EQ(toolbar->findChild<QAction *>(QStringLiteral("k"))->toolTip(),
        QStringLiteral("Für diese CD ein neues CD-Abbild erstellen"));
    EXPECT_EQ(
        toolbar->findChild<QAction *>(QStringLiteral("q"))->toolTip(), QStringLiteral("Programm beenden"));

    auto *tabs = control<QTabBar>(main, "TabStrip1");
    ASSERT_EQ(tabs->count(), 3);
    EXPECT_EQ(tabs->tabText(0), QStringLiteral("CD Kommentare!"));
    EXPECT_EQ(tabs->tabText(2), QStringLiteral("CD Cover / Infos "));
    EXPECT_EQ(tabs->tabToolTip(1), QStringLiteral("Das Datenabbild"));
}

TEST(Hauptfenster, ToolbarTabKeysSwitchPanes)
{
    MainRun m;
    Hauptfenster *main = m.show();
    main->Toolbar1_ButtonClick(QStringLiteral("i"));
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_3"));
    main->Toolbar1_ButtonClick(QStringLiteral("g"));
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_1"));
}

TEST(Hauptfenster, StoredLayoutIsReadWithTheWidthFloor)
{
    struct Case
    {
        const char *name;
        const char *breite;
        const char *hoehe;
        const char *tab;
        QSize size;
        const char *storedBreite;
        const char *pane;
    };
    const Case cases[] = {
        { "fresh profile", nullptr, nullptr, nullptr, QSize(816, 505), nullptr, "fr_1" },
        { "narrow width is raised and rewritten", "9000", "8000", "3", QSize(707, 533), "10600", "fr_3" },
        { "wide window", "15000", "9000", "2", QSize(1000, 600), "15000", "fr_2" },
    };
    for (const Case &c : cases) {
        MainRun m;
        if (c.breite) {
            m.run.settings().setValue(SettingKey::Breite, QString::fromLatin1(c.breite));
            m.run.settings().setValue(SettingKey::Hoehe, QString::fromLatin1(c.hoehe));
            m.run.settings().setValue(SettingKey::TabStrip, QString::fromLatin1(c.tab));
        }
        Hauptfenster *main = m.show();
        EXPECT_EQ(main->size(), c.size) << c.name;
        EXPECT_EQ(m.paneShown(), QString::fromLatin1(c.pane)) << c.name;
        EXPECT_EQ(m.run.settings().contains(SettingKey::Breite), c.storedBreite != nullptr) << c.name;
        if (c.storedBreite) {
            EXPECT_EQ(m.run.settings().value(SettingKey::Breite), QString::fromLatin1(c.storedBreite))
                << c.name;
        }
    }
}

TEST(Hauptfenster, LowHeightHasNoFloorInTheSettings)
{
    MainRun m;
    m.run.settings().setValue(SettingKey::Hoehe, QStringLiteral("100"));
    Hauptfenster *main = m.show();
    // The window is as low as its contents allow; the stored value is not rewritten.
    EXPECT_LT(main->height(), 505);
    EXPECT_EQ(m.run.settings().value(SettingKey::Hoehe), QStringLiteral("100"));
}

TEST(Hauptfenster, UnloadStoresTheLayout)
{
    MainRun m;
    Hauptfenster *main = m.show();
    main->resize(900, 640);
    control<QTabBar>(main, "TabStrip1")->setCurrentIndex(2);
    main->sortListe_Click();
    main->close();
    m.run.settle();
    Settings &settings = m.run.settings();
    EXPECT_EQ(settings.value(SettingKey::Breite), QStringLiteral("13500"));
    EXPECT_EQ(settings.value(SettingKey::Hoehe), QStringLiteral("9600"));
    EXPECT_EQ(settings.value(SettingKey::StartupMaximized), QStringLiteral("0"));
    EXPECT_EQ(settings.value(SettingKey::TabStrip), QStringLiteral("3"));
    EXPECT_EQ(settings.value(SettingKey::Sort), QStringLiteral("1"));
    EXPECT_EQ(m.run.program().loadedCount(), 0);

    // The next load is sorted and on the third tab.
    Hauptfenster *again = m.show();
    EXPECT_EQ(control<QListWidget>(again, "List2")->item(0)->text(), QStringLiteral("7  Abc"));
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_3"));
}

TEST(Hauptfenster, MaximizedCloseKeepsTheLastNormalSize)
{
    MainRun m;
    m.run.settings().setValue(SettingKey::Breite, QStringLiteral("12000"));
    m.run.settings().setValue(SettingKey::Hoehe, QStringLiteral("8000"));
    Hauptfenster *main = m.show();
    main->showMaximized();
    m.run.settle();
    main->close();
    m.run.settle();
    EXPECT_EQ(m.run.settings().value(SettingKey::StartupMaximized), QStringLiteral("2"));
    EXPECT_EQ(m.run.settings().value(SettingKey::Breite), QStringLiteral("12000"));
    EXPECT_EQ(m.run.settings().value(SettingKey::Hoehe), QStringLiteral("8000"));
}

TEST(Hauptfenster, WindowNeverGetsNarrowerThanTheResizeFloor)
{
    MainRun m;
    Hauptfenster *main = m.show();
    main->resize(300, 400);
    EXPECT_GE(main->width(), 600);
}

TEST(Hauptfenster, CdListSplitterStaysWithinItsLimits)
{
    MainRun m;
    Hauptfenster *main = m.show();
    main->resize(1200, 600);
    m.run.settle();
    auto *splitter = control<QSplitter>(main, "splitterMain");
    // The list may grow until the tabs keep 8500 twips and the frame's allowance of the
    // window's outer width; the list starts 60 twips from the edge.
    splitter->setSizes({ 1000, 100 });
    emit splitter->splitterMoved(1000, 1);
    const int outerTwips = main->frameGeometry().width() * 15;
    EXPECT_EQ(splitter->sizes()[0], (outerTwips - 8500 - 260 - 60) / 15);
    // A drag inside the range stays where it ended.
    splitter->setSizes({ 400, 700 });
    emit splitter->splitterMoved(400, 1);
    EXPECT_EQ(splitter->sizes()[0], 400);
}

TEST(Hauptfenster, ImageTabTreeGetsThirtyOnePercent)
{
    MainRun m;
    Hauptfenster *main = m.show();
    control<QTabBar>(main, "TabStrip1")->setCurrentIndex(1);
    m.run.settle();
    const QList<int> sizes = control<QSplitter>(main, "Splitter1")->sizes();
    ASSERT_EQ(sizes.size(), 2);
    const double share = static_cast<double>(sizes[0]) / (sizes[0] + sizes[1]);
    EXPECT_NEAR(share, 0.31, 0.02);

    // Below 2295 twips the print button under the tree has no room and goes.
    auto *splitter = control<QSplitter>(main, "Splitter1");
    auto *print = control<QWidget>(main, "Command7");
    splitter->setSizes({ 140, 400 });
    emit splitter->splitterMoved(140, 1);
    EXPECT_TRUE(print->isHidden());
    splitter->setSizes({ 160, 380 });
    emit splitter->splitterMoved(160, 1);
    EXPECT_FALSE(print->isHidden());
}

TEST(Hauptfenster, TrayHidesAndADoubleClickBringsTheWindowBack)
{
    MainRun m;
    Hauptfenster *main = m.show();
    main->mntray_Click();
    EXPECT_FALSE(main->isVisible());
    EXPECT_TRUE(main->trayIcon()->isVisible());
    EXPECT_EQ(main->trayIcon()->toolTip(), QStringLiteral("Silberbuch"));
    emit main->trayIcon()->activated(QSystemTrayIcon::Trigger);
    EXPECT_FALSE(main->isVisible()) << "a single click does nothing";
    emit main->trayIcon()->activated(QSystemTrayIcon::DoubleClick);
    EXPECT_TRUE(main->isVisible());
    EXPECT_TRUE(main->trayIcon()->isVisible()) << "the icon stays";
}

TEST(Hauptfenster, MinimizedStartAddsTheTrayIconAtLoad)
{
    MainRun m(QStringLiteral("-minimized"));
    Hauptfenster *main = m.show();
    EXPECT_TRUE(main->trayIcon()->isVisible());
    EXPECT_EQ(main->trayIcon()->toolTip(), QStringLiteral("Silberbuch 5.1"));
}

TEST(Hauptfenster, ChangeOfArchiveStoresTheLayoutAndLoadsTheWindowAnew)
{
    MainRun m;
    m.run.archive(QStringLiteral("Zweites"));
    Hauptfenster *main = m.show();
    main->resize(950, 600);
    main->open_Click();
    m.run.settle();
    EXPECT_EQ(m.run.form<Hauptfenster>(), nullptr);
    openarchiv *chooser = m.run.form<openarchiv>();
    ASSERT_NE(chooser, nullptr);
    EXPECT_EQ(m.run.settings().value(SettingKey::Breite), QStringLiteral("14250"));

    chooser->findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(QStringLiteral("Zweites"));
    chooser->Command1_Click();
    m.run.settle();
    Hauptfenster *fresh = m.run.form<Hauptfenster>();
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(fresh->windowTitle(), QStringLiteral("Silberbuch 5.1  -  Ravelin   |   Archiv: Zweites"));
    EXPECT_EQ(fresh->size(), QSize(950, 600));
    EXPECT_EQ(control<QListWidget>(fresh, "List2")->count(), 0);
}

TEST(Hauptfenster, EndUnloadsEveryWindowAndRemovesTheTrayIcon)
{
    MainRun m;
    bool ended = false;
    QObject::connect(&m.run.program(), &Program::allUnloaded, [&ended] { ended = true; });
    Hauptfenster *main = m.show();
    main->mntray_Click();
    QSystemTrayIcon *tray = main->trayIcon();
    EXPECT_TRUE(tray->isVisible());
    main->Toolbar1_ButtonClick(QStringLiteral("q"));
    EXPECT_FALSE(tray->isVisible());
    m.run.settle();
    EXPECT_TRUE(ended);
    EXPECT_EQ(m.run.program().loadedCount(), 0);
}

TEST(Hauptfenster, HelpPageIsPlacedInTheProgramFolderAndOpened)
{
    MainRun m;
    Hauptfenster *main = m.show();
    main->hilfe_Click();
    const QString page = m.run.home() + QStringLiteral("/Hilfe.html");
    QFile file(page);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("Silberbuch 5.1"));
    ASSERT_EQ(m.run.opened().size(), 1);
    EXPECT_EQ(m.run.opened()[0], QUrl::fromLocalFile(page));
}

TEST(Hauptfenster, WindowsNotYetThereDoNothingAndRegisteredOnesOpen)
{
    MainRun m;
    Hauptfenster *main = m.show();
    for (const char *entry :
        { "printt", "mnuImport", "mnuExport", "mnuoptionss", "mnuwunsch", "mnuUpdate", "about3" })
        main->findChild<QAction *>(QString::fromLatin1(entry))->trigger();
    EXPECT_EQ(m.run.program().loadedCount(), 1);
    EXPECT_TRUE(m.run.prompts().shown().empty());

    int opened = 0;
    m.run.program().setOpener(QStringLiteral("Form2"), [&opened](Program &) { ++opened; });
    main->findChild<QAction *>(QStringLiteral("printt"))->trigger();
    main->Toolbar1_ButtonClick(QStringLiteral("e"));
    EXPECT_EQ(opened, 2);
}

TEST(Hauptfenster, CdCommandsNeedASelectedCd)
{
    for (const char *key : { "k", "l", "m" }) {
        MainRun m;
        Hauptfenster *main = m.show();
        main->Toolbar1_ButtonClick(QString::fromLatin1(key));
        EXPECT_EQ(m.run.prompts().messages(), QStringList { QStringLiteral("Keine CD ausgewählt!") }) << key;
        EXPECT_EQ(m.run.program().loadedCount(), 1) << key;
        EXPECT_EQ(m.run.session().currentCd, -1) << key;
    }
}

TEST(Hauptfenster, CdCommandsOpenTheirDialogsOnceForTheSelectedCd)
{
    MainRun m;
    Hauptfenster *main = m.show();
    control<QListWidget>(main, "List2")->setCurrentRow(1);
    main->findChild<QAction *>(QStringLiteral("mnueditCD"))->trigger();
    EXPECT_EQ(m.run.session().currentCd, 7);
    QWidget *editor = m.run.program().form(QStringLiteral("changecd"));
    ASSERT_NE(editor, nullptr);
    main->Toolbar1_ButtonClick(QStringLiteral("l"));
    EXPECT_EQ(m.run.program().form(QStringLiteral("changecd")), editor) << "one instance";

    main->Toolbar1_ButtonClick(QStringLiteral("k"));
    EXPECT_EQ(m.run.session().captureMode, QStringLiteral("1"));
    EXPECT_NE(m.run.program().form(QStringLiteral("abbild")), nullptr);
    main->Toolbar1_ButtonClick(QStringLiteral("c"));
    EXPECT_NE(m.run.program().form(QStringLiteral("newCD")), nullptr);
    main->findChild<QAction *>(QStringLiteral("mnusearch2"))->trigger();
    EXPECT_NE(m.run.program().form(QStringLiteral("frmsearch")), nullptr);

    // They go with the main window.
    main->unloadall();
    m.run.settle();
    EXPECT_EQ(m.run.program().loadedCount(), 0);
}
