#include "SearchFixture.h"

#include <QTest>

namespace {

// What the navigator shows: its position, whether "<" and ">" are enabled, and the entry of
// the main window's CD list that is selected.
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
    State state(Form1 *navigator) const
    {
        return { control<QLabel>(navigator, "Label6")->text(), control<QPushButton>(navigator, "Command1")->isEnabled(),
            control<QPushButton>(navigator, "Command2")->isEnabled(),
            m_list->currentItem() ? m_list->currentItem()->text() : QString() };
    }
};

TEST_F(Form1Test, SeveralFoundCdsAreSteppedThroughInTheMainWindow)
{
    ASSERT_TRUE(search(QStringLiteral("WORD"), AllCds, Comments));
    QPointer<Form1> navigator = window<Form1>();
    ASSERT_FALSE(navigator.isNull());
    EXPECT_EQ(window<frmsearch>(), nullptr); // the dialog gave way to the navigator
    EXPECT_EQ(session().foundCdNumbers, (std::vector<QString> { QStringLiteral("1"), QStringLiteral("3") }));
    EXPECT_EQ(navigator->windowTitle(), QStringLiteral("Suchergebnis"));
    EXPECT_EQ(control<QLabel>(navigator, "Label2")->text(), QStringLiteral("2"));
    EXPECT_EQ(state(navigator), (State { QStringLiteral("1 / 2"), true, true, QStringLiteral("1 Backup 2003") }));
    EXPECT_EQ(mainLabel("Label8"), QStringLiteral("1"));

    // "<" is enabled before the first step though nothing is before the first CD. Pressed there
    // it reports the run-time failure it always caused, and ">" leads back to the first CD.
    control<QPushButton>(navigator, "Command1")->click();
    expectOneMessage(QStringLiteral("Laufzeitfehler '9':\n\nIndex außerhalb des gültigen Bereichs"), Icon::Critical);
    EXPECT_EQ(window<Form1>(), navigator);
    control<QPushButton>(navigator, "Command2")->click();
    EXPECT_EQ(state(navigator), (State { QStringLiteral("1 / 2"), true, true, QStringLiteral("1 Backup 2003") }));

    QTest::keyClick(control<QPushButton>(navigator, "Command3"), Qt::Key_Return); // Enter means ">"
    EXPECT_EQ(state(navigator), (State { QStringLiteral("2 / 2"), true, false, QStringLiteral("3 Ohne Abbild") }));
    EXPECT_EQ(mainLabel("Text2"), QStringLiteral("Ohne Abbild"));
    control<QPushButton>(navigator, "Command1")->click();
    EXPECT_EQ(state(navigator), (State { QStringLiteral("1 / 2"), false, true, QStringLiteral("1 Backup 2003") }));
    EXPECT_EQ(shown().size(), 1u);

    // A new find replaces the open navigator; "Neue Suche" brings the dialog back.
    ASSERT_TRUE(search(QStringLiteral("sta1"), AllCds, Comments));
    settle();
    EXPECT_TRUE(navigator.isNull());
    navigator = window<Form1>();
    ASSERT_FALSE(navigator.isNull());
    EXPECT_EQ(control<QLabel>(navigator, "Label2")->text(), QStringLiteral("5"));
    control<QPushButton>(navigator, "Command3")->click();
    settle();
    EXPECT_TRUE(navigator.isNull());
    ASSERT_NE(window<frmsearch>(), nullptr);
    EXPECT_TRUE(window<frmsearch>()->isVisible());
}

TEST_F(Form1Test, OneFoundCdIsShownAndTheNavigatorGivesWayToAMessage)
{
    ASSERT_TRUE(search(QStringLiteral("ägypten"), AllCds, Comments));
    QTest::qWait(20);
    settle();
    EXPECT_EQ(window<Form1>(), nullptr);
    EXPECT_EQ(m_list->currentItem()->text(), QStringLiteral("2 Fotos"));
    EXPECT_EQ(mainLabel("Label8"), QStringLiteral("2"));
    expectOneMessage(QStringLiteral("Gefundene CDs: 1. Die CD wird nun angezeigt."), Icon::None);
}

TEST_F(Form1Test, CommentSearchHeedsScopeAndExplicitMatch)
{
    const struct
    {
        const char *name;
        Where where;
        bool explicitMatch;
        std::vector<QString> found;
    } cases[] = {
        { "explicitWantsAWholeItem", AllCds, true, { QStringLiteral("1") } },
        { "onlyTheSelectedCd", OneCd, false, { QStringLiteral("3") } },
    };
    for (const auto &c : cases) {
        selectCd(3); // a navigator selects the CDs it shows
        ASSERT_TRUE(search(QStringLiteral("word"), c.where, Comments, c.explicitMatch)) << c.name;
        EXPECT_EQ(session().foundCdNumbers, c.found) << c.name;
        if (Form1 *navigator = window<Form1>())
            navigator->close();
        QTest::qWait(5);
        settle();
    }
}

TEST_F(Form1Test, AFoundCdMissingFromTheListIsPassedOverSilently)
{
    ASSERT_TRUE(search(QStringLiteral("word"), AllCds, Comments));
    Form1 *navigator = window<Form1>();
    ASSERT_NE(navigator, nullptr);
    delete m_list->takeItem(2); // "3 Ohne Abbild"
    control<QPushButton>(navigator, "Command2")->click();
    EXPECT_EQ(state(navigator), (State { QStringLiteral("2 / 2"), true, false, QStringLiteral("1 Backup 2003") }));
    EXPECT_TRUE(shown().empty());
}

} // namespace
