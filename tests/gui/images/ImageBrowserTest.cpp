#include "DesktopRun.h"
#include "ExampleImage.h"
#include "QStringPrinting.h"

#include "images/FileListView.h"
#include "images/FolderListModel.h"
#include "images/ImageBrowser.h"
#include "images/ImageTreeModel.h"

#include "app/DataPaths.h"
#include "images/DriveTable.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QListView>
#include <QMenu>
#include <QSortFilterProxyModel>
#include <QTreeView>

namespace {

// The example image on drive x:, which the test makes a folder of its own.
std::string imageOnX(std::string image = exampleImage())
{
    for (size_t at = image.find("d:"); at != std::string::npos; at = image.find("d:", at + 2))
        image[at] = 'x';
    return image;
}

class ImageBrowserTest : public ::testing::Test
{
protected:
    ImageBrowserTest()
        : m_tree(new QTreeView(&m_window))
        , m_list(new FileListView(&m_window))
        , m_noIcons(new QCheckBox(&m_window))
        , m_browser(m_run.session(), m_run.settings(), m_tree, m_list, m_noIcons, &m_window)
    {
        m_window.resize(800, 500);
    }

    QString load(const std::string &image = imageOnX())
    {
        m_run.image(1001, image);
        const QString path = datapaths::imageFile(m_run.home(), 1001);
        m_browser.load_image(path, QStringLiteral("Meine CD"));
        return path;
    }

    QModelIndex node(const QStringList &texts) const
    {
        QModelIndex at;
        for (const QString &text : texts) {
            const QAbstractItemModel *model = m_tree->model();
            QModelIndex found;
            for (int row = 0; row < model->rowCount(at); ++row)
                if (model->index(row, 0, at).data().toString() == text)
                    found = model->index(row, 0, at);
            EXPECT_TRUE(found.isValid()) << text.toStdString();
            at = found;
        }
        return at;
    }

    void click(const QStringList &texts)
    {
        const QModelIndex target = node(texts);
        m_tree->setCurrentIndex(target);
        emit m_tree->clicked(target);
    }

    QStringList column(int column) const
    {
        QStringList texts;
        const QAbstractItemModel *model = m_browser.listModel();
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->index(row, column).data().toString();
        return texts;
    }

    qint64 iconKey(int row) const
    {
        return m_browser.listModel()->index(row, 0).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    }

    void selectRow(const QString &name)
    {
        const int row = static_cast<int>(column(0).indexOf(name));
        ASSERT_GE(row, 0) << name.toStdString();
        m_list->detailsView()->setCurrentIndex(m_browser.listModel()->index(row, 0));
    }

    DesktopRun m_run;
    QWidget m_window;
    QTreeView *m_tree;
    FileListView *m_list;
    QCheckBox *m_noIcons;
    ImageBrowser m_browser;
};

} // namespace

TEST_F(ImageBrowserTest, TreeShowsTheFoldersWithTheTitleAtTheRoot)
{
    load();
    QAbstractItemModelTester tester(
        m_browser.treeModel(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(m_browser.firstNodeText(), QStringLiteral("Meine CD (x:)"));
    const QModelIndex root = node({ QStringLiteral("Meine CD (x:)") });
    ASSERT_EQ(m_tree->model()->rowCount(root), 2);
    EXPECT_EQ(node({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Bilder"), QStringLiteral("alt.zip") })
                  .data(ImageTreeModel::KeyRole)
                  .toByteArray(),
        QByteArray("x:\\Bilder\\alt.zip"));
    EXPECT_TRUE(
        node({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Setup"), QStringLiteral("daten.rar") })
            .isValid());

    m_browser.Command5_Click();
    EXPECT_TRUE(m_tree->isExpanded(node({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Bilder") })));
    m_browser.Command6_Click();
    EXPECT_FALSE(m_tree->isExpanded(root));
}

TEST_F(ImageBrowserTest, ClickingAFolderListsItsFiles)
{
    load();
    QAbstractItemModelTester tester(
        m_browser.listModel(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_browser.show_folder("Meine CD (x:):");
    EXPECT_TRUE(column(0).isEmpty()) << "the root's text with a colon matches no line";

    click({ QStringLiteral("Meine CD (x:)") });
    EXPECT_EQ(column(0), QStringList { QStringLiteral("liesmich.txt") });
    EXPECT_EQ(m_run.session().currentFolder, QStringLiteral("x:"));

    click({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Bilder") });
    EXPECT_EQ(column(0), (QStringList { QStringLiteral("haus.jpg"), QStringLiteral("garten.jpg") }));
    EXPECT_EQ(column(1), (QStringList { QStringLiteral("482113"), QStringLiteral("501772") }));
    EXPECT_EQ(column(2),
        (QStringList { QStringLiteral("28.07.2002 18:02:44"), QStringLiteral("28.07.2002 18:02:50") }));

    click({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Bilder"), QStringLiteral("alt.zip") });
    EXPECT_EQ(column(0),
        (QStringList { QStringLiteral("2001/haus.jpg"), QStringLiteral("2001/garten.jpg"), QString() }));
    EXPECT_EQ(m_browser.listModel()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Dateien"));
    EXPECT_EQ(m_browser.listModel()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Größe"));
    EXPECT_EQ(
        m_browser.listModel()->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Zuletzt geändert"));
}

TEST_F(ImageBrowserTest, AChangedImageFileIsReadAgain)
{
    load();
    click({ QStringLiteral("Meine CD (x:)") });
    std::string changed = imageOnX();
    changed.insert(changed.find("\r\n") + 2, "x:\\neu.txt|5|01.01.2004\r\n");
    m_run.image(1001, changed);
    click({ QStringLiteral("Meine CD (x:)") });
    EXPECT_EQ(column(0), (QStringList { QStringLiteral("neu.txt"), QStringLiteral("liesmich.txt") }));
}

TEST_F(ImageBrowserTest, PicturesByTypeOrTheOneStandardPicture)
{
    load(">x:\r\n"
         "x:\\lied.mp3|1|a\r\n"
         "x:\\a.txt|2|b\r\n"
         "x:\\b.jpg|3|c\r\n"
         "x:\\lied2.mp3|4|d\r\n"
         "x:\\c.txt|5|e\r\n");
    click({ QStringLiteral("Meine CD (x:)") });
    // lied2.mp3 has the picture of the row before it, c.txt that of a.txt.
    EXPECT_EQ(iconKey(3), iconKey(2));
    EXPECT_EQ(iconKey(4), iconKey(1));
    EXPECT_NE(iconKey(1), iconKey(2));

    m_browser.popup()->findChild<QAction *>(QStringLiteral("mnug6"))->trigger();
    EXPECT_TRUE(m_noIcons->isChecked());
    for (int row = 1; row < 5; ++row)
        EXPECT_EQ(iconKey(row), iconKey(0)) << row;

    m_browser.popup()->findChild<QAction *>(QStringLiteral("mnug5"))->trigger();
    EXPECT_FALSE(m_noIcons->isChecked());
    EXPECT_NE(iconKey(1), iconKey(2));
}

TEST_F(ImageBrowserTest, IconChoiceWithoutASelectedFolderIsReported)
{
    load();
    m_browser.mnug5_Click();
    ASSERT_EQ(m_run.prompts().shown().size(), 1u);
    EXPECT_EQ(m_run.prompts().shown()[0].icon, Prompts::Icon::Critical);
    EXPECT_TRUE(m_run.prompts().shown()[0].text.contains(QStringLiteral("91")));
}

TEST_F(ImageBrowserTest, PopupSwitchesBetweenTheFourViews)
{
    const struct
    {
        const char *entry;
        FileListView::View view;
        bool details;
    } cases[] = { { "mnug1", FileListView::LargeIcons, false }, { "mnug2", FileListView::SmallIcons, false },
        { "mnug3", FileListView::List, false }, { "mnug4", FileListView::Details, true } };
    EXPECT_EQ(m_list->view(), FileListView::Details);
    for (const auto &c : cases) {
        m_window.findChild<QAction *>(QString::fromLatin1(c.entry))->trigger();
        EXPECT_EQ(m_list->view(), c.view) << c.entry;
        EXPECT_EQ(m_list->currentWidget() == m_list->detailsView(), c.details) << c.entry;
    }
    m_browser.setView(FileListView::LargeIcons);
    EXPECT_EQ(m_list->iconView()->viewMode(), QListView::IconMode);
    m_browser.setView(FileListView::List);
    EXPECT_EQ(m_list->iconView()->flow(), QListView::TopToBottom);
}

TEST_F(ImageBrowserTest, ColumnClickSortsAsTextAndTurnsTheOrderAtEachClick)
{
    load(">x:\r\n"
         "x:\\b.txt|9|03.01.2003\r\n"
         "x:\\a.txt|10|01.01.2003\r\n"
         "x:\\C.txt|100|02.01.2003\r\n");
    click({ QStringLiteral("Meine CD (x:)") });
    EXPECT_EQ(column(0),
        (QStringList { QStringLiteral("b.txt"), QStringLiteral("a.txt"), QStringLiteral("C.txt") }));
    m_browser.ColumnClick(1);
    EXPECT_EQ(column(1), (QStringList { QStringLiteral("10"), QStringLiteral("100"), QStringLiteral("9") }));
    m_browser.ColumnClick(0);
    EXPECT_EQ(column(0),
        (QStringList { QStringLiteral("C.txt"), QStringLiteral("b.txt"), QStringLiteral("a.txt") }));
    // Another folder keeps the order.
    click({ QStringLiteral("Meine CD (x:)") });
    EXPECT_EQ(column(0).first(), QStringLiteral("C.txt"));
}

TEST_F(ImageBrowserTest, DoubleClickOpensTheFileOrAsksForTheMedium)
{
    const QString medium = m_run.home() + QStringLiteral("/medium");
    QDir().mkpath(medium + QStringLiteral("/Bilder"));
    QFile(medium + QStringLiteral("/Bilder/haus.jpg")).open(QIODevice::WriteOnly);
    DriveTable drives(m_run.settings());
    ASSERT_TRUE(drives.addFolder(QStringLiteral("x:"), medium).ok());
    load();

    click({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Bilder") });
    selectRow(QStringLiteral("haus.jpg"));
    m_browser.ItemDblClick();
    ASSERT_EQ(m_run.opened().size(), 1);
    EXPECT_EQ(m_run.opened()[0], QUrl::fromLocalFile(medium + QStringLiteral("/Bilder/haus.jpg")));

    selectRow(QStringLiteral("garten.jpg"));
    m_browser.ItemDblClick();
    EXPECT_EQ(m_run.prompts().messages(),
        QStringList { QStringLiteral("Bitte legen Sie den Datenträger ein, auf dem die Datei "
                                     "x:\\Bilder\\garten.jpg vorhanden ist!") });

    // An entry of a ZIP file: the ZIP itself is what is opened.
    m_run.prompts().clear();
    click({ QStringLiteral("Meine CD (x:)"), QStringLiteral("Bilder"), QStringLiteral("alt.zip") });
    selectRow(QStringLiteral("2001/haus.jpg"));
    m_browser.ItemDblClick();
    EXPECT_EQ(m_run.prompts().messages(),
        QStringList { QStringLiteral(
            "Bitte legen Sie den Datenträger ein, auf dem die Datei x:\\Bilder\\alt.zip vorhanden ist!") });
    QFile(medium + QStringLiteral("/Bilder/alt.zip")).open(QIODevice::WriteOnly);
    m_browser.ItemDblClick();
    EXPECT_EQ(m_run.opened().last(), QUrl::fromLocalFile(medium + QStringLiteral("/Bilder/alt.zip")));
}

TEST_F(ImageBrowserTest, DoubleClickWithNothingSelectedDoesNothing)
{
    load();
    click({ QStringLiteral("Meine CD (x:)") });
    m_browser.ItemDblClick();
    EXPECT_TRUE(m_run.prompts().shown().empty());
    EXPECT_TRUE(m_run.opened().isEmpty());
}

TEST_F(ImageBrowserTest, ColumnsShareTheListWidthAsDesigned)
{
    m_list->resize(501, 300);
    m_browser.fitColumns();
    EXPECT_EQ(m_list->columnWidth(0), 501 * 2935 / 5010);
    EXPECT_EQ(m_list->columnWidth(1), 501 * 639 / 5010);
    EXPECT_EQ(m_list->columnWidth(2), 501 * 1352 / 5010);
}
