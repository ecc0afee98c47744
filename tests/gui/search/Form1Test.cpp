#include "SearchFixture.h"

#include "search/Form1.h"
#include "search/frmsearch.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace {

using Icon = Prompts::Icon;

// What the navigator shows: its position, whether "<" and ">" are enabled, and the entry of
// the CD list that is selected.
struct State
{
    QString position;
    bool previous;
    bool next;
    QString selected;
    bool operator==(const State &) const = default;
};

void PrintTo(const State &s, std::ostream *out)
{
    *out << s.position.toStdString() << (s.previous ? " <on" : " <off") << (s.next ? " >on " : " >off ")
         << s.selected.toStdString();
}

class Form1Test : public SearchFixture
{
protected:
    // A comment search over all CDs; the navigator it opens, or null.
    Form1 *commentSearch(const QString &word, bool explicitMatch = false)
    {
        frmsearch *dialog = openSearch();
        EXPECT_TRUE(search(dialog, word, QStringLiteral("Option2"), QStringLiteral("Option4"), explicitMatch));
        return m_windows->navigatorWindow();
    }

    QString selectedEntry() const { return m_list->currentItem() ? m_list->currentItem()->text() : QString(); }

    State state(Form1 *navigator) const
    {
        return {child<QLabel>(navigator, "Label6")->text(), child<QPushButton>(navigator, "Command1")->isEnabled(),
                child<QPushButton>(navigator, "Command2")->isEnabled(), selectedEntry()};
    }
};

TEST_F(Form1Test, ShowsItsTextsOnTopOfEveryWindow)
{
    Form1 *navigator = commentSearch(QStringLiteral("word"));
    ASSERT_NE(navigator, nullptr);
    EXPECT_EQ(navigator->windowTitle(), QStringLiteral("Suchergebnis"));
    EXPECT_TRUE(navigator->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    const struct
    {
        const char *name;
        const char *text;
    } captions[] = {
        {"Label1", "Die Suche wurde abgeschlossen. "},
        {"Label3", "Es wurden insgesammt             Übereinstimmungen gefunden."},
        {"Label2", "2"},
        {"Label5", "Angezeigt wird:"},
        {"Label4", "Klicken Sie auf die > Schaltfläche um durch die Suchergebnisse zu navigieren."},
        {"Command1", "<"},
        {"Command2", ">"},
        {"Command3", "&Neue Suche"},
        {"Command4", "&Schließen"},
    };
    for (const auto &caption : captions)
        EXPECT_EQ(child<QWidget>(navigator, caption.name)->property("text").toString(), QString::fromUtf8(caption.text))
            << caption.name;
    EXPECT_TRUE(child<QPushButton>(navigator, "Command2")->isDefault());
}

TEST_F(Form1Test, SeveralFoundCdsAreSteppedThroughTheCdList)
{
    Form1 *navigator = commentSearch(QStringLiteral("WORD"));
    ASSERT_NE(navigator, nullptr);
    EXPECT_EQ(m_session.foundCdNumbers, (std::vector<QString>{QStringLiteral("1"), QStringLiteral("3")}));
    EXPECT_EQ(m_windows->searchWindow(), nullptr); // the dialog gave way to the navigator
    // "<" stays enabled at the first CD, as it always did.
    EXPECT_EQ(state(navigator), (State{QStringLiteral("1 / 2"), true, true, QStringLiteral("1 Backup 2003")}));
    EXPECT_EQ(m_label8->text(), QStringLiteral("1"));

    child<QPushButton>(navigator, "Command2")->click();
    EXPECT_EQ(state(navigator), (State{QStringLiteral("2 / 2"), true, false, QStringLiteral("3 Ohne Abbild")}));
    EXPECT_EQ(m_text2->text(), QStringLiteral("Ohne Abbild"));

    child<QPushButton>(navigator, "Command1")->click();
    EXPECT_EQ(state(navigator), (State{QStringLiteral("1 / 2"), false, true, QStringLiteral("1 Backup 2003")}));
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Form1Test, EnterPressesNext)
{
    Form1 *navigator = commentSearch(QStringLiteral("word"));
    ASSERT_NE(navigator, nullptr);
    QTest::keyClick(child<QPushButton>(navigator, "Command3"), Qt::Key_Return);
    EXPECT_EQ(child<QLabel>(navigator, "Label6")->text(), QStringLiteral("2 / 2"));
}

// Before the first step "<" is enabled though there is nothing before the first CD. Pressed
// there it reports the run-time failure it always caused, and the navigator goes on.
TEST_F(Form1Test, PreviousAtTheFirstCdReportsTheFailureAndGoesOn)
{
    Form1 *navigator = commentSearch(QStringLiteral("word"));
    ASSERT_NE(navigator, nullptr);
    child<QPushButton>(navigator, "Command1")->click();
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    EXPECT_EQ(m_prompts.shown()[0].icon, Icon::Critical);
    EXPECT_EQ(m_prompts.shown()[0].text, QStringLiteral("Laufzeitfehler '9':\n\nIndex außerhalb des gültigen Bereichs"));
    EXPECT_EQ(m_windows->navigatorWindow(), navigator);
    EXPECT_EQ(state(navigator), (State{QStringLiteral("1 / 2"), true, true, QStringLiteral("1 Backup 2003")}));
    child<QPushButton>(navigator, "Command2")->click(); // back at the first found CD
    EXPECT_EQ(state(navigator), (State{QStringLiteral("1 / 2"), true, true, QStringLiteral("1 Backup 2003")}));
}

TEST_F(Form1Test, OneFoundCdIsShownAndTheNavigatorGivesWayToAMessage)
{
    commentSearch(QStringLiteral("ägypten"));
    QTest::qWait(20);
    settle();
    EXPECT_EQ(m_windows->navigatorWindow(), nullptr);
    EXPECT_EQ(selectedEntry(), QStringLiteral("2 Fotos"));
    ASSERT_EQ(m_prompts.shown().size(), 1u);
    EXPECT_EQ(m_prompts.shown()[0].text, QStringLiteral("Gefundene CDs: 1. Die CD wird nun angezeigt."));
    EXPECT_EQ(m_prompts.shown()[0].icon, Icon::None);
}

// What stands in the navigator for the moment before it gives way.
TEST_F(Form1Test, OneFoundCdDisablesBothSteps)
{
    Form1 navigator(*m_windows, {QStringLiteral("4")}, m_main.get());
    EXPECT_EQ(child<QLabel>(&navigator, "Label2")->text(), QStringLiteral("1"));
    EXPECT_EQ(state(&navigator), (State{QStringLiteral("1 / 1"), false, false, QStringLiteral("4 Spiele")}));
}

TEST_F(Form1Test, CommentSearchWordingAndScope)
{
    const struct
    {
        const char *name;
        const char *word;
        bool oneCd;
        bool explicitMatch;
        std::vector<QString> found;
    } cases[] = {
        {"anywhereInTheComments", "word", false, false, {QStringLiteral("1"), QStringLiteral("3")}},
        {"explicitWantsAWholeItem", "word", false, true, {QStringLiteral("1")}},
        {"onlyTheSelectedCd", "word", true, false, {QStringLiteral("3")}},
        {"wildcardsAct", "st?uer*", false, false, {QStringLiteral("1")}},
    };
    for (const auto &c : cases) {
        m_prompts.clear();
        selectCd(3);
        frmsearch *dialog = openSearch();
        ASSERT_TRUE(search(dialog, QString::fromUtf8(c.word), c.oneCd ? QStringLiteral("Option1") : QStringLiteral("Option2"),
                           QStringLiteral("Option4"), c.explicitMatch))
            << c.name;
        EXPECT_EQ(m_session.foundCdNumbers, c.found) << c.name;
        if (Form1 *navigator = m_windows->navigatorWindow())
            navigator->close();
        QTest::qWait(5);
        settle();
    }
}

TEST_F(Form1Test, NoMatchingCdKeepsTheDialog)
{
    for (const char *word : {"nirgends", "o'neil"}) {
        m_prompts.clear();
        m_session.foundCdNumbers = {QStringLiteral("4")};
        frmsearch *dialog = openSearch();
        ASSERT_TRUE(search(dialog, QString::fromLatin1(word), QStringLiteral("Option2"), QStringLiteral("Option4")));
        ASSERT_EQ(m_prompts.shown().size(), 1u) << word;
        EXPECT_EQ(m_prompts.shown()[0].text, QStringLiteral("Keine übereinstimmende CD gefunden!"));
        EXPECT_EQ(m_prompts.shown()[0].icon, Icon::Critical);
        EXPECT_TRUE(m_session.foundCdNumbers.empty()) << word;
        EXPECT_EQ(m_windows->searchWindow(), dialog);
        EXPECT_EQ(m_windows->navigatorWindow(), nullptr);
        EXPECT_TRUE(child<QPushButton>(dialog, "Command1")->isEnabled());
    }
}

TEST_F(Form1Test, AFoundCdMissingFromTheListIsPassedOverSilently)
{
    Form1 *navigator = commentSearch(QStringLiteral("word"));
    ASSERT_NE(navigator, nullptr);
    delete m_list->takeItem(2); // "3 Ohne Abbild"
    child<QPushButton>(navigator, "Command2")->click();
    EXPECT_EQ(state(navigator), (State{QStringLiteral("2 / 2"), true, false, QStringLiteral("1 Backup 2003")}));
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Form1Test, NewSearchBringsBackTheDialog)
{
    QPointer<Form1> navigator = commentSearch(QStringLiteral("word"));
    ASSERT_FALSE(navigator.isNull());
    child<QPushButton>(navigator, "Command3")->click();
    settle();
    EXPECT_TRUE(navigator.isNull());
    ASSERT_NE(m_windows->searchWindow(), nullptr);
    EXPECT_TRUE(m_windows->searchWindow()->isVisible());
}

TEST_F(Form1Test, ANewFindReplacesAnOpenNavigator)
{
    QPointer<Form1> first = commentSearch(QStringLiteral("word"));
    ASSERT_FALSE(first.isNull());
    Form1 *second = commentSearch(QStringLiteral("sta1"));
    settle();
    EXPECT_TRUE(first.isNull());
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(child<QLabel>(second, "Label2")->text(), QStringLiteral("5"));
}

} // namespace
