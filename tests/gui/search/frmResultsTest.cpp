#include "Screenshot.h"
#include "SearchFixture.h"

#include "app/ShellOpen.h"
#include "images/DriveTable.h"
#include "search/ResultsModel.h"
#include "search/frmResults.h"
#include "search/frmsearch.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <QUrl>

namespace {

using Icon = Prompts::Icon;

class frmResultsTest : public SearchFixture
{
protected:
    // The results of a search over all CDs.
    frmResults *searchAll(const QString &word)
    {
        frmsearch *dialog = openSearch();
        EXPECT_TRUE(search(dialog, word, QStringLiteral("Option2"), QStringLiteral("Option3")));
        return m_windows->resultsWindow();
    }

    static QTreeView *list(frmResults *window) { return child<QTreeView>(window, "ListView1"); }

    static QStringList row(frmResults *window, int r)
    {
        QStringList cells;
        const QAbstractItemModel *model = list(window)->model();
        for (int c = 0; c < model->columnCount(); ++c)
            cells.append(model->index(r, c).data().toString());
        return cells;
    }

    static QStringList column(frmResults *window, int c)
    {
        QStringList cells;
        const QAbstractItemModel *model = list(window)->model();
        for (int r = 0; r < model->rowCount(); ++r)
            cells.append(model->index(r, c).data().toString());
        return cells;
    }

    static QModelIndex cell(frmResults *window, int r, int c) { return list(window)->model()->index(r, c); }

    static void clickHeader(frmResults *window, int section)
    {
        QHeaderView *header = list(window)->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(section) + 5, header->height() / 2));
    }

    static void clickRow(frmResults *window, int r, bool twice = false)
    {
        QTreeView *view = list(window);
        const QPoint at = view->visualRect(cell(window, r, 1)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        if (twice)
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    }

    // Saves under the name chosen in the dialog; the bytes of `written`, empty when there is none.
    QByteArray saveAnswered(frmResults *window, const QString &chosen, const QString &written = {})
    {
        m_prompts.answerFile(Prompts::FileAnswer{chosen, 0});
        child<QPushButton>(window, "Command1")->click();
        QFile file(written.isEmpty() ? chosen : written);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(frmResultsTest, ShowsItsControlsWithTheirTexts)
{
    frmResults *window = searchAll(QStringLiteral("haus"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Ergebnis der Suche "));
    EXPECT_EQ(child<QLabel>(window, "Label1")->text(), QStringLiteral("Ergebnis der Suche nach haus"));
    EXPECT_EQ(child<QPushButton>(window, "Command1")->text(), QStringLiteral("Ergebnisliste in Datei speichern"));
    EXPECT_EQ(child<QPushButton>(window, "Command2")->text(), QStringLiteral("Ergebnisliste drucken"));
    EXPECT_FALSE(child<QPushButton>(window, "Command2")->isEnabled());
    EXPECT_EQ(child<QPushButton>(window, "Command3")->text(), QStringLiteral("Schließen"));
    const QAbstractItemModel *model = list(window)->model();
    QStringList headers;
    for (int c = 0; c < model->columnCount(); ++c)
        headers.append(model->headerData(c, Qt::Horizontal).toString());
    EXPECT_EQ(headers, (QStringList{QStringLiteral("CD-Name"), QStringLiteral("Dateien"), QStringLiteral("Größe"),
                                    QStringLiteral("Datum")}));
}

TEST_F(frmResultsTest, FileAndFolderHitsFillTheirColumns)
{
    frmResults *window = searchAll(QStringLiteral("e:"));
    ASSERT_NE(window, nullptr);
    const QStringList none;
    const std::vector<QStringList> expected{
        {QStringLiteral("2-Fotos"), QStringLiteral(">e:"), QString(), QString()},
        {QStringLiteral("2-Fotos"), QStringLiteral(">e:\\Bilder"), QString(), QString()},
        {QStringLiteral("2-Fotos"), QStringLiteral("e:\\Bilder\\haus.jpg"), QStringLiteral("482113"),
         QStringLiteral("28.07.2002 18:02:44")},
        {QStringLiteral("2-Fotos"), QStringLiteral(">e:\\Bilder\\alt.zip"), QString(), QString()},
        {QStringLiteral("2-Fotos"), QStringLiteral("e:\\Bilder\\alt.zip\\2001/haus.jpg"), QStringLiteral("120455"),
         QStringLiteral("04.11.2001")},
        {QStringLiteral("2-Fotos"), QStringLiteral("e:\\Bilder\\alt.zip\\"), QString(), QString()},
        {QStringLiteral("2-Fotos"), QStringLiteral("e:\\wörter\\word.doc"), QStringLiteral("10"),
         QStringLiteral("05.05.2005")},
    };
    ASSERT_EQ(list(window)->model()->rowCount(), static_cast<int>(expected.size()));
    for (size_t r = 0; r < expected.size(); ++r)
        EXPECT_EQ(row(window, static_cast<int>(r)), expected[r]) << r;
}

// The columns take their share of the list's width when the list is filled.
TEST_F(frmResultsTest, ColumnWidthsFollowTheListWidth)
{
    frmResults *window = searchAll(QStringLiteral("haus"));
    ASSERT_NE(window, nullptr);
    window->resize(900, 500);
    window->getResults(m_session.lastResults, QStringLiteral("haus"));
    const int width = list(window)->width();
    const double factors[] = {1000.0 / 5010, 2300.0 / 5010, 539.0 / 5010, 1052.0 / 5010};
    for (int c = 0; c < 4; ++c)
        EXPECT_EQ(list(window)->header()->sectionSize(c), qRound(width * factors[c])) << c;
}

TEST_F(frmResultsTest, ResizingMovesListAndButtons)
{
    frmResults *window = searchAll(QStringLiteral("haus"));
    ASSERT_NE(window, nullptr);
    const int columnWidth = list(window)->header()->sectionSize(1);
    for (const QSize size : {QSize(800, 500), QSize(520, 300)}) {
        window->resize(size);
        EXPECT_EQ(list(window)->size(), QSize(size.width() - 27, size.height() - 100)); // 400 and 1500 twips
        for (const char *button : {"Command1", "Command2", "Command3"})
            EXPECT_EQ(child<QPushButton>(window, button)->y(), size.height() - 60) << button; // 900 twips
    }
    EXPECT_EQ(list(window)->header()->sectionSize(1), columnWidth);
}

// Each click turns the one sort order round, the first click to descending; sizes sort as texts.
TEST_F(frmResultsTest, HeaderClicksSortByTextAndTurnTheOrder)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    window->resize(700, 400);
    clickHeader(window, 2);
    EXPECT_EQ(column(window, 2), (QStringList{QStringLiteral("9"), QStringLiteral("2048"), QStringLiteral("10")}));
    clickHeader(window, 2);
    EXPECT_EQ(column(window, 2), (QStringList{QStringLiteral("10"), QStringLiteral("2048"), QStringLiteral("9")}));
    clickHeader(window, 1);
    EXPECT_EQ(column(window, 1), (QStringList{QStringLiteral("f:\\Spiele\\Word7.exe"), QStringLiteral("e:\\wörter\\word.doc"),
                                              QStringLiteral("d:\\Setup\\Word.exe")}));
}

TEST_F(frmResultsTest, SavedFileHoldsTheHitsInSearchOrder)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    window->resize(700, 400);
    clickHeader(window, 2); // the list's order is no concern of the file
    const QString path = m_dir.filePath(QStringLiteral("treffer.txt"));
    const QByteArray text = saveAnswered(window, path);
    const QList<QByteArray> lines = text.split('\n');
    ASSERT_EQ(lines.size(), 6); // head, rule, three hits, nothing behind the last CR LF
    EXPECT_TRUE(lines[0].startsWith("Suchergebnisse f\xFCr die Suche nach word Stand: ")) << lines[0].toStdString();
    EXPECT_EQ(lines[1], "======================\r");
    EXPECT_EQ(lines[2], "1-Backup 2003 d:\\Setup\\Word.exe * 9 Byte * Date:01.02.2003\r");
    EXPECT_EQ(lines[3], "2-Fotos e:\\w\xF6rter\\word.doc * 10 Byte * Date:05.05.2005\r");
    EXPECT_EQ(lines[4], "4-Spiele f:\\Spiele\\Word7.exe * 2048 Byte * Date:03.03.2003 03:03:03\r");
    EXPECT_EQ(lines[5], "");
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    EXPECT_EQ(m_prompts.shown()[0].file.mode, Prompts::FileRequest::Mode::Save);
    EXPECT_EQ(m_prompts.shown()[0].file.nameFilters.size(), 1);
}

TEST_F(frmResultsTest, SaveAddsTheTextExtensionAndKeepsFolderLines)
{
    frmResults *window = searchAll(QStringLiteral("bilder\\alt"));
    ASSERT_NE(window, nullptr);
    const QByteArray text =
        saveAnswered(window, m_dir.filePath(QStringLiteral("ordner")), m_dir.filePath(QStringLiteral("ordner.txt")));
    EXPECT_FALSE(QFile::exists(m_dir.filePath(QStringLiteral("ordner"))));
    const QList<QByteArray> lines = text.split('\n');
    ASSERT_EQ(lines.size(), 2 + 3 + 1);
    EXPECT_EQ(lines[2], "2-Fotos >e:\\Bilder\\alt.zip\r");
    EXPECT_EQ(lines[4], "2-Fotos e:\\Bilder\\alt.zip\\ *  Byte * Date:\r");
}

TEST_F(frmResultsTest, CancelledSaveWritesNothing)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    m_prompts.answerFile(std::nullopt);
    child<QPushButton>(window, "Command1")->click();
    EXPECT_EQ(QDir(m_data).entryList(QStringList{QStringLiteral("*.txt")}, QDir::Files), QStringList());
}

TEST_F(frmResultsTest, AFileThatCannotBeWrittenIsReported)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    saveAnswered(window, m_dir.filePath(QStringLiteral("fehlt/treffer.txt")));
    ASSERT_EQ(m_prompts.shown().size(), 2u);
    EXPECT_EQ(m_prompts.shown()[1].icon, Icon::Critical);
    EXPECT_TRUE(m_prompts.shown()[1].text.startsWith(QStringLiteral("Laufzeitfehler"))) << m_prompts.shown()[1].text.toStdString();
}

TEST_F(frmResultsTest, ClickedItemIsTheSelectedFileAlsoAfterASort)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    window->resize(700, 400);
    EXPECT_EQ(window->selectedFile(), QString());
    clickHeader(window, 1);
    clickRow(window, 0);
    EXPECT_EQ(window->selectedFile(), QStringLiteral("f:\\Spiele\\Word7.exe"));
}

TEST_F(frmResultsTest, DoubleClickAsksForTheMediumOfAMissingFile)
{
    shellopen::ShellRecorder opened;
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    window->resize(700, 400);
    clickRow(window, 0, true);
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    EXPECT_EQ(m_prompts.shown()[0].text,
              QStringLiteral("Bitte legen Sie den Datenträger ein, auf dem die Datei d:\\Setup\\Word.exe vorhanden ist!"));
    EXPECT_EQ(m_prompts.shown()[0].icon, Icon::None);
    EXPECT_TRUE(opened.opened().isEmpty());
}

TEST_F(frmResultsTest, DoubleClickOpensAFileWhoseMediumIsThere)
{
    shellopen::ShellRecorder opened;
    const QString medium = m_dir.filePath(QStringLiteral("medium"));
    QDir().mkpath(medium + QStringLiteral("/Setup"));
    QFile file(medium + QStringLiteral("/Setup/Word.exe"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    DriveTable drives(*m_settings);
    const AddDriveResult drive = drives.addFolder(QStringLiteral("q:"), medium);
    ASSERT_TRUE(drive.ok()) << drive.error.toStdString();

    frmResults *window = m_windows->showResults();
    window->resize(700, 400);
    ASSERT_TRUE(window->getResults({QStringLiteral("7-Stick<q:\\Setup\\Word.exe|0|01.01.2004"),
                                    QStringLiteral("7-Stick<>q:\\Setup")},
                                   QStringLiteral("word")));
    clickRow(window, 0, true);
    EXPECT_TRUE(m_prompts.shown().empty());
    EXPECT_EQ(opened.opened(), QList<QUrl>{QUrl::fromLocalFile(medium + QStringLiteral("/Setup/Word.exe"))});
    clickRow(window, 1, true); // a folder is no file to open
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    EXPECT_TRUE(m_prompts.shown()[0].text.contains(QStringLiteral(">q:\\Setup")));
}

TEST_F(frmResultsTest, ModelPassesTheModelTester)
{
    frmResults *window = searchAll(QStringLiteral("e:"));
    ASSERT_NE(window, nullptr);
    QAbstractItemModelTester tester(list(window)->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    window->getResults(m_session.lastResults, QStringLiteral("e:"));
    clickHeader(window, 0);
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
    window->getResults(m_session.lastResults, QStringLiteral("e"));
    QStringList cds = column(window, 0);
    cds.removeDuplicates();
    EXPECT_EQ(cds, (QStringList{QStringLiteral("1-Backup 2003"), QStringLiteral("2-Fotos"), QStringLiteral("4-Spiele")}));
    QTest::qWait(50);
    screenshot(window, QStringLiteral("frmResults"));
}

} // namespace
