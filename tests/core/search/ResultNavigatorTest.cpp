#include "QStringPrinting.h"

#include "search/ResultNavigator.h"

#include <gtest/gtest.h>

namespace {

std::vector<QString> numbers(std::initializer_list<int> values)
{
    std::vector<QString> texts;
    for (int value : values)
        texts.push_back(QString::number(value));
    return texts;
}

// The state of the navigator's window: position label, "<" enabled, ">" enabled, CD shown.
struct View
{
    QString position;
    bool previous;
    bool next;
    QString number;

    bool operator==(const View &) const = default;
};

View viewOf(const ResultNavigator &navigator)
{
    return {navigator.positionText(), navigator.previousEnabled(), navigator.nextEnabled(),
            navigator.currentNumber()};
}

void PrintTo(const View &view, std::ostream *out)
{
    *out << view.position.toStdString() << " <" << view.previous << " >" << view.next << " #"
         << view.number.toStdString();
}

TEST(ResultNavigator, TwoCdsStepForwardAndBack)
{
    ResultNavigator navigator(numbers({4, 9}));
    EXPECT_EQ(navigator.countText(), QStringLiteral("2"));
    EXPECT_FALSE(navigator.givesWayToMessage());
    // "<" is left enabled when the window opens.
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("1 / 2"), true, true, QStringLiteral("4")}));
    EXPECT_FALSE(navigator.next());
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("2 / 2"), true, false, QStringLiteral("9")}));
    EXPECT_FALSE(navigator.previous());
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("1 / 2"), false, true, QStringLiteral("4")}));
}

TEST(ResultNavigator, ThreeCdsKeepBothButtonsInTheMiddle)
{
    ResultNavigator navigator(numbers({1, 2, 3}));
    navigator.next();
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("2 / 3"), true, true, QStringLiteral("2")}));
    navigator.next();
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("3 / 3"), true, false, QStringLiteral("3")}));
    navigator.previous();
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("2 / 3"), true, true, QStringLiteral("2")}));
}

TEST(ResultNavigator, BackAtTheFirstCdRightAfterOpeningFails)
{
    ResultNavigator navigator(numbers({4, 9, 12}));
    const auto failure = navigator.previous();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number, 9);
    EXPECT_EQ(failure->text, QStringLiteral("Index außerhalb des gültigen Bereichs"));
    // Labels and buttons keep what they showed; the index has moved, so ">" leads to the first CD.
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("1 / 3"), true, true, QString()}));
    EXPECT_FALSE(navigator.next());
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("1 / 3"), true, true, QStringLiteral("4")}));
}

TEST(ResultNavigator, OneCdDisablesBothButtonsAndGivesWayToTheMessage)
{
    const ResultNavigator navigator(numbers({17}));
    EXPECT_TRUE(navigator.givesWayToMessage());
    EXPECT_EQ(navigator.countText(), QStringLiteral("1"));
    EXPECT_EQ(viewOf(navigator), (View{QStringLiteral("1 / 1"), false, false, QStringLiteral("17")}));
}

TEST(ResultNavigator, FindsTheListEntryByTheNumberBeforeTheFirstBlank)
{
    const QStringList entries = {QStringLiteral("1 Urlaub"), QStringLiteral("12 Backup 2003"),
                                 QStringLiteral("2   Briefe"), QStringLiteral("12 Doppelt")};
    EXPECT_EQ(ResultNavigator::listEntryOf(entries, QStringLiteral("12")), 1);
    EXPECT_EQ(ResultNavigator::listEntryOf(entries, QStringLiteral("2")), 2);
    EXPECT_EQ(ResultNavigator::listEntryOf(entries, QStringLiteral("Urlaub")), -1);
    EXPECT_EQ(ResultNavigator::listEntryOf(entries, QStringLiteral("3")), -1);
}

} // namespace
