#include "PdfText.h"
#include "Screenshot.h"
#include "SearchFixture.h"

#include "print/ResultsPrintDialog.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

using SearchDialogTest = SearchFixture;

// One CD: the paths of the CD on display, heeding "Explizite Suche". All CDs: every image in
// archive order, ignoring it; the image of CD 5 is gone and passed over.
TEST_F(SearchDialogTest, OptionsChooseWhatIsSearched)
{
    const QString word = u"1-Backup 2003<d:\\Setup\\Word.exe"_s;
    const std::tuple<const char *, Where, bool, std::vector<QString>> cases[] = { // explicit, hits
        { "EXE", OneCd, false, { u"1-Backup 2003<d:\\Setup\\start.exe"_s, word } },
        { "word.exe", OneCd, true, {} }, // explicit: the whole path
        { "word", AllCds, true,
            { word, u"2-Fotos<e:\\wörter\\word.doc"_s, u"4-Spiele<f:\\Spiele\\Word7.exe"_s } }
    };
    m_list->setCurrentRow(0); // CD 1
    for (const auto &[text, where, explicitMatch, expected] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        session().lastResults.clear();
        ASSERT_TRUE(search(QString::fromUtf8(text), where, Files, explicitMatch));
        std::vector<QString> hits; // without size and date
        for (const HitEntry &entry : session().lastResults)
            hits.push_back(entry.text.section(u'|', 0, 0));
        EXPECT_EQ(hits, expected);
        EXPECT_EQ(shown().size(), expected.empty() ? 1u : 0u);
    }
    EXPECT_TRUE(window<ResultsWindow>() && window<ResultsWindow>()->isVisible());
}

// "*" alone hits every line of every image the list can show (the core holds which lines).
// Each refusal after it says why; the dialog stays for another word, except when the CD on
// display has no image, and list, heading and saved results still show the "*" search.
TEST_F(SearchDialogTest, AStarListsEveryLineAndSearchesThatFindNothingSayWhy)
{
    const std::tuple<const char *, Where, What, QString, Icon> cases[] = {
        { "", AllCds, Files, u"Bitte geben Sie einen Suchbegriff ein!"_s, Icon::None },
        { "nirgends", AllCds, Files, u"Keine CD mit dem Inhalt nirgends gefunden!"_s, Icon::Information },
        { "nirgends", AllCds, Comments, u"Keine übereinstimmende CD gefunden!"_s, Icon::Critical },
        { "word", OneCd, Files, u"Kein Datenträgerabbild vorhanden!"_s, Icon::Critical }
    };
    m_list->setCurrentRow(2); // CD 3, without image
    ASSERT_TRUE(search(u"*"_s, AllCds, Files));
    EXPECT_TRUE(shown().empty());
    const std::vector<HitEntry> before = session().lastResults;
    ASSERT_FALSE(before.empty());
    screenshot(window<ResultsWindow>(), u"ergebnisse-nach-stern"_s);
    for (const auto &[text, where, what, message, icon] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        ASSERT_TRUE(search(QString::fromLatin1(text), where, what));
        expectOneMessage(message, icon);
        EXPECT_EQ(window<SearchDialog>() != nullptr, where == AllCds); // only the missing image closes it
    }
    EXPECT_EQ(session().lastResults, before);
    EXPECT_EQ(window<ResultsWindow>()->searchWord(), u"*"_s);
    EXPECT_EQ(control<QTreeView>(window<ResultsWindow>(), "resultView")->model()->rowCount(),
        static_cast<int>(before.size()));
}

class CommentHitNavigatorTest : public SearchFixture
{
protected:
    // The navigator's position, "<" and ">" when enabled, and the CD selected in the main window.
    QString state(CommentHitNavigator *navigator) const
    {
        return control<QLabel>(navigator, "positionLabel")->text()
            + (control<QPushButton>(navigator, "previousButton")->isEnabled() ? u" <"_s : QString())
            + (control<QPushButton>(navigator, "nextButton")->isEnabled() ? u" >"_s : QString()) + u" | "_s
            + (m_list->currentItem() ? m_list->currentItem()->text() : QString());
    }
};

TEST_F(CommentHitNavigatorTest, SeveralFoundCdsAreSteppedThroughInTheMainWindow)
{
    ASSERT_TRUE(search(u"WORD"_s, AllCds, Comments));
    QPointer<CommentHitNavigator> navigator = window<CommentHitNavigator>();
    ASSERT_FALSE(navigator.isNull());
    // The dialog gave way to the navigator, which counts the CDs found.
    EXPECT_EQ(std::tuple(window<SearchDialog>(), session().foundCdNumbers,
                  control<QLabel>(navigator, "countLabel")->text()),
        std::tuple(nullptr, std::vector<QString> { u"1"_s, u"3"_s }, u"2"_s));
    // Nothing lies before the first CD: "<" is disabled there.
    EXPECT_EQ(state(navigator), u"1 / 2 > | 1 Backup 2003"_s);
    QTest::keyClick(control<QPushButton>(navigator, "newSearchButton"), Qt::Key_Return); // Enter means ">"
    EXPECT_EQ(state(navigator) + u" | "_s + mainLabel("titleLabel"), u"2 / 2 < | 3 Ohne Abbild | Ohne Abbild"_s);
    control<QPushButton>(navigator, "previousButton")->click();
    EXPECT_EQ(state(navigator), u"1 / 2 > | 1 Backup 2003"_s);
    EXPECT_EQ(std::pair(window<CommentHitNavigator>(), shown().size()), std::pair(navigator.data(), size_t(0)));
}

TEST_F(CommentHitNavigatorTest, OneFoundCdIsShownAndTheNavigatorGivesWayToAMessage)
{
    ASSERT_TRUE(search(u"ägypten"_s, AllCds, Comments));
    QTest::qWait(20);
    settle();
    EXPECT_EQ(window<CommentHitNavigator>(), nullptr);
    EXPECT_EQ(m_list->currentItem()->text() + u" | "_s + mainLabel("numberLabel"), u"2 Fotos | 2"_s);
    expectOneMessage(u"Gefundene CDs: 1. Die CD wird nun angezeigt."_s, Icon::None);
}

// The hits of "word" in the order of the search, as the saved file and the print-out give them.
const QStringList wordHits = { u"1-Backup 2003 d:\\Setup\\Word.exe * 9 Byte * Date:01.02.2003"_s,
    u"2-Fotos e:\\wörter\\word.doc * 10 Byte * Date:05.05.2005"_s,
    u"4-Spiele f:\\Spiele\\Word7.exe * 2048 Byte * Date:03.03.2003 03:03:03"_s };

class ResultsWindowTest : public SearchFixture
{
protected:
    // The list of a file search over all CDs.
    ResultsWindow *searchAll(const QString &word)
    {
        EXPECT_TRUE(search(word, AllCds, Files));
        if ((m_window = window<ResultsWindow>()))
            m_window->resize(700, 400);
        m_view = m_window ? control<QTreeView>(m_window, "resultView") : nullptr;
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
        control<QPushButton>(m_window, "saveButton")->click();
    }

    QTemporaryDir m_scratch;
    ResultsWindow *m_window = nullptr;
    QTreeView *m_view = nullptr;
};

TEST_F(ResultsWindowTest, FileAndFolderHitsFillTheirColumns)
{
    ASSERT_NE(searchAll(u"e:"_s), nullptr);
    QAbstractItemModelTester tester(m_view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(control<QLabel>(m_window, "headingLabel")->text(), u"Ergebnis der Suche nach e:"_s);
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
        m_window->showHits(session().lastResults, u"e:"_s);
        EXPECT_GT(m_view->header()->sectionSize(3), dateWidth) << width;
    }
    screenshot(m_window, u"ResultsWindow"_s);
}

// A title with "<" and "|" stays whole in its column; the list, its heading and the saved
// file belong to the search that ran.
TEST_F(ResultsWindowTest, ATitleWithMarkupStaysInItsColumn)
{
    ASSERT_NE(searchAll(u"setup.inf"_s), nullptr);
    EXPECT_TRUE(shown().empty()) << shown()[0].text.toStdString();
    EXPECT_EQ(rows(),
        u"CD-Name|Dateien|Größe|Datum\n6-Treiber & Software <b>fett</b>|g:\\Treiber|alt\\setup.inf|77|06.06.2006\n"_s);
    EXPECT_EQ(control<QLabel>(m_window, "headingLabel")->text(), u"Ergebnis der Suche nach setup.inf"_s);
    screenshot(m_window, u"ergebnisse-titel-mit-markup"_s);
    save(u"treffer.txt"_s);
    EXPECT_TRUE(fileBytes(m_scratch.filePath(u"treffer.txt"_s))
                    .endsWith("\r\n6-Treiber & Software <b>fett</b> g:\\Treiber|alt\\setup.inf * 77 Byte * "
                              "Date:06.06.2006\r\n"));
}

// A title or a search word is shown as typed, markup and all, in the detail header and in the
// heading of the results.
TEST_F(ResultsWindowTest, TitlesAndWordsShowAsTyped)
{
    const QString title = u"Treiber & Software <b>fett</b>"_s;
    m_list->setCurrentItem(m_list->findItems(u"6 "_s, Qt::MatchStartsWith).value(0));
    settle();
    ASSERT_NE(searchAll(u"inf"_s), nullptr);
    m_window->showHits(session().lastResults, u"<i>inf</i>"_s);
    const std::pair<QLabel *, QString> labels[] = { { control<QLabel>(m_main, "titleLabel"), title },
        { control<QLabel>(m_window, "headingLabel"), u"Ergebnis der Suche nach <i>inf</i>"_s } };
    for (const auto &[label, text] : labels) {
        SCOPED_TRACE(label->objectName().toStdString());
        EXPECT_EQ(std::pair(label->text(), label->textFormat()), std::pair(text, Qt::PlainText));
        // Rendered as markup, the tags would take no room.
        EXPECT_GE(label->sizeHint().width(), label->fontMetrics().horizontalAdvance(text));
    }
    screenshot(m_main, u"detailkopf-titel-mit-markup"_s);
}

// File and print-out hold the hits in the order of the search, whatever the list's order. A
// name without extension gets the filter's ".txt"; a cancel writes nothing; a file that cannot
// be written is reported. Size and date are printed with their boxes unticked. The bytes of
// the file are tested in the core.
TEST_F(ResultsWindowTest, SavedAndPrintedHitsKeepTheSearchOrder)
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

    control<QPushButton>(m_window, "printButton")->click();
    settle();
    ResultsPrintDialog *dialog = window<ResultsPrintDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(control<QLabel>(dialog, "listHeading")->text(), u"> Druckender Suchergebnisse"_s);
    screenshot(dialog, u"ResultsPrintDialog"_s);
    control<QCheckBox>(dialog, "sizeCheck")->setChecked(false);
    control<QCheckBox>(dialog, "dateCheck")->setChecked(false);
    const QString pdf = m_scratch.filePath(u"treffer.pdf"_s);
    m_run.prompts().answerFile(Prompts::FileAnswer { pdf, 0 });
    control<QPushButton>(dialog, "listPrintButton")->click();
    settle();
    const QString text = pdfText(pdf);
    qsizetype at = text.indexOf(u"* Suche nach: word"_s);
    for (const QString &line : wordHits) {
        const qsizetype next = text.indexOf(line);
        EXPECT_GT(next, at) << line.toStdString() << "\n" << text.toStdString();
        at = next;
    }
    EXPECT_EQ(window<ResultsPrintDialog>(), nullptr);
}

} // namespace
