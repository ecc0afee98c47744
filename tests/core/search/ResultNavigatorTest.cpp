#include "search/ResultNavigator.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// The navigator's window as one text: position label, "<" and ">" enabled, CD on display.
QString view(const ResultNavigator &navigator)
{
    return u"%1 <%2 >%3 #%4"_s.arg(navigator.positionText())
        .arg(navigator.previousEnabled())
        .arg(navigator.nextEnabled())
        .arg(navigator.currentNumber());
}

// "<" is disabled at the first CD and ">" at the last, so no step can leave the found CDs;
// one CD disables both and gives way to the message.
TEST(ResultNavigator, StepsForwardAndBackWithinTheFoundCds)
{
    ResultNavigator navigator({ u"4"_s, u"9"_s, u"12"_s });
    EXPECT_EQ(navigator.countText() + view(navigator), u"31 / 3 <0 >1 #4"_s);
    EXPECT_FALSE(navigator.givesWayToMessage());
    const std::pair<bool, QString> steps[] = { { false, u"1 / 3 <0 >1 #4"_s }, { true, u"2 / 3 <1 >1 #9"_s },
        { true, u"3 / 3 <1 >0 #12"_s }, { true, u"3 / 3 <1 >0 #12"_s }, { false, u"2 / 3 <1 >1 #9"_s },
        { false, u"1 / 3 <0 >1 #4"_s } };
    for (const auto &[forward, shown] : steps) {
        forward ? navigator.next() : navigator.previous();
        EXPECT_EQ(view(navigator), shown);
    }
    const ResultNavigator one({ u"17"_s });
    EXPECT_TRUE(one.givesWayToMessage());
    EXPECT_EQ(view(one), u"1 / 1 <0 >0 #17"_s);
}

TEST(ResultNavigator, FindsTheListEntryByTheNumberBeforeTheFirstBlank)
{
    const QStringList entries = { u"1 Urlaub"_s, u"12 Backup 2003"_s, u"2   Briefe"_s, u"12 Doppelt"_s };
    const std::pair<QString, int> cases[]
        = { { u"12"_s, 1 }, { u"2"_s, 2 }, { u"Urlaub"_s, -1 }, { u"3"_s, -1 } };
    for (const auto &[number, entry] : cases)
        EXPECT_EQ(ResultNavigator::listEntryOf(entries, number), entry) << number.toStdString();
}

} // namespace
