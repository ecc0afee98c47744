#include "MainWindowRun.h"
#include "Screenshot.h"

#include "images/DriveTable.h"
#include "images/FileListView.h"
#include "images/ImageBrowser.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

// The browser on the main window's image tab, showing the image of CD 7 "Abc" on drive d:.
class ImageBrowserTest : public ::testing::Test
{
protected:
    void load()
    {
        m.show();
        m.select(7);
        m.showTab(2);
        m_browser = m.main->browser();
    }

    // The texts of one column of the file list, joined by "|".
    QString column(int column) const
    {
        QStringList texts;
        for (int row = 0; row < m_browser->listModel()->rowCount(); ++row)
            texts << m_browser->listModel()->index(row, column).data().toString();
        return texts.join(u'|');
    }

    // Double-clicks the file of that name in the list.
    void open(const QString &name) const
    {
        const auto row = static_cast<int>(column(0).split(u'|').indexOf(name));
        ASSERT_GE(row, 0) << name.toStdString();
        m.control<FileListView>("fileList")->detailsView()->setCurrentIndex(m_browser->listModel()->index(row, 0));
        m_browser->openSelectedFile();
    }

    MainWindowRun m;
    ImageBrowser *m_browser = nullptr;
};

} // namespace

// The list starts in the image's order and each header click turns the order round, the first
// one too, as in the result list. The columns fit at every folder shown and every change of
// the list's width, not only when the main window is resized. The main window at its default
// size with a folder listed is pictured, under the build folder next to the test too.
TEST_F(ImageBrowserTest, ClickingAFolderListsItsFilesInColumnsAndHeaderClicksTurnTheOrderRound)
{
    load();
    QAbstractItemModelTester tester(
        m_browser->listModel(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    const std::tuple<QString, QString, QString> cases[] = { // node, files, current folder
        { u"Bilder/alt.zip"_s, u"2001/haus.jpg|2001/garten.jpg|"_s, u"d:\\Bilder\\alt.zip"_s },
        { u"Bilder"_s, u"haus.jpg|garten.jpg"_s, u"d:\\Bilder"_s }
    };
    for (const auto &[path, files, folder] : cases) {
        SCOPED_TRACE(path.toStdString());
        m.clickNode(path);
        EXPECT_EQ(column(0), files);
        EXPECT_EQ(m.run.session().currentFolder, folder);
    }
    EXPECT_EQ(column(1) + u'|' + column(2), u"482113|501772|28.07.2002 18:02:44|28.07.2002 18:02:50"_s);
    m.run.settle(50);
    const QString folder = QCoreApplication::applicationDirPath() + u"/screenshots"_s;
    EXPECT_TRUE(QDir().mkpath(folder) && m.main->grab().toImage().save(folder + u"/Hauptfenster.png"_s));
    screenshot(m.main, u"hauptfenster-cd-abbild"_s);
    // Size and date are never cut, the name takes the rest: at the default window size as the
    // folder was shown (0), and at every later width of the list.
    auto *list = m.control<FileListView>("fileList");
    const QTreeView *details = list->detailsView();
    const QFontMetrics metrics = details->fontMetrics();
    for (const int width : { 0, 700, 450 }) {
        SCOPED_TRACE(width);
        if (width > 0)
            list->resize(width, list->height());
        m.run.settle();
        EXPECT_GT(list->columnWidth(1), metrics.horizontalAdvance(u"501772"_s));
        EXPECT_GT(list->columnWidth(2), metrics.horizontalAdvance(u"28.07.2002 18:02:44"_s));
        EXPECT_EQ(list->columnWidth(0) + list->columnWidth(1) + list->columnWidth(2), details->viewport()->width());
    }
    m_browser->sortByColumn(0);
    EXPECT_EQ(column(0), u"haus.jpg|garten.jpg"_s); // descending by name
    m_browser->sortByColumn(0);
    EXPECT_EQ(column(0), u"garten.jpg|haus.jpg"_s);
}

// An entry of a ZIP file opens the ZIP itself.
TEST_F(ImageBrowserTest, DoubleClickOpensTheFileOrAsksForTheMedium)
{
    const QString medium = m.run.home() + u"/medium"_s;
    writeFile(medium + u"/Bilder/haus.jpg"_s);
    ASSERT_TRUE(DriveTable(m.run.settings()).addFolder(u"d:"_s, medium).ok());
    load();
    m.clickNode(u"Bilder"_s);
    open(u"haus.jpg"_s);
    m.clickNode(u"Bilder/alt.zip"_s);
    open(u"2001/haus.jpg"_s);
    EXPECT_EQ(m.run.prompts().messages(),
        QStringList {
            u"Bitte legen Sie den Datenträger ein, auf dem die Datei d:\\Bilder\\alt.zip vorhanden ist!"_s });
    writeFile(medium + u"/Bilder/alt.zip"_s);
    m_browser->openSelectedFile();
    EXPECT_EQ(m.run.opened(),
        (QList<QUrl> { QUrl::fromLocalFile(medium + u"/Bilder/haus.jpg"_s),
            QUrl::fromLocalFile(medium + u"/Bilder/alt.zip"_s) }));
}
