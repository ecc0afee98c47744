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

// One stored value on an otherwise empty profile: the layout it loads as. A value the window
// cannot take gets a notice, the default stands in, and the text is left for the next close
// to overwrite. Storing, and reading back what was stored, is the main window's desktop test.
TEST_F(MainWindowLayoutTest, LoadsEachStoredValue)
{
    const std::tuple<SettingKey, const char *, Layout, bool> cases[]
        = { { SettingKey::Breite, "32767", { 32767 }, false },
              { SettingKey::Breite, "12240,5", { 12240 }, false },
              { SettingKey::Breite, "12241.5", { 12242 }, false }, { SettingKey::Breite, "32768", {}, true },
              { SettingKey::Breite, "", {}, true },
              { SettingKey::Hoehe, "7575.5", { .heightTwips = 7575.5f }, false },
              { SettingKey::Hoehe, "1e39", {}, true },
              { SettingKey::StartupMaximized, "2", { .windowState = Layout::Maximized }, false },
              { SettingKey::StartupMaximized, "3", {}, true }, { SettingKey::TabStrip, "0", {}, true },
              { SettingKey::Sort, "1.0", {}, false } }; // only the exact text "1" sorts
    int row = 0;
    for (const auto &[key, stored, expected, notice] : cases) {
        SCOPED_TRACE(Settings::keyName(key).toStdString() + " = " + stored);
        Settings fresh(path(u"case%1.ini"_s.arg(++row)));
        fresh.setValue(key, QString::fromLatin1(stored));
        const LayoutLoad load = loadMainWindowLayout(fresh);
        EXPECT_EQ(std::tuple(fields(load.layout), fresh.value(key), load.messages.size()),
            std::tuple(fields(expected), QString::fromLatin1(stored), qsizetype(notice ? 1 : 0)));
        const QString head = u"Die gespeicherte Einstellung \"%1\" (%2)"_s.arg(
            Settings::keyName(key), QLatin1String(stored));
        for (const QString &message : load.messages)
            EXPECT_TRUE(message.startsWith(head) && message.contains(Settings::declaredDefault(key)))
                << message.toStdString();
    }
}

} // namespace
