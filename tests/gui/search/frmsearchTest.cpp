#include "SearchFixture.h"

#include "archives/ArchiveStore.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace {

class frmsearchTest : public SearchFixture
{
protected:
    // The file part of each hit of the last file search.
    std::vector<QString> resultFiles()
    {
        std::vector<QString> files;
        for (const QString &entry : session().lastResults)
            files.push_back(entry.mid(entry.indexOf(QLatin1Char('<')) + 1).section(QLatin1Char('|'), 0, 0));
        return files;
    }
};

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
        { "Label1", "Suchbegriff:" },
        { "Option1", "der aktuell geöffneten CD" },
        { "Option2", "allen CDs in diesem Archiv" },
        { "Option3", "Dateien auf den CDs" },
        { "Option4", "Kommentaren zu den CDs" },
        { "Check1", "Explizite Suche" },
        { "Command1", "Suchen" },
        { "Command2", "Abbrechen" },
    };
    for (const auto &caption : captions)
        EXPECT_EQ(control<QWidget>(dialog, caption.name)->property("text").toString(), QString::fromUtf8(caption.text))
            << caption.name;
}

TEST_F(frmsearchTest, OneCdSearchesThePathsOfTheCdOnDisplay)
{
    selectCd(1);
    ASSERT_TRUE(search(QStringLiteral("EXE"), OneCd, Files));
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(session().lastResults,
        (std::vector<QString> { QStringLiteral("1-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"),
            QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe|9|01.02.2003") }));
    ASSERT_NE(window<frmResults>(), nullptr);
    EXPECT_TRUE(window<frmResults>()->isVisible());
    EXPECT_NE(window<frmsearch>(), nullptr); // stays open behind the list
}

// All CDs: whole lines of every image in archive order; the image of CD 5 is gone and passed over.
TEST_F(frmsearchTest, AllCdsSearchWholeLinesOfEveryImageInArchiveOrder)
{
    ASSERT_TRUE(search(QStringLiteral("word"), AllCds, Files, true));
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(session().lastResults,
        (std::vector<QString> { QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe|9|01.02.2003"),
            QStringLiteral("2-Fotos<e:\\wörter\\word.doc|10|05.05.2005"),
            QStringLiteral("4-Spiele<f:\\Spiele\\Word7.exe|2048|03.03.2003 03:03:03") }));
}

// One CD looks at the paths only and heeds "Explizite Suche"; all CDs look at whole lines,
// folders, sizes and dates included, and ignore it.
TEST_F(frmsearchTest, OptionsChooseWhatIsSearched)
{
    const struct
    {
        const char *name;
        const char *word;
        Where where;
        bool explicitMatch;
        std::vector<QString> files;
    } cases[] = {
        { "oneCdNotByDate", "19.01", OneCd, false, {} },
        { "oneCdExplicitNeedsWholePath", "word.exe", OneCd, true, {} },
        { "oneCdExplicitWithPattern", "*\\WORD.EXE|", OneCd, true, { QStringLiteral("d:\\Setup\\Word.exe") } },
        { "allCdsByDate", "19.01", AllCds, false, { QStringLiteral("d:\\Setup\\start.exe") } },
        { "allCdsIgnoreExplicit", "word.exe", AllCds, true, { QStringLiteral("d:\\Setup\\Word.exe") } },
        { "allCdsFindFolders", "bilder\\alt", AllCds, false,
            { QStringLiteral(">e:\\Bilder\\alt.zip"), QStringLiteral("e:\\Bilder\\alt.zip\\2001/haus.jpg"),
                QStringLiteral("e:\\Bilder\\alt.zip\\") } },
    };
    selectCd(1);
    for (const auto &c : cases) {
        m_run.prompts().clear();
        session().lastResults.clear();
        ASSERT_TRUE(search(QString::fromLatin1(c.word), c.where, Files, c.explicitMatch)) << c.name;
        EXPECT_EQ(resultFiles(), c.files) << c.name;
        EXPECT_EQ(shown().size(), c.files.empty() ? 1u : 0u) << c.name;
    }
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
        { "[abc", AllCds, Files,
            QStringLiteral("Ungültiges Suchmuster: Eine eckige Klammer \"[\" wird nicht geschlossen."), Icon::Critical,
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

    for (int number : { 1, 2, 4, 5 })
        ASSERT_TRUE(ArchiveStore(session().archivePath).setImageId(number, 0).ok());
    m_run.prompts().clear();
    ASSERT_TRUE(search(QStringLiteral("word"), AllCds, Files));
    expectOneMessage(QStringLiteral("Keine CD mit der gesuchten Datei vorhanden!"), Icon::Critical);
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
