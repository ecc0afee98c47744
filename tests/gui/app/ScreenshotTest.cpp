#include "MainWindowRun.h"
#include "Screenshot.h"

#include "images/ImageBrowser.h"

#include <QSortFilterProxyModel>

using namespace Qt::StringLiterals;

// A picture of the main window as a person would see it, written under the build folder next
// to the test program.
TEST(Screenshot, MainWindowWithTheCdListAndABrowsedImage)
{
    MainWindowRun m;
    m.run.settings().setValue(SettingKey::Breite, u"15000"_s);
    m.run.settings().setValue(SettingKey::Hoehe, u"9000"_s);
    m.show();
    m.select(7);
    m.showTab(2);
    m.clickNode(u"Bilder"_s);
    m.run.settle(50);
    ASSERT_EQ(m.main->browser()->listModel()->rowCount(), 2);

    const QString folder = QCoreApplication::applicationDirPath() + u"/screenshots"_s;
    QDir().mkpath(folder);
    EXPECT_TRUE(m.main->grab().toImage().save(folder + u"/Hauptfenster.png"_s));
    screenshot(m.main, u"hauptfenster-cd-abbild"_s);
}
