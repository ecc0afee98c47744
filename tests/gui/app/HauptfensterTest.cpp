#include "MainWindowRun.h"

using namespace Qt::StringLiterals;

// A load shows the archive in title, list and count, at first in the default layout. A normal
// close stores size, tab and sort for the next load; a maximized one keeps the last normal size.
// A stored width below the floor is raised and rewritten.
TEST(Hauptfenster, LoadShowsTheArchiveAndCloseStoresTheLayoutForTheNextLoad)
{
    MainWindowRun m;
    Settings &settings = m.run.settings();
    Hauptfenster *main = m.show();
    EXPECT_EQ(main->windowTitle(), u"Silberbuch 5.1  -  Ravelin   |   Archiv: Test"_s);
    EXPECT_EQ(m.entries(), (QStringList { u"3 birne"_s, u"7 Abc"_s, u"12 Zebra"_s }));
    EXPECT_EQ(m.text("Label9") + u'|' + m.text("Text2"), u"3|Keine CD ausgewählt !"_s);
    EXPECT_EQ(std::tuple(main->size(), m.paneShown(), settings.contains(SettingKey::Breite)),
        std::tuple(QSize(816, 505), u"fr_1"_s, false));
    main->resize(300, 400);
    EXPECT_GE(main->width(), 600) << "the resize floor";
    main->resize(900, 640);
    m.showTab(3);
    main->sortListe_Click();
    main->close();
    m.run.settle();
    EXPECT_EQ(std::tuple(settings.value(SettingKey::Breite) + settings.value(SettingKey::Hoehe),
                  settings.value(SettingKey::StartupMaximized), m.run.program().loadedCount()),
        std::tuple(u"135009600"_s, u"0"_s, 0));

    main = m.show();
    EXPECT_EQ(m.entries().first() + u'|' + m.paneShown(), u"7  Abc|fr_3"_s);
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
