#include "SearchFixture.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace {

using frmsearchTest = SearchFixture;

TEST_F(frmsearchTest, CaptionsAndTheScopeTheSelectionAllows)
{
    m_main->Toolbar1_ButtonClick(QStringLiteral("d")); // no CD selected: all CDs only
    frmsearch *dialog = window<frmsearch>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(session().currentCd, -1);
    EXPECT_FALSE(control<QRadioButton>(dialog, "Option1")->isEnabled());
    EXPECT_TRUE(control<QRadioButton>(dialog, "Option2")->isChecked());
    selectCd(1);
    EXPECT_EQ(openSearch(), dialog); // an open dialog keeps its options
    EXPECT_EQ(session().currentCd, 1);
    EXPECT_FALSE(control<QRadioButton>(dialog, "Option1")->isEnabled());

    control<QPushButton>(dialog, "Command2")->click();
    settle();
    ASSERT_EQ(window<frmsearch>(), nullptr);
    dialog = openSearch();
    EXPECT_TRUE(control<QRadioButton>(dialog, "Option1")->isChecked());
    EXPECT_TRUE(control<QRadioButton>(dialog, "Option3")->isChecked());
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Suchen"));
    const struct
    {
        const char *name;
        const char *text;
    } captions[] = {
        { "Label1", "Suchbegriff:" }, { "Check1", "Explizite Suche" },
        { "Option1", "der aktuell geöffneten CD" }, { "Option2", "allen CDs in diesem Archiv" },
        { "Option3", "Dateien auf den CDs" }, { "Option4", "Kommentaren zu den CDs" },
        { "Command1", "Suchen" }, { "Command2", "Abbrechen" },
    };
    for (const auto &caption : captions)
        EXPECT_EQ(control<QWidget>(dialog, caption.name)->property("text").toString(), QString::fromUtf8(caption.text))
            << caption.name;
}

// One CD: the paths of the CD on display, heeding "Explizite Suche". All CDs: whole lines of
// every image in archive order, ignoring it; the image of CD 5 is gone and passed over.
TEST_F(frmsearchTest, OptionsChooseWhatIsSearched)
{
    const struct
    {
        const char *word;
        Where where;
        bool explicitMatch;
        std::vector<QString> hits;
    } cases[] = {
        { "EXE", OneCd, false, { QStringLiteral("1-Backup 2003<d:\\Setup\\start.exe"), QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe") } },
        { "word.exe", OneCd, true, {} }, // explicit: the whole path
        { "word", AllCds, true,
            { QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe"), QStringLiteral("2-Fotos<e:\\wörter\\word.doc"),
                QStringLiteral("4-Spiele<f:\\Spiele\\Word7.exe") } },
        { "19.01", AllCds, false, { QStringLiteral("1-Backup 2003<d:\\Setup\\start.exe") } }, // dates too
    };
    selectCd(1);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.word);
        m_run.prompts().clear();
        session().lastResults.clear();
        ASSERT_TRUE(search(QString::fromUtf8(c.word), c.where, Files, c.explicitMatch));
        std::vector<QString> hits; // without size and date
        for (const QString &entry : session().lastResults)
            hits.push_back(entry.section(QLatin1Char('|'), 0, 0));
        EXPECT_EQ(hits, c.hits);
        EXPECT_EQ(shown().size(), c.hits.empty() ? 1u : 0u);
    }
    ASSERT_NE(window<frmResults>(), nullptr);
    EXPECT_TRUE(window<frmResults>()->isVisible());
    EXPECT_NE(window<frmsearch>(), nullptr); // stays open behind the list
}

// Each refusal says why; the dialog stays for another word, except when the CD on display has
// no image, and the hits before stay the ones on the list and in the file.
TEST_F(frmsearchTest, SearchesThatFindNothingSayWhy)
{
    const struct
    {
        const char *word;
        Where where;
        What what;
        QString text;
        Icon icon;
        bool dialogStays;
    } cases[] = {
        { "", AllCds, Files, QStringLiteral("Bitte geben Sie einen Suchbegriff ein!"), Icon::None, true },
        { "nirgends", AllCds, Files, QStringLiteral("Keine CD mit dem Inhalt nirgends gefunden!"), Icon::Information,
            true },
        // "*" hits the empty end line of an image, which the list cannot cut into columns.
        { "*", AllCds, Files,
            QStringLiteral("Laufzeitfehler '5':\n\nUngültiger Prozeduraufruf oder ungültiges Argument"),
            Icon::Critical, true },
        { "nirgends", AllCds, Comments, QStringLiteral("Keine übereinstimmende CD gefunden!"), Icon::Critical, true },
        { "word", OneCd, Files, QStringLiteral("Kein Datenträgerabbild vorhanden!"), Icon::Critical, false },
    };
    selectCd(3);
    ASSERT_TRUE(search(QStringLiteral("start"), AllCds, Files));
    const std::vector<QString> before = session().lastResults;
    ASSERT_EQ(before.size(), 1u);
    session().foundCdNumbers = { QStringLiteral("4") };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.word);
        m_run.prompts().clear();
        ASSERT_TRUE(search(QString::fromLatin1(c.word), c.where, c.what));
        expectOneMessage(c.text, c.icon);
        EXPECT_EQ(window<frmsearch>() != nullptr, c.dialogStays);
        EXPECT_EQ(window<Form1>(), nullptr);
        if (c.dialogStays) {
            EXPECT_TRUE(control<QPushButton>(window<frmsearch>(), "Command1")->isEnabled());
        }
    }
    EXPECT_EQ(session().lastResults, before);
    EXPECT_EQ(window<frmResults>()->searchWord(), QStringLiteral("start"));
    EXPECT_TRUE(session().foundCdNumbers.empty());
}

TEST_F(frmsearchTest, EnterSearchesAndRefillsTheOpenResultList)
{
    ASSERT_TRUE(search(QStringLiteral("haus"), AllCds, Files));
    frmResults *results = window<frmResults>();
    ASSERT_NE(results, nullptr);
    auto *text1 = control<QLineEdit>(window<frmsearch>(), "Text1");
    text1->setText(QStringLiteral("start"));
    QSignalSpy finished(window<frmsearch>(), &frmsearch::searchFinished);
    QTest::keyClick(text1, Qt::Key_Return);
    ASSERT_TRUE(finished.wait(20000));
    EXPECT_EQ(window<frmResults>(), results);
    EXPECT_EQ(results->searchWord(), QStringLiteral("start"));
    EXPECT_EQ(control<QLabel>(results, "Label1")->text(), QStringLiteral("Ergebnis der Suche nach start"));
}

} // namespace
