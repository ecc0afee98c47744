#include "SearchFixture.h"

namespace {

using frmsearchTest = SearchFixture;

// One CD: the paths of the CD on display, heeding "Explizite Suche". All CDs: whole lines of
// every image in archive order, ignoring it; the image of CD 5 is gone and passed over.
TEST_F(frmsearchTest, OptionsChooseWhatIsSearched)
{
    const QString start = QStringLiteral("1-Backup 2003<d:\\Setup\\start.exe"),
                  word = QStringLiteral("1-Backup 2003<d:\\Setup\\Word.exe");
    const std::tuple<const char *, Where, bool, std::vector<QString>> cases[] = { // explicit, hits
        { "EXE", OneCd, false, { start, word } }, { "word.exe", OneCd, true, {} }, // explicit: the whole path
        { "word", AllCds, true,
            { word, QStringLiteral("2-Fotos<e:\\wörter\\word.doc"),
                QStringLiteral("4-Spiele<f:\\Spiele\\Word7.exe") } },
        { "19.01", AllCds, false, { start } }
    }; // dates too
    selectCd(1);
    for (const auto &[text, where, explicitMatch, expected] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        session().lastResults.clear();
        ASSERT_TRUE(search(QString::fromUtf8(text), where, Files, explicitMatch));
        std::vector<QString> hits; // without size and date
        for (const QString &entry : session().lastResults)
            hits.push_back(entry.section(QLatin1Char('|'), 0, 0));
        EXPECT_EQ(hits, expected);
        EXPECT_EQ(shown().size(), expected.empty() ? 1u : 0u);
    }
    ASSERT_NE(window<frmResults>(), nullptr);
    EXPECT_TRUE(window<frmResults>()->isVisible());
}

// Each refusal says why; the dialog stays for another word, except when the CD on display has
// no image, and the hits before stay the ones on the list.
TEST_F(frmsearchTest, SearchesThatFindNothingSayWhy)
{
    const std::tuple<const char *, Where, What, QString, Icon> cases[]
        = { { "", AllCds, Files, QStringLiteral("Bitte geben Sie einen Suchbegriff ein!"), Icon::None },
              { "nirgends", AllCds, Files, QStringLiteral("Keine CD mit dem Inhalt nirgends gefunden!"),
                  Icon::Information },
              // "*" hits the empty end line of an image, which the list cannot cut into columns.
              { "*", AllCds, Files,
                  QStringLiteral("Laufzeitfehler '5':\n\nUngültiger Prozeduraufruf oder ungültiges Argument"),
                  Icon::Critical },
              { "nirgends", AllCds, Comments, QStringLiteral("Keine übereinstimmende CD gefunden!"),
                  Icon::Critical },
              { "word", OneCd, Files, QStringLiteral("Kein Datenträgerabbild vorhanden!"), Icon::Critical } };
    selectCd(3);
    ASSERT_TRUE(search(QStringLiteral("start"), AllCds, Files));
    const std::vector<QString> before = session().lastResults;
    for (const auto &[text, where, what, message, icon] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        ASSERT_TRUE(search(QString::fromLatin1(text), where, what));
        expectOneMessage(message, icon);
        EXPECT_EQ(window<frmsearch>() != nullptr, where == AllCds); // only the missing image closes it
    }
    EXPECT_EQ(session().lastResults, before);
    EXPECT_EQ(window<frmResults>()->searchWord(), QStringLiteral("start"));
}

} // namespace
