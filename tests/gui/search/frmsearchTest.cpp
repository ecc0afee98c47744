#include "SearchFixture.h"

namespace {

using frmsearchTest = SearchFixture;

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
        { "EXE", OneCd, false,
            { QStringLiteral("1-Backup 2003<d:\\Setup\\start.exe"),
                QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe") } },
        { "word.exe", OneCd, true, {} }, // explicit: the whole path
        { "word", AllCds, true,
            { QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe"),
                QStringLiteral("2-Fotos<e:\\wörter\\word.doc"),
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
}

// Each refusal says why; the dialog stays for another word, except when the CD on display has
// no image, and the hits before stay the ones on the list.
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
        { "nirgends", AllCds, Files, QStringLiteral("Keine CD mit dem Inhalt nirgends gefunden!"),
            Icon::Information, true },
        // "*" hits the empty end line of an image, which the list cannot cut into columns.
        { "*", AllCds, Files,
            QStringLiteral("Laufzeitfehler '5':\n\nUngültiger Prozeduraufruf oder ungültiges Argument"),
            Icon::Critical, true },
        { "nirgends", AllCds, Comments, QStringLiteral("Keine übereinstimmende CD gefunden!"), Icon::Critical,
            true },
        { "word", OneCd, Files, QStringLiteral("Kein Datenträgerabbild vorhanden!"), Icon::Critical, false },
    };
    selectCd(3);
    ASSERT_TRUE(search(QStringLiteral("start"), AllCds, Files));
    const std::vector<QString> before = session().lastResults;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.word);
        m_run.prompts().clear();
        ASSERT_TRUE(search(QString::fromLatin1(c.word), c.where, c.what));
        expectOneMessage(c.text, c.icon);
        EXPECT_EQ(window<frmsearch>() != nullptr, c.dialogStays);
    }
    EXPECT_EQ(session().lastResults, before);
    EXPECT_EQ(window<frmResults>()->searchWord(), QStringLiteral("start"));
}

} // namespace
