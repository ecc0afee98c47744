#include "AppTestFolder.h"

#include "app/MainWindowLayout.h"

namespace {

using namespace Qt::StringLiterals;
using Layout = MainWindowLayout;
using MainWindowLayoutTest = AppTestFolder;

auto fields(const Layout &layout)
{
    return std::tuple(layout.widthTwips, layout.heightTwips, layout.windowState, layout.tab, layout.sorted);
}

// One stored value on an otherwise empty profile: the layout it loads as and the text stored
// afterwards. A value the window cannot take gets a notice, the default stands in, and the
// text is left for the next close to overwrite.
TEST_F(MainWindowLayoutTest, LoadsEachStoredValue)
{
    const struct
    {
        SettingKey key;
        const char *stored; // nullptr: not stored
        Layout expected;
        const char *afterLoad; // nullptr: as stored
        bool notice;
    } cases[] = { { SettingKey::Breite, nullptr, {}, nullptr, false },
        { SettingKey::Breite, "10599", { 10600 }, "10600", false },
        { SettingKey::Breite, "32767", { 32767 }, nullptr, false },
        { SettingKey::Breite, "12240,5", { 12240 }, nullptr, false },
        { SettingKey::Breite, "12241.5", { 12242 }, nullptr, false },
        { SettingKey::Breite, "32768", {}, nullptr, true }, { SettingKey::Breite, "", {}, nullptr, true },
        { SettingKey::Hoehe, "7575.5", { .heightTwips = 7575.5f }, nullptr, false },
        { SettingKey::Hoehe, "1e39", {}, nullptr, true },
        { SettingKey::StartupMaximized, "2", { .windowState = Layout::Maximized }, nullptr, false },
        { SettingKey::StartupMaximized, "3", {}, nullptr, true },
        { SettingKey::TabStrip, "3", { .tab = 3 }, nullptr, false },
        { SettingKey::TabStrip, "0", {}, nullptr, true },
        { SettingKey::Sort, "1", { .sorted = true }, nullptr, false },
        { SettingKey::Sort, "1.0", {}, nullptr, false } }; // only the exact text "1" sorts
    int row = 0;
    for (const auto &c : cases) {
        SCOPED_TRACE(Settings::keyName(c.key).toStdString() + " = " + (c.stored ? c.stored : "<none>"));
        Settings fresh(path(u"case%1.ini"_s.arg(++row)));
        if (c.stored)
            fresh.setValue(c.key, QString::fromLatin1(c.stored));
        const LayoutLoad load = loadMainWindowLayout(fresh);
        EXPECT_EQ(fields(load.layout), fields(c.expected));
        const char *after = c.afterLoad ? c.afterLoad : c.stored;
        EXPECT_EQ(fresh.contains(c.key) ? fresh.value(c.key) : u"<none>"_s,
            after ? QString::fromLatin1(after) : u"<none>"_s);
        ASSERT_EQ(load.messages.size(), c.notice ? 1 : 0);
        if (c.notice) {
            EXPECT_TRUE(load.messages.front().startsWith(u"Die gespeicherte Einstellung \""_s
                + Settings::keyName(c.key) + u"\" ("_s + QString::fromLatin1(c.stored) + u")"_s))
                << load.messages.front().toStdString();
            EXPECT_TRUE(load.messages.front().contains(Settings::declaredDefault(c.key)));
        }
    }
}

// A maximized close keeps the last normal size; the texts of Breite, Hoehe, StartupMaximized,
// TabStrip and Sort.
TEST_F(MainWindowLayoutTest, StoresSizeOnlyWhenNotMaximized)
{
    const std::pair<Layout, const char *> cases[]
        = { { { 13005, 8010.0f, Layout::Normal, 2, true }, "13005 8010 0 2 1" },
              { { 28800, 16200.0f, Layout::Maximized, 1, false }, "12000 9000 2 1 0" },
              { { kResizeWidthFloor, 7575.0f, Layout::Normal, 1, false }, "8995 7575 0 1 0" } };
    for (const auto &[closing, expected] : cases) {
        settings().setValue(SettingKey::Breite, u"12000"_s);
        settings().setValue(SettingKey::Hoehe, u"9000"_s);
        storeMainWindowLayout(settings(), closing);
        const Settings reread(settings().fileName());
        QStringList stored;
        for (SettingKey key : { SettingKey::Breite, SettingKey::Hoehe, SettingKey::StartupMaximized,
                 SettingKey::TabStrip, SettingKey::Sort })
            stored << reread.value(key);
        EXPECT_EQ(stored.join(u' '), QString::fromLatin1(expected));
    }
    // A window dragged to the resize floor opens at the load floor next time.
    EXPECT_EQ(loadMainWindowLayout(settings()).layout.widthTwips, kLayoutWidthFloor);
}

} // namespace
