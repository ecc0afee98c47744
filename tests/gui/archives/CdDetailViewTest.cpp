#include "MainWindowRun.h"
#include "QStringPrinting.h"

#include "images/ImageBrowser.h"

#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QSortFilterProxyModel>
#include <QTreeView>

namespace {

void writeCover(const QString &path, const QColor &colour)
{
    QDir().mkpath(QFileInfo(path).path());
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(colour);
    ASSERT_TRUE(picture.save(path, "BMP"));
}

QRgb coverColour(const MainWindowRun &m)
{
    const QPixmap shown = m.control<QLabel>("Picture2")->pixmap();
    return shown.isNull() ? 0 : shown.toImage().pixel(1, 1);
}

} // namespace

TEST(CdDetailView, ShowsTheHeadCommentsAndCounts)
{
    MainWindowRun m;
    m.show();
    m.select(7);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Abc"));
    EXPECT_EQ(m.text("Label8"), QStringLiteral("7"));
    EXPECT_EQ(m.text("lblsn"), QStringLiteral("1001"));
    EXPECT_EQ(m.entries("List1"), (QStringList { QStringLiteral("eins"), QStringLiteral("zwei") }));
    // Nine file lines, the ZIP's closing row among them; five folder lines less the root.
    EXPECT_EQ(m.text("lblDateien"), QStringLiteral("9"));
    EXPECT_EQ(m.text("lblOrdner"), QStringLiteral("4"));
    EXPECT_TRUE(m.text("lblGroesse").isEmpty());

    m.select(3);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("birne"));
    EXPECT_EQ(m.text("lblsn"), QStringLiteral("0"));
    EXPECT_EQ(m.text("lblDateien"), QStringLiteral("Nicht Verfügbar!"));
    EXPECT_EQ(m.text("lblOrdner"), QStringLiteral("Nicht Verfügbar!"));
}

TEST(CdDetailView, CommentFramesAloneShowNoComment)
{
    MainWindowRun m;
    m.archive->cd(20, QStringLiteral("leer"), QStringLiteral("Sta1|End1"));
    m.archive->cd(21, QStringLiteral("ohne"), QStringLiteral("nichts"));
    m.archive->cd(22, QStringLiteral("bearbeitet"), QStringLiteral("Sta1||End1"));
    m.show();
    for (const int number : { 20, 21 }) {
        m.select(number);
        EXPECT_TRUE(m.entries("List1").isEmpty()) << number;
    }
    m.select(22);
    EXPECT_EQ(m.entries("List1"), QStringList { QString() });
}

TEST(CdDetailView, MissingImageFileActsAsNoImageAndKeepsTheCounts)
{
    MainWindowRun m;
    m.archive->cd(30, QStringLiteral("Verloren"), QStringLiteral("Sta1|End1"), 4242);
    m.show();
    m.select(7);
    m.select(30);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Verloren"));
    EXPECT_EQ(m.text("lblsn"), QStringLiteral("0"));
    EXPECT_EQ(m.text("lblDateien"), QStringLiteral("9")) << "the counts of the CD before";
    m.run.prompts().clear();
    m.showTab(2);
    EXPECT_EQ(m.run.prompts().messages(), QStringList { QStringLiteral("Kein CD Abbild vorhanden!") });
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_1"));
}

TEST(CdDetailView, EntryWithNumberZeroChangesNothing)
{
    MainWindowRun m;
    m.archive->cd(0, QStringLiteral("Null"));
    m.show();
    m.select(7);
    m.select(0);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Abc"));
    EXPECT_TRUE(m.entries("List1").isEmpty()) << "the comments are emptied first";
}

TEST(CdDetailView, CoverOrPlaceholderOrThePictureBefore)
{
    MainWindowRun m;
    const QString covers = m.run.home() + QStringLiteral("/Covers/");
    m.archive->cd(40, QStringLiteral("mit Cover"), QStringLiteral("Sta1|End1"), 0, QStringLiteral("5"));
    m.archive->cd(41, QStringLiteral("Cover fehlt"), QStringLiteral("Sta1|End1"), 0, QStringLiteral("6"));
    writeCover(covers + QStringLiteral("5.bmp"), Qt::blue);
    m.show();

    m.select(40);
    EXPECT_EQ(coverColour(m), qRgb(0, 0, 255));
    m.select(41);
    EXPECT_EQ(coverColour(m), qRgb(0, 0, 255)) << "no file and no placeholder: the picture before stays";
    m.select(3);
    EXPECT_EQ(coverColour(m), 0u) << "no cover and no placeholder: empty";

    writeCover(covers + QStringLiteral("nopic.bmp"), Qt::green);
    m.select(41);
    EXPECT_EQ(coverColour(m), qRgb(0, 255, 0));
    m.select(40);
    m.select(12);
    EXPECT_EQ(coverColour(m), qRgb(0, 255, 0)) << "no cover: the placeholder";
}

TEST(CdDetailView, CoverThatIsNoNumberIsReported)
{
    MainWindowRun m;
    m.archive->cd(50, QStringLiteral("kaputt"), QStringLiteral("Sta1|x|End1"), 0, QStringLiteral("abc"));
    m.show();
    m.select(50);
    ASSERT_EQ(m.run.prompts().shown().size(), 1u);
    EXPECT_EQ(m.run.prompts().shown()[0].icon, Prompts::Icon::Critical);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("kaputt"));
}

TEST(CdDetailView, ImageTabLoadsTheTreeWithAnEmptyList)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7);
    m.showTab(2);
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_2"));
    auto *tree = m.control<QTreeView>("TV");
    ASSERT_EQ(tree->model()->rowCount(), 1);
    const QModelIndex root = tree->model()->index(0, 0);
    EXPECT_EQ(root.data().toString(), QStringLiteral("Abc (d:)"));
    EXPECT_TRUE(tree->isExpanded(root));
    EXPECT_EQ(tree->model()->rowCount(root), 2);
    EXPECT_EQ(main->browser()->listModel()->rowCount(), 0);
    EXPECT_EQ(m.run.session().currentFolder, QStringLiteral("Abc (d:):"));

    // Another CD with an image reloads at once; one without empties both and stays on the tab.
    m.select(3);
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_2"));
    EXPECT_EQ(tree->model()->rowCount(), 0);
    m.select(7);
    EXPECT_EQ(tree->model()->rowCount(), 1);
}

TEST(CdDetailView, ImageTabWithoutSelectionShowsAnEmptyTree)
{
    MainWindowRun m;
    m.run.settings().setValue(SettingKey::TabStrip, QStringLiteral("2"));
    m.show();
    EXPECT_EQ(m.paneShown(), QStringLiteral("fr_2"));
    EXPECT_EQ(m.control<QTreeView>("TV")->model()->rowCount(), 0);
    EXPECT_TRUE(m.run.prompts().shown().empty());
}
