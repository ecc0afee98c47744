#include "Screenshot.h"
#include "SearchFixture.h"

#include "images/DriveTable.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTest>
#include <QTreeView>

namespace {

class frmResultsTest : public SearchFixture
{
protected:
    // The list of a file search over all CDs.
    frmResults *searchAll(const QString &word)
    {
        EXPECT_TRUE(search(word, AllCds, Files));
        frmResults *window = this->window<frmResults>();
        if (window)
            window->resize(700, 400);
        return window;
    }

    static QTreeView *list(frmResults *window) { return control<QTreeView>(window, "ListView1"); }

    // The texts of a row (column < 0) or of a column (row < 0).
    static QStringList cells(frmResults *window, int row, int column)
    {
        const QAbstractItemModel *model = list(window)->model();
        QStringList out;
        const int count = row < 0 ? model->rowCount() : model->columnCount();
        for (int i = 0; i < count; ++i)
            out << model->index(row < 0 ? i : row, row < 0 ? column : i).data().toString();
        return out;
    }

    static void clickHeader(frmResults *window, int section)
    {
        QHeaderView *header = list(window)->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
            QPoint(header->sectionViewportPosition(section) + 5, header->height() / 2));
    }

    static void clickRow(frmResults *window, int row, bool twice = false)
    {
        QTreeView *view = list(window);
        const QPoint at = view->visualRect(view->model()->index(row, 1)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        if (twice)
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    }

    // Clicks "Ergebnisliste in Datei speichern" with `chosen` answered in the file dialog.
    void save(frmResults *window, const std::optional<QString> &chosen)
    {
        m_run.prompts().answerFile(chosen ? std::optional(Prompts::FileAnswer { *chosen, 0 }) : std::nullopt);
        control<QPushButton>(window, "Command1")->click();
    }

    // A path in a folder of the test's own, outside the data folder.
    QString scratch(const QString &name) const
    {
        const QString folder = QDir::cleanPath(m_run.home() + QStringLiteral("/../ablage"));
        QDir().mkpath(folder);
        return folder + QLatin1Char('/') + name;
    }
};

TEST_F(frmResultsTest, FileAndFolderHitsFillTheirColumns)
{
    frmResults *window = searchAll(QStringLiteral("e:"));
    ASSERT_NE(window, nullptr);
    QAbstractItemModelTester tester(list(window)->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(control<QLabel>(window, "Label1")->text(), QStringLiteral("Ergebnis der Suche nach e:"));
    QStringList headers;
    for (int c = 0; c < list(window)->model()->columnCount(); ++c)
        headers << list(window)->model()->headerData(c, Qt::Horizontal).toString();
    EXPECT_EQ(headers,
        (QStringList { QStringLiteral("CD-Name"), QStringLiteral("Dateien"), QStringLiteral("Größe"), QStringLiteral("Datum") }));
    const QString cd = QStringLiteral("2-Fotos");
    const std::vector<QStringList> expected {
        { cd, QStringLiteral(">e:"), QString(), QString() },
        { cd, QStringLiteral(">e:\\Bilder"), QString(), QString() },
        { cd, QStringLiteral("e:\\Bilder\\haus.jpg"), QStringLiteral("482113"), QStringLiteral("28.07.2002 18:02:44") },
        { cd, QStringLiteral(">e:\\Bilder\\alt.zip"), QString(), QString() },
        { cd, QStringLiteral("e:\\Bilder\\alt.zip\\2001/haus.jpg"), QStringLiteral("120455"), QStringLiteral("04.11.2001") },
        { cd, QStringLiteral("e:\\Bilder\\alt.zip\\"), QString(), QString() },
        { cd, QStringLiteral("e:\\wörter\\word.doc"), QStringLiteral("10"), QStringLiteral("05.05.2005") },
    };
    ASSERT_EQ(list(window)->model()->rowCount(), static_cast<int>(expected.size()));
    for (size_t r = 0; r < expected.size(); ++r)
        EXPECT_EQ(cells(window, static_cast<int>(r), -1), expected[r]) << r;
    clickHeader(window, 0); // the tester watches the sort, too
}

// Each click turns the one sort order round, the first click to descending; sizes sort as
// texts. A click on an item selects its file also after a sort.
TEST_F(frmResultsTest, HeaderClicksSortByTextAndTurnTheOrder)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    clickHeader(window, 2);
    EXPECT_EQ(cells(window, -1, 2), (QStringList { QStringLiteral("9"), QStringLiteral("2048"), QStringLiteral("10") }));
    clickHeader(window, 2);
    EXPECT_EQ(cells(window, -1, 2), (QStringList { QStringLiteral("10"), QStringLiteral("2048"), QStringLiteral("9") }));
    EXPECT_EQ(window->selectedFile(), QString());
    clickHeader(window, 1);
    EXPECT_EQ(cells(window, -1, 1),
        (QStringList { QStringLiteral("f:\\Spiele\\Word7.exe"), QStringLiteral("e:\\wörter\\word.doc"),
            QStringLiteral("d:\\Setup\\Word.exe") }));
    clickRow(window, 0);
    EXPECT_EQ(window->selectedFile(), QStringLiteral("f:\\Spiele\\Word7.exe"));
}

// The file holds the hits in the order of the search, whatever the list's order; a name
// without extension gets ".txt"; a cancel writes nothing; a file that cannot be written is
// reported.
TEST_F(frmResultsTest, SavedFileHoldsTheHitsInSearchOrder)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    clickHeader(window, 2);
    save(window, scratch(QStringLiteral("treffer")));
    QFile file(scratch(QStringLiteral("treffer.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    ASSERT_EQ(lines.size(), 6); // head, rule, three hits, nothing behind the last CR LF
    EXPECT_TRUE(lines[0].startsWith("Suchergebnisse f\xFCr die Suche nach word Stand: ")) << lines[0].toStdString();
    EXPECT_EQ(lines[1], "======================\r");
    EXPECT_EQ(lines[2], "1-Backup 2003 d:\\Setup\\Word.exe * 9 Byte * Date:01.02.2003\r");
    EXPECT_EQ(lines[3], "2-Fotos e:\\w\xF6rter\\word.doc * 10 Byte * Date:05.05.2005\r");
    EXPECT_EQ(lines[4], "4-Spiele f:\\Spiele\\Word7.exe * 2048 Byte * Date:03.03.2003 03:03:03\r");
    EXPECT_EQ(lines[5], "");
    EXPECT_FALSE(QFile::exists(scratch(QStringLiteral("treffer"))));
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].file.mode, Prompts::FileRequest::Mode::Save);

    save(window, std::nullopt);
    save(window, scratch(QStringLiteral("fehlt/treffer.txt")));
    ASSERT_EQ(shown().size(), 4u);
    EXPECT_EQ(shown()[3].icon, Icon::Critical);
    EXPECT_TRUE(shown()[3].text.startsWith(QStringLiteral("Laufzeitfehler"))) << shown()[3].text.toStdString();
    EXPECT_EQ(QDir(scratch({})).entryList(QDir::Files), QStringList { QStringLiteral("treffer.txt") });
}

TEST_F(frmResultsTest, DoubleClickOpensAFileWhoseMediumIsThereAndAsksForOneThatIsNot)
{
    const QString medium = scratch(QStringLiteral("medium"));
    QDir().mkpath(medium + QStringLiteral("/Setup"));
    QFile file(medium + QStringLiteral("/Setup/Word.exe"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const AddDriveResult drive = DriveTable(m_run.settings()).addFolder(QStringLiteral("q:"), medium);
    ASSERT_TRUE(drive.ok()) << drive.error.toStdString();

    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    clickRow(window, 0, true);
    expectOneMessage(
        QStringLiteral("Bitte legen Sie den Datenträger ein, auf dem die Datei d:\\Setup\\Word.exe vorhanden ist!"), Icon::None);

    m_run.prompts().clear();
    ASSERT_TRUE(window->getResults(
        { QStringLiteral("7-Stick<q:\\Setup\\Word.exe|0|01.01.2004"), QStringLiteral("7-Stick<>q:\\Setup") },
        QStringLiteral("word")));
    clickRow(window, 0, true);
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(m_run.opened(), QList<QUrl> { QUrl::fromLocalFile(medium + QStringLiteral("/Setup/Word.exe")) });
    clickRow(window, 1, true); // a folder is no file to open
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_TRUE(shown()[0].text.contains(QStringLiteral(">q:\\Setup")));
}

// A picture of the list of a search over all CDs, for a person to look at: written to
// $SILBERBUCH_SCREENSHOTS/frmResults.png when that variable is set.
TEST_F(frmResultsTest, Screenshot)
{
    if (qEnvironmentVariableIsEmpty("SILBERBUCH_SCREENSHOTS"))
        GTEST_SKIP() << "SILBERBUCH_SCREENSHOTS not set";
    frmResults *window = searchAll(QStringLiteral("e"));
    ASSERT_NE(window, nullptr);
    window->resize(720, 420);
    window->getResults(session().lastResults, QStringLiteral("e")); // columns fitted to the new width
    QStringList cds = cells(window, -1, 0);
    cds.removeDuplicates();
    EXPECT_EQ(cds, (QStringList { QStringLiteral("1-Backup 2003"), QStringLiteral("2-Fotos"), QStringLiteral("4-Spiele") }));
    QTest::qWait(50);
    screenshot(window, QStringLiteral("frmResults"));
}

} // namespace
