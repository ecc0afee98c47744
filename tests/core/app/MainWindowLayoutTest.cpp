#include "AppTestFolder.h"

#include "app/MainWindowLayout.h"

namespace {

using MainWindowLayoutTest = AppTestFolder;

TEST_F(MainWindowLayoutTest, FreshProfileOpensAtTheDefaults)
{
    const LayoutLoad load = loadMainWindowLayout(settings());
    EXPECT_EQ(load.layout.widthTwips, 12240);
    EXPECT_EQ(load.layout.heightTwips, 7575.0f);
    EXPECT_EQ(load.layout.windowState, MainWindowLayout::Normal);
    EXPECT_EQ(load.layout.tab, 1);
    EXPECT_FALSE(load.layout.sorted);
    EXPECT_TRUE(load.messages.isEmpty());
    EXPECT_FALSE(settings().contains(SettingKey::Breite));
}

TEST_F(MainWindowLayoutTest, WidthHasAFloorThatIsWrittenBack)
{
    const struct
    {
        const char *stored;
        int width;
        const char *afterLoad;
    } cases[] = {
        {"9000", 10600, "10600"},   {"8995", 10600, "10600"},   {"10599", 10600, "10600"},
        {"-200", 10600, "10600"},   {"10600", 10600, "10600"},  {"10601", 10601, "10601"},
        {"32767", 32767, "32767"},  {"12240,5", 12240, "12240,5"}, {"12241.5", 12242, "12241.5"},
    };
    for (const auto &c : cases) {
        settings().setValue(SettingKey::Breite, QString::fromLatin1(c.stored));
        const LayoutLoad load = loadMainWindowLayout(settings());
        EXPECT_EQ(load.layout.widthTwips, c.width) << c.stored;
        EXPECT_EQ(settings().value(SettingKey::Breite), QString::fromLatin1(c.afterLoad)) << c.stored;
        EXPECT_TRUE(load.messages.isEmpty()) << c.stored;
    }
}

TEST_F(MainWindowLayoutTest, HeightIsTakenAsItStands)
{
    for (const char *stored : {"100", "0", "7575.5", "40000"}) {
        settings().setValue(SettingKey::Hoehe, QString::fromLatin1(stored));
        const LayoutLoad load = loadMainWindowLayout(settings());
        EXPECT_EQ(load.layout.heightTwips, QString::fromLatin1(stored).toFloat()) << stored;
        EXPECT_EQ(settings().value(SettingKey::Hoehe), QString::fromLatin1(stored)) << stored;
    }
}

// A value the window cannot take gets a notice naming key and value, and the default
// stands in; the stored text is left for the next close to overwrite.
TEST_F(MainWindowLayoutTest, UnusableValuesFallBackWithANotice)
{
    const struct
    {
        SettingKey key;
        const char *stored;
    } cases[] = {
        {SettingKey::Breite, "32768"},          {SettingKey::Breite, "40000"},
        {SettingKey::Breite, "-32769"},         {SettingKey::Breite, "breit"},
        {SettingKey::Breite, ""},               {SettingKey::Hoehe, "hoch"},
        {SettingKey::Hoehe, "1e39"},            {SettingKey::StartupMaximized, "3"},
        {SettingKey::StartupMaximized, "-1"},   {SettingKey::StartupMaximized, "max"},
        {SettingKey::TabStrip, "0"},            {SettingKey::TabStrip, "4"},
        {SettingKey::TabStrip, ""},
    };
    for (const auto &c : cases) {
        Settings fresh(path(QStringLiteral("case.ini")));
        for (const QString &key : fresh.groupKeys(QStringLiteral("Settings")))
            fresh.removeGroupValue(QStringLiteral("Settings"), key);
        const QString stored = QString::fromLatin1(c.stored);
        fresh.setValue(c.key, stored);

        const LayoutLoad load = loadMainWindowLayout(fresh);
        const MainWindowLayout defaults;
        EXPECT_EQ(load.layout.widthTwips, defaults.widthTwips) << c.stored;
        EXPECT_EQ(load.layout.heightTwips, defaults.heightTwips) << c.stored;
        EXPECT_EQ(load.layout.windowState, defaults.windowState) << c.stored;
        EXPECT_EQ(load.layout.tab, defaults.tab) << c.stored;
        ASSERT_EQ(load.messages.size(), 1) << c.stored;
        const QString &message = load.messages.front();
        EXPECT_TRUE(message.startsWith(QStringLiteral("Die gespeicherte Einstellung \"")
                                       + Settings::keyName(c.key) + QStringLiteral("\" (") + stored + QStringLiteral(")")))
            << message.toStdString();
        EXPECT_TRUE(message.contains(Settings::declaredDefault(c.key))) << message.toStdString();
        EXPECT_EQ(fresh.value(c.key), stored) << c.stored;
    }
}

TEST_F(MainWindowLayoutTest, StateTabAndSortAreRead)
{
    settings().setValue(SettingKey::StartupMaximized, QStringLiteral("2"));
    settings().setValue(SettingKey::TabStrip, QStringLiteral("3"));
    settings().setValue(SettingKey::Sort, QStringLiteral("1"));
    LayoutLoad load = loadMainWindowLayout(settings());
    EXPECT_EQ(load.layout.windowState, MainWindowLayout::Maximized);
    EXPECT_EQ(load.layout.tab, 3);
    EXPECT_TRUE(load.layout.sorted);

    // Only the exact text "1" means alphabetical order.
    settings().setValue(SettingKey::Sort, QStringLiteral("1.0"));
    EXPECT_FALSE(loadMainWindowLayout(settings()).layout.sorted);
}

TEST_F(MainWindowLayoutTest, CloseStoresSizeOnlyWhenNotMaximized)
{
    const struct
    {
        const char *name;
        MainWindowLayout closing;
        const char *breite;
        const char *hoehe;
        const char *state;
    } cases[] = {
        {"normal", {13005, 8010.0f, MainWindowLayout::Normal, 2, true}, "13005", "8010", "0"},
        {"minimized", {11010, 7500.0f, MainWindowLayout::Minimized, 3, false}, "11010", "7500", "1"},
        {"maximized", {28800, 16200.0f, MainWindowLayout::Maximized, 1, false}, "12000", "9000", "2"},
        {"wideScreen", {57600, 1500.0f, MainWindowLayout::Normal, 1, false}, "57600", "1500", "0"},
    };
    for (const auto &c : cases) {
        settings().setValue(SettingKey::Breite, QStringLiteral("12000"));
        settings().setValue(SettingKey::Hoehe, QStringLiteral("9000"));
        storeMainWindowLayout(settings(), c.closing);
        const Settings reread(settings().fileName());
        EXPECT_EQ(reread.value(SettingKey::Breite), QString::fromLatin1(c.breite)) << c.name;
        EXPECT_EQ(reread.value(SettingKey::Hoehe), QString::fromLatin1(c.hoehe)) << c.name;
        EXPECT_EQ(reread.value(SettingKey::StartupMaximized), QString::fromLatin1(c.state)) << c.name;
        EXPECT_EQ(reread.value(SettingKey::TabStrip), QString::number(c.closing.tab)) << c.name;
        EXPECT_EQ(reread.value(SettingKey::Sort), c.closing.sorted ? QStringLiteral("1") : QStringLiteral("0"))
            << c.name;
    }
}

TEST_F(MainWindowLayoutTest, ClosedLayoutOpensAgain)
{
    const MainWindowLayout closing{14010, 9015.0f, MainWindowLayout::Minimized, 2, true};
    storeMainWindowLayout(settings(), closing);
    const LayoutLoad load = loadMainWindowLayout(settings());
    EXPECT_EQ(load.layout.widthTwips, closing.widthTwips);
    EXPECT_EQ(load.layout.heightTwips, closing.heightTwips);
    EXPECT_EQ(load.layout.windowState, closing.windowState);
    EXPECT_EQ(load.layout.tab, closing.tab);
    EXPECT_EQ(load.layout.sorted, closing.sorted);
}

// A window dragged to the resize floor closes at 8995 twips; the next load raises it.
TEST_F(MainWindowLayoutTest, ResizeFloorIsRaisedAtTheNextLoad)
{
    storeMainWindowLayout(settings(), {kResizeWidthFloor, 7575.0f, MainWindowLayout::Normal, 1, false});
    EXPECT_EQ(settings().value(SettingKey::Breite), QStringLiteral("8995"));
    EXPECT_EQ(loadMainWindowLayout(settings()).layout.widthTwips, kLayoutWidthFloor);
    EXPECT_EQ(settings().value(SettingKey::Breite), QStringLiteral("10600"));
}

TEST(TwipsAndPixels, FifteenTwipsPerPixel)
{
    const struct
    {
        double twips;
        int pixels;
    } cases[] = {
        {12240, 816}, {7575, 505}, {10600, 707}, {0, 0}, {7, 0}, {8, 1}, {22.5, 2}, {37.5, 2}, {-15, -1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(twipsToPixels(c.twips), c.pixels) << c.twips;
    EXPECT_EQ(pixelsToTwips(707), 10605);
    // The floor survives a round trip through pixels: the window never closes narrower.
    EXPECT_GE(pixelsToTwips(twipsToPixels(kLayoutWidthFloor)), kLayoutWidthFloor);
}

} // namespace
