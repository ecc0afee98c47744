#include "MainWindowRun.h"
#include "QStringPrinting.h"

using namespace Qt::StringLiterals;

TEST(Hauptfenster, StoredLayoutIsReadWithTheWidthFloor)
{
    // name, Breite stored before (nullptr: a fresh profile), tab, size, Breite after ("-": none), pane
    const std::tuple<const char *, const char *, const char *, QSize, const char *, const char *> cases[]
        = { { "fresh profile", nullptr, nullptr, QSize(816, 505), "-", "fr_1" },
              { "narrow width is raised and rewritten", "9000", "3", QSize(707, 533), "10600", "fr_3" } };
    for (const auto &[name, breite, tab, size, stored, pane] : cases) {
        SCOPED_TRACE(name);
        MainWindowRun m;
        Settings &settings = m.run.settings();
        if (breite) {
            settings.setValue(SettingKey::Breite, QString::fromLatin1(breite));
            settings.setValue(SettingKey::Hoehe, u"8000"_s);
            settings.setValue(SettingKey::TabStrip, QString::fromLatin1(tab));
        }
        Hauptfenster *main = m.show();
        EXPECT_EQ(main->size(), size);
        EXPECT_EQ(m.paneShown(), QString::fromLatin1(pane));
        EXPECT_EQ(settings.contains(SettingKey::Breite) ? settings.value(SettingKey::Breite) : u"-"_s,
            QString::fromLatin1(stored));
        main->resize(300, 400);
        EXPECT_GE(main->width(), 600) << "the resize floor";
    }
}

// A load shows the archive in title, list and count. A normal close stores size, tab and sort
// for the next load; a maximized one keeps the last normal size.
TEST(Hauptfenster, LoadShowsTheArchiveAndCloseStoresTheLayoutForTheNextLoad)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    EXPECT_EQ(main->windowTitle(), u"Silberbuch 5.1  -  Ravelin   |   Archiv: Test"_s);
    EXPECT_EQ(m.entries(), (QStringList { u"3 birne"_s, u"7 Abc"_s, u"12 Zebra"_s }));
    EXPECT_EQ(m.text("Label9") + u'|' + m.text("Text2"), u"3|Keine CD ausgewählt !"_s);
    main->resize(900, 640);
    m.showTab(3);
    main->sortListe_Click();
    main->close();
    m.run.settle();
    Settings &settings = m.run.settings();
    EXPECT_EQ(settings.value(SettingKey::Breite) + settings.value(SettingKey::Hoehe), u"135009600"_s);
    EXPECT_EQ(settings.value(SettingKey::StartupMaximized), u"0"_s);
    EXPECT_EQ(m.run.program().loadedCount(), 0);

    main = m.show();
    EXPECT_EQ(m.entries().first(), u"7  Abc"_s);
    EXPECT_EQ(m.paneShown(), u"fr_3"_s);
    main->showMaximized();
    m.run.settle();
    main->close();
    m.run.settle();
    EXPECT_EQ(settings.value(SettingKey::StartupMaximized), u"2"_s);
    EXPECT_EQ(settings.value(SettingKey::Breite), u"13500"_s);
}
