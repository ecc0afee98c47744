#include "DesktopRun.h"
#include "ExampleImage.h"

#include "app/Hauptfenster.h"
#include "app/Startup.h"
#include "images/ImageBrowser.h"

#include <QCoreApplication>
#include <QDir>
#include <QListWidget>
#include <QSortFilterProxyModel>
#include <QTabBar>
#include <QTreeView>

namespace {

// Pictures of the windows as a test drove them, for a person to look at: written under the
// build folder, next to the test program.
QString screenshotPath(const QString &name)
{
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/screenshots");
    QDir().mkpath(folder);
    return folder + QLatin1Char('/') + name + QStringLiteral(".png");
}

} // namespace

TEST(Screenshot, MainWindowWithTheCdListAndABrowsedImage)
{
    DesktopRun run;
    auto archive = run.archive(QStringLiteral("Alle Meine CDs"));
    archive->cd(
        1, QStringLiteral("Urlaub 2003"), QStringLiteral("Sta1|Fotos vom Gardasee|Videos|End1"), 1001);
    archive->cd(2, QStringLiteral("Steuer 2002"), QStringLiteral("Sta1|Belege|Formulare|End1"));
    archive->cd(3, QStringLiteral("Musik – Sammlung"), QStringLiteral("Sta1|MP3|End1"));
    archive->cd(14, QStringLiteral("Treiber und Setup"), QStringLiteral("Sta1|Drucker|Grafikkarte|End1"));
    run.image(1001, exampleImage());
    run.openArchive(QStringLiteral("Alle Meine CDs"));
    run.settings().setValue(SettingKey::Breite, QStringLiteral("15000"));
    run.settings().setValue(SettingKey::Hoehe, QStringLiteral("9000"));

    Hauptfenster *main = run.program().show<Hauptfenster>();
    auto *list = main->findChild<QListWidget *>(QStringLiteral("List2"));
    list->setCurrentRow(0);
    main->findChild<QTabBar *>(QStringLiteral("TabStrip1"))->setCurrentIndex(1);
    auto *tree = main->findChild<QTreeView *>(QStringLiteral("TV"));
    const QModelIndex root = tree->model()->index(0, 0);
    const QModelIndex pictures = tree->model()->index(0, 0, root);
    tree->expand(pictures);
    tree->setCurrentIndex(pictures);
    emit tree->clicked(pictures);
    run.settle(50);
    ASSERT_EQ(main->browser()->listModel()->rowCount(), 2);

    const QImage shot = main->grab().toImage();
    EXPECT_EQ(shot.size(), main->size());
    EXPECT_TRUE(shot.save(screenshotPath(QStringLiteral("Hauptfenster"))));

    main->findChild<QTabBar *>(QStringLiteral("TabStrip1"))->setCurrentIndex(2);
    run.settle(20);
    EXPECT_TRUE(main->grab().save(screenshotPath(QStringLiteral("Hauptfenster-Cover"))));
}

TEST(Screenshot, Splash)
{
    DesktopRun run;
    Startup *splash = run.program().show<Startup>();
    run.settle(20);
    EXPECT_TRUE(splash->grab().save(screenshotPath(QStringLiteral("Startup"))));
}
