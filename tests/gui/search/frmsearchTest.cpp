#include "SearchFixture.h"

#include "archives/ArchiveStore.h"
#include "search/frmResults.h"
#include "search/frmsearch.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace {

using Icon = Prompts::Icon;

class frmsearchTest : public SearchFixture
{
protected:
    std::vector<QString> resultFiles() const
    {
        std::vector<QString> files;
        for (const QString &entry : m_session.lastResults)
            files.push_back(entry.mid(entry.indexOf(QLatin1Char('<')) + 1).section(QLatin1Char('|'), 0, 0));
        return files;
    }

    void expectOneMessage(const QString &text, Icon icon)
    {
        ASSERT_EQ(m_prompts.shown().size(), 1u);
        EXPECT_EQ(m_prompts.shown()[0].text, text);
        EXPECT_EQ(m_prompts.shown()[0].icon, icon);
    }
};

TEST_F(frmsearchTest, ShowsItsControlsWithTheirTexts)
{
    selectCd(1);
    frmsearch *dialog = openSearch();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Suchen"));
    EXPECT_EQ(dialog->width(), 284); // 4260 twips
    const struct
    {
        const char *name;
        const char *text;
    } captions[] = {
        {"Label1", "Suchbegriff:"},
        {"Label2", "Geben Sie hier den Suchbegriff für die Suche nach Inhalten in den Kommentaren zu den CDs "
                   "ein. z.B: \"Word\". Es können auch Wildcards (*, ?) verwendet werden."},
        {"Option1", "der aktuell geöffneten CD"},
        {"Option2", "allen CDs in diesem Archiv"},
        {"Option3", "Dateien auf den CDs"},
        {"Option4", "Kommentaren zu den CDs"},
        {"Check1", "Explizite Suche"},
        {"Command1", "Suchen"},
        {"Command2", "Abbrechen"},
    };
    for (const auto &caption : captions) {
        QWidget *widget = child<QWidget>(dialog, caption.name);
        const QVariant text = widget->property("text");
        EXPECT_EQ(text.toString(), QString::fromUtf8(caption.text)) << caption.name;
    }
    EXPECT_EQ(child<QGroupBox>(dialog, "Frame1")->title(), QStringLiteral("Suchen in"));
    EXPECT_EQ(child<QGroupBox>(dialog, "Frame2")->title(), QStringLiteral("Suchen nach"));
    EXPECT_EQ(child<QCheckBox>(dialog, "Check1")->toolTip(),
              QStringLiteral("Wenn Sie diese Option aktivieren werden nur mit dem Suchbegriff exakter "
                             "Übereinstimmungen gesucht , z.b. wird bei der Suche nach \"Word\" nur \"Word\" "
                             "und nicht \"Word7\" etc. gefunden!"));
    EXPECT_TRUE(child<QRadioButton>(dialog, "Option1")->isChecked());
    EXPECT_TRUE(child<QRadioButton>(dialog, "Option3")->isChecked());
    EXPECT_FALSE(child<QListWidget>(dialog, "List1")->isVisible());
    EXPECT_FALSE(child<QListWidget>(dialog, "List2")->isVisible());
}

TEST_F(frmsearchTest, WithoutASelectedCdOnlyAllCdsCanBeSearched)
{
    frmsearch *dialog = openSearch();
    EXPECT_FALSE(child<QRadioButton>(dialog, "Option1")->isEnabled());
    EXPECT_FALSE(child<QRadioButton>(dialog, "Option1")->isChecked());
    EXPECT_TRUE(child<QRadioButton>(dialog, "Option2")->isChecked());
}

TEST_F(frmsearchTest, AnOpenDialogKeepsItsOptionsWhenShownAgain)
{
    frmsearch *dialog = openSearch();
    selectCd(2);
    EXPECT_EQ(openSearch(), dialog);
    EXPECT_FALSE(child<QRadioButton>(dialog, "Option1")->isEnabled());
}

TEST_F(frmsearchTest, AnEmptyWordIsRefusedWithoutSearching)
{
    selectCd(1);
    frmsearch *dialog = openSearch();
    child<QPushButton>(dialog, "Command1")->click();
    expectOneMessage(QStringLiteral("Bitte geben Sie einen Suchbegriff ein!"), Icon::None);
    EXPECT_EQ(m_windows->resultsWindow(), nullptr);
    EXPECT_TRUE(child<QPushButton>(dialog, "Command1")->isEnabled());
}

TEST_F(frmsearchTest, EnterInTheWordStartsTheSearch)
{
    selectCd(1);
    frmsearch *dialog = openSearch();
    child<QLineEdit>(dialog, "Text1")->setText(QStringLiteral("start"));
    QSignalSpy finished(dialog, &frmsearch::searchFinished);
    QTest::keyClick(child<QLineEdit>(dialog, "Text1"), Qt::Key_Return);
    ASSERT_TRUE(finished.wait(20000));
    EXPECT_EQ(resultFiles(), std::vector<QString>{QStringLiteral("d:\\Setup\\start.exe")});
}

TEST_F(frmsearchTest, OneCdSearchesThePathsOfTheCdOnDisplay)
{
    selectCd(1);
    frmsearch *dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("EXE"), QStringLiteral("Option1"), QStringLiteral("Option3")));
    EXPECT_TRUE(m_prompts.shown().empty());
    EXPECT_EQ(m_session.lastResults,
              (std::vector<QString>{QStringLiteral("1-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"),
                                    QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe|9|01.02.2003")}));
    ASSERT_NE(m_windows->resultsWindow(), nullptr);
    EXPECT_TRUE(m_windows->resultsWindow()->isVisible());
    EXPECT_EQ(m_windows->searchWindow(), dialog); // stays open behind the list
}

// The options decide what is searched: one CD looks at the paths only and heeds "Explizite
// Suche"; all CDs look at whole lines, folders, sizes and dates included, and ignore it.
TEST_F(frmsearchTest, OptionsChooseWhatIsSearched)
{
    const struct
    {
        const char *name;
        const char *word;
        const char *where;
        bool explicitMatch;
        std::vector<QString> files;
    } cases[] = {
        {"oneCdNotByDate", "19.01", "Option1", false, {}},
        {"oneCdExplicitNeedsWholePath", "word.exe", "Option1", true, {}},
        {"oneCdExplicitWithPattern", "*\\WORD.EXE|", "Option1", true, {QStringLiteral("d:\\Setup\\Word.exe")}},
        {"allCdsByDate", "19.01", "Option2", false, {QStringLiteral("d:\\Setup\\start.exe")}},
        {"allCdsIgnoreExplicit", "word.exe", "Option2", true, {QStringLiteral("d:\\Setup\\Word.exe")}},
        {"allCdsFindFolders", "bilder\\alt", "Option2", false,
         {QStringLiteral(">e:\\Bilder\\alt.zip"), QStringLiteral("e:\\Bilder\\alt.zip\\2001/haus.jpg"),
          QStringLiteral("e:\\Bilder\\alt.zip\\")}},
    };
    selectCd(1);
    frmsearch *dialog = openSearch();
    for (const auto &c : cases) {
        m_prompts.clear();
        m_session.lastResults.clear();
        ASSERT_TRUE(search(dialog, QString::fromLatin1(c.word), QString::fromLatin1(c.where), QStringLiteral("Option3"),
                           c.explicitMatch))
            << c.name;
        EXPECT_EQ(resultFiles(), c.files) << c.name;
        EXPECT_EQ(m_prompts.shown().size(), c.files.empty() ? 1u : 0u) << c.name;
    }
}

TEST_F(frmsearchTest, OneCdWithoutImageClosesTheDialog)
{
    selectCd(3);
    QPointer<frmsearch> dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("word"), QStringLiteral("Option1"), QStringLiteral("Option3")));
    expectOneMessage(QStringLiteral("Kein Datenträgerabbild vorhanden!"), Icon::Critical);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(frmsearchTest, AllCdsSearchWholeLinesOfEveryImageInArchiveOrder)
{
    frmsearch *dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("word"), QStringLiteral("Option2"), QStringLiteral("Option3"), true));
    EXPECT_TRUE(m_prompts.shown().empty()); // the image of CD 5 is gone and passed over
    EXPECT_EQ(m_session.lastResults,
              (std::vector<QString>{QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe|9|01.02.2003"),
                                    QStringLiteral("2-Fotos<e:\\wörter\\word.doc|10|05.05.2005"),
                                    QStringLiteral("4-Spiele<f:\\Spiele\\Word7.exe|2048|03.03.2003 03:03:03")}));
}

TEST_F(frmsearchTest, AFailedSearchKeepsTheLastResults)
{
    frmsearch *dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("haus.jpg"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    const std::vector<QString> before = m_session.lastResults;
    ASSERT_EQ(before.size(), 2u);
    ASSERT_TRUE(search(dialog, QStringLiteral("nirgends"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    expectOneMessage(QStringLiteral("Keine CD mit dem Inhalt nirgends gefunden!"), Icon::Information);
    EXPECT_EQ(m_session.lastResults, before);
    EXPECT_EQ(m_windows->searchWindow(), dialog);
    EXPECT_TRUE(child<QPushButton>(dialog, "Command1")->isEnabled());
}

TEST_F(frmsearchTest, RefusedSearchesExplainThemselvesAndTheDialogStays)
{
    const struct
    {
        const char *name;
        const char *word;
        Icon icon;
    } cases[] = {
        {"unclosedBracket", "[abc", Icon::Critical},
        {"unclosedBracketInExplicitForm", "*[", Icon::Critical},
    };
    frmsearch *dialog = openSearch();
    for (const auto &c : cases) {
        m_prompts.clear();
        ASSERT_TRUE(search(dialog, QString::fromLatin1(c.word), QStringLiteral("Option2"), QStringLiteral("Option3")));
        ASSERT_EQ(m_prompts.shown().size(), 1u) << c.name;
        EXPECT_EQ(m_prompts.shown()[0].icon, c.icon) << c.name;
        EXPECT_FALSE(m_prompts.shown()[0].text.isEmpty()) << c.name;
        EXPECT_EQ(m_windows->searchWindow(), dialog) << c.name;
    }
}

TEST_F(frmsearchTest, AllCdsWithoutAnyImageSayNoCdHasTheFile)
{
    for (int number : {1, 2, 4, 5})
        ASSERT_TRUE(ArchiveStore(m_session.archivePath).setImageId(number, 0).ok());
    frmsearch *dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("word"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    expectOneMessage(QStringLiteral("Keine CD mit der gesuchten Datei vorhanden!"), Icon::Critical);
    EXPECT_EQ(m_windows->searchWindow(), dialog);
}

TEST_F(frmsearchTest, AFileSearchRefillsTheOpenResultList)
{
    frmsearch *dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("haus"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    frmResults *results = m_windows->resultsWindow();
    ASSERT_TRUE(search(dialog, QStringLiteral("start"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    EXPECT_EQ(m_windows->resultsWindow(), results);
    EXPECT_EQ(results->searchWord(), QStringLiteral("start"));
    EXPECT_EQ(child<QLabel>(results, "Label1")->text(), QStringLiteral("Ergebnis der Suche nach start"));
}

// "*" hits the empty end line of an image, which the list cannot cut into columns: the
// failure is reported, and the hits of the search before stay the ones to save.
TEST_F(frmsearchTest, AWordOfOnlyStarsStopsAtTheEndLine)
{
    frmsearch *dialog = openSearch();
    ASSERT_TRUE(search(dialog, QStringLiteral("start"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    const std::vector<QString> before = m_session.lastResults;
    ASSERT_TRUE(search(dialog, QStringLiteral("*"), QStringLiteral("Option2"), QStringLiteral("Option3")));
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    EXPECT_EQ(m_prompts.shown()[0].icon, Icon::Critical);
    EXPECT_TRUE(m_prompts.shown()[0].text.startsWith(QStringLiteral("Laufzeitfehler '5'")));
    EXPECT_EQ(m_session.lastResults, before);
    EXPECT_EQ(m_windows->resultsWindow()->searchWord(), QStringLiteral("start"));
}

TEST_F(frmsearchTest, CancelClosesTheDialog)
{
    QPointer<frmsearch> dialog = openSearch();
    child<QPushButton>(dialog, "Command2")->click();
    settle();
    EXPECT_TRUE(dialog.isNull());
}

} // namespace
