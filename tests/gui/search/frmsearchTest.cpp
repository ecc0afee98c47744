#include "Screenshot.h"
#include "SearchFixture.h"

#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

using frmsearchTest = SearchFixture;

// One CD: the paths of the CD on display, heeding "Explizite Suche". All CDs: every image in
// archive order, ignoring it; the image of CD 5 is gone and passed over.
TEST_F(frmsearchTest, OptionsChooseWhatIsSearched)
{
    const QString word = u"1-Backup 2003<d:\\Setup\\Word.exe"_s;
    const std::tuple<const char *, Where, bool, std::vector<QString>> cases[] = { // explicit, hits
        { "EXE", OneCd, false, { u"1-Backup 2003<d:\\Setup\\start.exe"_s, word } },
        { "word.exe", OneCd, true, {} }, // explicit: the whole path
        { "word", AllCds, true,
            { word, u"2-Fotos<e:\\wörter\\word.doc"_s, u"4-Spiele<f:\\Spiele\\Word7.exe"_s } }
    };
    selectCd(1);
    for (const auto &[text, where, explicitMatch, expected] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        session().lastResults.clear();
        ASSERT_TRUE(search(QString::fromUtf8(text), where, Files, explicitMatch));
        std::vector<QString> hits; // without size and date
        for (const QString &entry : session().lastResults)
            hits.push_back(entry.section(u'|', 0, 0));
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
    const std::tuple<const char *, Where, What, QString, Icon> cases[] = {
        { "", AllCds, Files, u"Bitte geben Sie einen Suchbegriff ein!"_s, Icon::None },
        { "nirgends", AllCds, Files, u"Keine CD mit dem Inhalt nirgends gefunden!"_s, Icon::Information },
        { "nirgends", AllCds, Comments, u"Keine übereinstimmende CD gefunden!"_s, Icon::Critical },
        { "word", OneCd, Files, u"Kein Datenträgerabbild vorhanden!"_s, Icon::Critical }
    };
    selectCd(3);
    ASSERT_TRUE(search(u"start"_s, AllCds, Files));
    const std::vector<QString> before = session().lastResults;
    for (const auto &[text, where, what, message, icon] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        ASSERT_TRUE(search(QString::fromLatin1(text), where, what));
        expectOneMessage(message, icon);
        EXPECT_EQ(window<frmsearch>() != nullptr, where == AllCds); // only the missing image closes it
    }
    EXPECT_EQ(session().lastResults, before);
    EXPECT_EQ(window<frmResults>()->searchWord(), u"start"_s);
}

} // namespace

// "*" alone hits every line of every image; the empty end line, which the list could not
// take apart, stays out (the core holds which lines), so list, heading and saved results all
// show this one search.
TEST_F(frmsearchTest, AStarAloneListsEveryLineTheListCanShow)
{
    selectCd(3);
    ASSERT_TRUE(search(u"*"_s, AllCds, Files));
    EXPECT_TRUE(shown().empty());
    const std::vector<QString> &hits = session().lastResults;
    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(window<frmResults>()->searchWord(), u"*"_s);
    screenshot(window<frmResults>(), u"ergebnisse-nach-stern"_s);
    EXPECT_EQ(control<QTreeView>(window<frmResults>(), "ListView1")->model()->rowCount(), static_cast<int>(hits.size()));
}
