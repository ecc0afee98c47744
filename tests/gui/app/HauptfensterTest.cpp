#include "MainWindowRun.h"
#include "QStringPrinting.h"

#include "archives/openarchiv.h"

#include <QAction>
#include <QLineEdit>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

TEST(Hauptfenster, LoadShowsTheArchiveInTitleListAndCount)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    EXPECT_EQ(main->windowTitle(), u"Silberbuch 5.1  -  Ravelin   |   Archiv: Test"_s);
    EXPECT_EQ(m.entries(), (QStringList { u"3 birne"_s, u"7 Abc"_s, u"12 Zebra"_s }));
    EXPECT_EQ(m.list()->currentRow(), -1);
    EXPECT_EQ(m.text("Label9"), u"3"_s);
    EXPECT_EQ(m.text("Text2"), u"Keine CD ausgewählt !"_s);
    EXPECT_EQ(m.paneShown(), u"fr_1"_s);
    main->Toolbar1_ButtonClick(u"i"_s);
    EXPECT_EQ(m.paneShown(), u"fr_3"_s);
}

TEST(Hauptfenster, StoredLayoutIsReadWithTheWidthFloor)
{
    const struct
    {
        const char *name;
        const char *breite; // nullptr: a fresh profile
        const char *tab;
        QSize size;
        const char *stored; // "-": nothing stored
        const char *pane;
    } cases[] = {
        { "fresh profile", nullptr, nullptr, QSize(816, 505), "-", "fr_1" },
        { "narrow width is raised and rewritten", "9000", "3", QSize(707, 533), "10600", "fr_3" },
        { "wide window", "15000", "2", QSize(1000, 533), "15000", "fr_2" },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        MainWindowRun m;
        Settings &settings = m.run.settings();
        if (c.breite) {
            settings.setValue(SettingKey::Breite, QString::fromLatin1(c.breite));
            settings.setValue(SettingKey::Hoehe, u"8000"_s);
            settings.setValue(SettingKey::TabStrip, QString::fromLatin1(c.tab));
        }
        Hauptfenster *main = m.show();
        EXPECT_EQ(main->size(), c.size);
        EXPECT_EQ(m.paneShown(), QString::fromLatin1(c.pane));
        EXPECT_EQ(settings.contains(SettingKey::Breite) ? settings.value(SettingKey::Breite) : u"-"_s,
            QString::fromLatin1(c.stored));
        main->resize(300, 400);
        EXPECT_GE(main->width(), 600) << "the resize floor";
    }
}

TEST(Hauptfenster, CloseStoresTheLayoutAndTheNextLoadRestoresTabAndSort)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    main->resize(900, 640);
    m.showTab(3);
    main->sortListe_Click();
    main->close();
    m.run.settle();
    EXPECT_EQ(m.run.settings().value(SettingKey::Breite), u"13500"_s);
    EXPECT_EQ(m.run.settings().value(SettingKey::Hoehe), u"9600"_s);
    EXPECT_EQ(m.run.settings().value(SettingKey::StartupMaximized), u"0"_s);
    EXPECT_EQ(m.run.program().loadedCount(), 0);

    m.show();
    EXPECT_EQ(m.entries().first(), u"7  Abc"_s);
    EXPECT_EQ(m.paneShown(), u"fr_3"_s);
}

TEST(Hauptfenster, MaximizedCloseKeepsTheLastNormalSize)
{
    MainWindowRun m;
    m.run.settings().setValue(SettingKey::Breite, u"12000"_s);
    Hauptfenster *main = m.show();
    main->showMaximized();
    m.run.settle();
    main->close();
    m.run.settle();
    EXPECT_EQ(m.run.settings().value(SettingKey::StartupMaximized), u"2"_s);
    EXPECT_EQ(m.run.settings().value(SettingKey::Breite), u"12000"_s);
}

TEST(Hauptfenster, TrayHidesADoubleClickBringsTheWindowBackAndTheEndRemovesIt)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    main->mntray_Click();
    EXPECT_FALSE(main->isVisible());
    EXPECT_TRUE(main->trayIcon()->isVisible());
    emit main->trayIcon()->activated(QSystemTrayIcon::Trigger);
    EXPECT_FALSE(main->isVisible()) << "a single click does nothing";
    emit main->trayIcon()->activated(QSystemTrayIcon::DoubleClick);
    EXPECT_TRUE(main->isVisible());

    bool ended = false;
    QObject::connect(&m.run.program(), &Program::allUnloaded, [&ended] { ended = true; });
    main->Toolbar1_ButtonClick(u"q"_s);
    EXPECT_FALSE(main->trayIcon()->isVisible());
    m.run.settle();
    EXPECT_TRUE(ended);
    EXPECT_EQ(m.run.program().loadedCount(), 0);
}

TEST(Hauptfenster, ChangeOfArchiveStoresTheLayoutAndLoadsTheWindowAnew)
{
    MainWindowRun m;
    m.run.archive(u"Zweites"_s);
    m.show()->resize(950, 600);
    m.main->open_Click();
    m.run.settle();
    EXPECT_EQ(m.run.form<Hauptfenster>(), nullptr);
    EXPECT_EQ(m.run.settings().value(SettingKey::Breite), u"14250"_s);
    openarchiv *chooser = m.run.form<openarchiv>();
    ASSERT_NE(chooser, nullptr);
    chooser->findChild<QLineEdit *>(u"Text1"_s)->setText(u"Zweites"_s);
    chooser->Command1_Click();
    m.run.settle();
    m.main = m.run.form<Hauptfenster>();
    ASSERT_NE(m.main, nullptr);
    EXPECT_TRUE(m.main->windowTitle().endsWith(u"Archiv: Zweites"_s));
    EXPECT_EQ(m.main->size(), QSize(950, 600));
    EXPECT_TRUE(m.entries().isEmpty());
}

TEST(Hauptfenster, HelpPageIsPlacedInTheProgramFolderAndOpened)
{
    MainWindowRun m;
    m.show()->hilfe_Click();
    QFile page(m.run.home() + u"/Hilfe.html"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    EXPECT_TRUE(page.readAll().contains("Silberbuch 5.1"));
    EXPECT_EQ(m.run.opened(), QList<QUrl> { QUrl::fromLocalFile(page.fileName()) });
}

TEST(Hauptfenster, CdCommandsNeedASelectedCd)
{
    for (const char *key : { "k", "l", "m" }) {
        SCOPED_TRACE(key);
        MainWindowRun m;
        m.show()->Toolbar1_ButtonClick(QString::fromLatin1(key));
        ASSERT_EQ(m.run.prompts().shown().size(), 1u);
        EXPECT_EQ(m.run.prompts().shown()[0].text, u"Keine CD ausgewählt!"_s);
        EXPECT_EQ(m.run.prompts().shown()[0].icon, Prompts::Icon::Critical);
        EXPECT_EQ(m.run.program().loadedCount(), 1);
        EXPECT_EQ(m.list()->count(), 3);
    }
}

TEST(Hauptfenster, CdDialogsOpenOnceAndGoWithTheMainWindow)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7);
    m.control<QAction>("mnueditCD")->trigger();
    QWidget *editor = m.run.program().form(u"changecd"_s);
    ASSERT_NE(editor, nullptr);
    main->Toolbar1_ButtonClick(u"l"_s);
    EXPECT_EQ(m.run.program().form(u"changecd"_s), editor);
    EXPECT_EQ(m.run.program().loadedCount(), 2);
    main->unloadall();
    m.run.settle();
    EXPECT_EQ(m.run.program().loadedCount(), 0);
}
