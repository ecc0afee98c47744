#include "DesktopRun.h"
#include "ExampleImage.h"

#include "app/Hauptfenster.h"
#include "images/ImageBrowser.h"

#include <QListWidget>
#include <QSortFilterProxyModel>
#include <QTabBar>
#include <QTreeView>

using namespace Qt::StringLiterals;

// A picture of the main window as a person would see it, written under the build folder next
// to the test program.
TEST(Screenshot, MainWindowWithTheCdListAndABrowsedImage)
{
    DesktopRun run;
    auto archive = run.archive(u"Alle Meine CDs"_s);
    archive->cd(1, u"Urlaub 2003"_s, u"Sta1|Fotos vom Gardasee|Videos|End1"_s, 1001);
    archive->cd(2, u"Steuer 2002"_s, u"Sta1|Belege|Formulare|End1"_s);
    run.image(1001, exampleImage());
    run.openArchive(u"Alle Meine CDs"_s);
    run.settings().setValue(SettingKey::Breite, u"15000"_s);
    run.settings().setValue(SettingKey::Hoehe, u"9000"_s);

    Hauptfenster *main = run.program().show<Hauptfenster>();
    main->findChild<QListWidget *>(u"List2"_s)->setCurrentRow(0);
    main->findChild<QTabBar *>(u"TabStrip1"_s)->setCurrentIndex(1);
    auto *tree = main->findChild<QTreeView *>(u"TV"_s);
    const QModelIndex pictures = tree->model()->index(0, 0, tree->model()->index(0, 0));
    tree->expand(pictures);
    tree->setCurrentIndex(pictures);
    emit tree->clicked(pictures);
    run.settle(50);
    ASSERT_EQ(main->browser()->listModel()->rowCount(), 2);

    const QString folder = QCoreApplication::applicationDirPath() + u"/screenshots"_s;
    QDir().mkpath(folder);
    const QImage shot = main->grab().toImage();
    EXPECT_TRUE(shot.save(folder + u"/Hauptfenster.png"_s));
}
