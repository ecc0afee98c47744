#include "PdfText.h"
#include "Screenshot.h"
#include "SearchFixture.h"

#include "print/Printresults.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

// The hits of "word" in the order of the search, as the saved file and the print-out give them.
const QStringList wordHits = { u"1-Backup 2003 d:\\Setup\\Word.exe * 9 Byte * Date:01.02.2003"_s,
    u"2-Fotos e:\\wörter\\word.doc * 10 Byte * Date:05.05.2005"_s,
    u"4-Spiele f:\\Spiele\\Word7.exe * 2048 Byte * Date:03.03.2003 03:03:03"_s };

class frmResultsTest : public SearchFixture
{
protected:
    // The list of a file search over all CDs.
    frmResults *searchAll(const QString &word)
    {
        EXPECT_TRUE(search(word, AllCds, Files));
        if ((m_window = window<frmResults>()))
            m_window->resize(700, 400);
        m_view = m_window ? control<QTreeView>(m_window, "ListView1") : nullptr;
        return m_window;
    }

    // The header and the rows, one line each, cells joined by "|".
    QString rows() const
    {
        QString out;
        const QAbstractItemModel *model = m_view->model();
        for (int r = -1; r < model->rowCount(); ++r)
            for (int c = 0; c < model->columnCount(); ++c)
                out += (r < 0 ? model->headerData(c, Qt::Horizontal) : model->index(r, c).data()).toString()
                    + (c + 1 < model->columnCount() ? u'|' : u'\n');
        return out;
    }

    void clickHeader(int section) const
    {
        QHeaderView *header = m_view->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
            QPoint(header->sectionViewportPosition(section) + 5, header->height() / 2));
    }

    // Clicks "Ergebnisliste in Datei speichern" with `chosen` (in a folder of the test's own)
    // answered in the file dialog.
    void save(const std::optional<QString> &chosen)
    {
        m_run.prompts().answerFile(
            chosen ? std::optional(Prompts::FileAnswer { m_scratch.filePath(*chosen), 0 }) : std::nullopt);
        control<QPushButton>(m_window, "Command1")->click();
    }

    QTemporaryDir m_scratch;
    frmResults *m_window = nullptr;
    QTreeView *m_view = nullptr;
};

TEST_F(frmResultsTest, FileAndFolderHitsFillTheirColumns)
{
    ASSERT_NE(searchAll(u"e:"_s), nullptr);
    QAbstractItemModelTester tester(m_view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(control<QLabel>(m_window, "Label1")->text(), u"Ergebnis der Suche nach e:"_s);
    EXPECT_EQ(rows(),
        u"CD-Name|Dateien|Größe|Datum\n2-Fotos|>e:||\n2-Fotos|>e:\\Bilder||\n"
        "2-Fotos|e:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\n2-Fotos|>e:\\Bilder\\alt.zip||\n"
        "2-Fotos|e:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\n"
        "2-Fotos|e:\\Bilder\\alt.zip\\||\n2-Fotos|e:\\wörter\\word.doc|10|05.05.2005\n"_s);
    clickHeader(0); // the tester watches the sort, too
    // The dates are whole in their column, at the window's own width too; the picture is for a
    // person to look at.
    const int dateWidth = m_view->fontMetrics().horizontalAdvance(u"28.07.2002 18:02:44"_s);
    for (const int width : { 450, 720 }) {
        m_window->resize(width, 420);
        m_window->getResults(session().lastResults, u"e:"_s);
        EXPECT_GT(m_view->header()->sectionSize(3), dateWidth) << width;
    }
    screenshot(m_window, u"frmResults"_s);
}

// File and print-out hold the hits in the order of the search, whatever the list's order. A
// name without extension gets the filter's ".txt"; a cancel writes nothing; a file that cannot
// be written is reported. Size and date are printed with their boxes unticked. The bytes of
// the file are tested in the core.
TEST_F(frmResultsTest, SavedAndPrintedHitsKeepTheSearchOrder)
{
    ASSERT_NE(searchAll(u"word"_s), nullptr);
    clickHeader(2);
    save(u"treffer"_s);
    EXPECT_EQ(shown()[0].file.nameFilters, QStringList { u"Textdateien (*.txt) (*.[tT][xX][tT])"_s });
    const QByteArray bytes = fileBytes(m_scratch.filePath(u"treffer.txt"_s));
    EXPECT_TRUE(bytes.endsWith((u"\r\n"_s + wordHits.join(u"\r\n") + u"\r\n"_s).toLatin1())) << bytes.data();
    save(std::nullopt);
    save(u"fehlt/treffer.txt"_s);
    ASSERT_EQ(shown().size(), 4u);
    EXPECT_TRUE(shown()[3].icon == Icon::Critical && shown()[3].text.startsWith(u"Laufzeitfehler"))
        << shown()[3].text.toStdString();
    EXPECT_EQ(QDir(m_scratch.path()).entryList(QDir::Files), QStringList { u"treffer.txt"_s });

    control<QPushButton>(m_window, "Command2")->click();
    settle();
    Printresults *dialog = window<Printresults>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(control<QLabel>(dialog, "Label2")->text(), u"> Druckender Suchergebnisse"_s);
    screenshot(dialog, u"Printresults"_s);
    control<QCheckBox>(dialog, "Check1")->setChecked(false);
    control<QCheckBox>(dialog, "Check2")->setChecked(false);
    const QString pdf = m_scratch.filePath(u"treffer.pdf"_s);
    m_run.prompts().answerFile(Prompts::FileAnswer { pdf, 0 });
    control<QPushButton>(dialog, "Command4")->click();
    settle();
    const QString text = pdfText(pdf);
    qsizetype at = text.indexOf(u"* Suche nach: word"_s);
    for (const QString &line : wordHits) {
        const qsizetype next = text.indexOf(line);
        EXPECT_GT(next, at) << line.toStdString() << "\n" << text.toStdString();
        at = next;
    }
    EXPECT_EQ(window<Printresults>(), nullptr);
}

} // namespace
