#include "MainWindowRun.h"

#include "images/ImageBrowser.h"

#include <QSortFilterProxyModel>
#include <QTreeView>

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
    auto *tree = m.control<QTreeView>("TV");
    const QModelIndex pictures = tree->model()->index(0, 0, tree->model()->index(0, 0));
    tree->expand(pictures);
    tree->setCurrentIndex(pictures);
    emit tree->clicked(pictures);
    m.run.settle(50);
    ASSERT_EQ(m.main->browser()->listModel()->rowCount(), 2);

    const QString folder = QCoreApplication::applicationDirPath() + u"/screenshots"_s;
    QDir().mkpath(folder);
    EXPECT_TRUE(m.main->grab().toImage().save(folder + u"/Hauptfenster.png"_s));
}
