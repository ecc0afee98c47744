#include "Screenshot.h"
#include "SearchFixture.h"

#include <QTest>
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
    EXPECT_TRUE(window<frmResults>() && window<frmResults>()->isVisible());
}

// "*" alone hits every line of every image the list can show (the core holds which lines).
// Each refusal after it says why; the dialog stays for another word, except when the CD on
// display has no image, and list, heading and saved results still show the "*" search.
TEST_F(frmsearchTest, AStarListsEveryLineAndSearchesThatFindNothingSayWhy)
{
    const std::tuple<const char *, Where, What, QString, Icon> cases[] = {
        { "", AllCds, Files, u"Bitte geben Sie einen Suchbegriff ein!"_s, Icon::None },
        { "nirgends", AllCds, Files, u"Keine CD mit dem Inhalt nirgends gefunden!"_s, Icon::Information },
        { "nirgends", AllCds, Comments, u"Keine übereinstimmende CD gefunden!"_s, Icon::Critical },
        { "word", OneCd, Files, u"Kein Datenträgerabbild vorhanden!"_s, Icon::Critical }
    };
    selectCd(3);
    ASSERT_TRUE(search(u"*"_s, AllCds, Files));
    EXPECT_TRUE(shown().empty());
    const std::vector<QString> before = session().lastResults;
    ASSERT_FALSE(before.empty());
    screenshot(window<frmResults>(), u"ergebnisse-nach-stern"_s);
    for (const auto &[text, where, what, message, icon] : cases) {
        SCOPED_TRACE(text);
        m_run.prompts().clear();
        ASSERT_TRUE(search(QString::fromLatin1(text), where, what));
        expectOneMessage(message, icon);
        EXPECT_EQ(window<frmsearch>() != nullptr, where == AllCds); // only the missing image closes it
    }
    EXPECT_EQ(session().lastResults, before);
    EXPECT_EQ(window<frmResults>()->searchWord(), u"*"_s);
    EXPECT_EQ(control<QTreeView>(window<frmResults>(), "ListView1")->model()->rowCount(),
        static_cast<int>(before.size()));
}

class Form1Test : public SearchFixture
{
protected:
    // The navigator's position, "<" and ">" when enabled, and the CD selected in the main window.
    QString state(Form1 *navigator) const
    {
        return control<QLabel>(navigator, "Label6")->text()
            + (control<QPushButton>(navigator, "Command1")->isEnabled() ? u" <"_s : QString())
            + (control<QPushButton>(navigator, "Command2")->isEnabled() ? u" >"_s : QString()) + u" | "_s
            + (m_list->currentItem() ? m_list->currentItem()->text() : QString());
    }
};

TEST_F(Form1Test, SeveralFoundCdsAreSteppedThroughInTheMainWindow)
{
    ASSERT_TRUE(search(u"WORD"_s, AllCds, Comments));
    QPointer<Form1> navigator = window<Form1>();
    ASSERT_FALSE(navigator.isNull());
    // The dialog gave way to the navigator, which counts the CDs found.
    EXPECT_EQ(std::tuple(window<frmsearch>(), session().foundCdNumbers,
                  control<QLabel>(navigator, "Label2")->text()),
        std::tuple(nullptr, std::vector<QString> { u"1"_s, u"3"_s }, u"2"_s));
    // Nothing lies before the first CD: "<" is disabled there.
    EXPECT_EQ(state(navigator), u"1 / 2 > | 1 Backup 2003"_s);
    QTest::keyClick(control<QPushButton>(navigator, "Command3"), Qt::Key_Return); // Enter means ">"
    EXPECT_EQ(state(navigator) + u" | "_s + mainLabel("Text2"), u"2 / 2 < | 3 Ohne Abbild | Ohne Abbild"_s);
    control<QPushButton>(navigator, "Command1")->click();
    EXPECT_EQ(state(navigator), u"1 / 2 > | 1 Backup 2003"_s);
    EXPECT_EQ(std::pair(window<Form1>(), shown().size()), std::pair(navigator.data(), size_t(0)));
}

TEST_F(Form1Test, OneFoundCdIsShownAndTheNavigatorGivesWayToAMessage)
{
    ASSERT_TRUE(search(u"ägypten"_s, AllCds, Comments));
    QTest::qWait(20);
    settle();
    EXPECT_EQ(window<Form1>(), nullptr);
    EXPECT_EQ(m_list->currentItem()->text() + u" | "_s + mainLabel("Label8"), u"2 Fotos | 2"_s);
    expectOneMessage(u"Gefundene CDs: 1. Die CD wird nun angezeigt."_s, Icon::None);
}

} // namespace
