#include "archives/CdList.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

TEST(CdListTest, EntriesAreNumberBlankTitleWithSixteenBitNumbersOnly)
{
    const cdlist::Fill fill = cdlist::entriesOf({ { .number = -32768, .name = u"Kleinste"_s },
        { .number = -32769, .name = u"a"_s }, { .number = 0 }, { .number = 7, .name = u"Abc"_s },
        { .number = 32768, .name = u"c"_s }, { .number = 32767, .name = u"Größte Nummer"_s } });
    EXPECT_EQ(
        fill.entries, (QStringList { u"-32768 Kleinste"_s, u"0 "_s, u"7 Abc"_s, u"32767 Größte Nummer"_s }));
    EXPECT_EQ(fill.error,
        u"Folgende CD-Nummern liegen außerhalb des Bereichs von -32768 bis 32767 und können in der Liste "
        u"nicht angezeigt werden: -32769, 32768"_s);
    // Back from an entry: the number is the text before the first blank.
    const std::pair<const char *, std::optional<int16_t>> cases[]
        = { { "7     Nach vielen Sortierungen", 7 }, { "-32768 x", -32768 }, { "32768 x", std::nullopt },
              { " 5 x", std::nullopt }, { "abc", std::nullopt } };
    for (const auto &[entry, number] : cases)
        EXPECT_EQ(cdlist::numberOf(QString::fromUtf8(entry)), number) << entry;
}

// Each sort without a reload adds a blank. Equal titles come out in the order of the quick sort: the middle
// of 0..3 is 1.5 and of 0..5 is 2.5, both rounded to 2; another rounding gives another order.
TEST(CdListTest, SortIsBinaryByTitle)
{
    const std::pair<QStringList, QStringList> cases[] = {
        { { u"1 apfel"_s, u"2 Birne"_s, u"3 äpfel"_s, u"4 zitrone"_s, u"5 Apfel"_s, u"6 10 Euro"_s },
            { u"6  10 Euro"_s, u"5  Apfel"_s, u"2  Birne"_s, u"1  apfel"_s, u"4  zitrone"_s,
                u"3  äpfel"_s } },
        { { u"1 b"_s, u"2 a"_s, u"3 b"_s, u"4 a"_s, u"5 b"_s, u"6 b"_s },
            { u"2  a"_s, u"4  a"_s, u"5  b"_s, u"6  b"_s, u"1  b"_s, u"3  b"_s } },
        { { u"b"_s, u"1 a"_s }, { u"1  a"_s, u" b"_s } }, // an entry without blank is all title
        { { u"7  Abc"_s, u"3  Xyz"_s }, { u"7   Abc"_s, u"3   Xyz"_s } }, { {}, {} } // stays unsorted
    };
    for (auto [entries, sorted] : cases) {
        bool listSorted = false;
        cdlist::sortByTitle(entries, listSorted);
        EXPECT_EQ(std::pair(entries, listSorted), std::pair(sorted, !sorted.isEmpty()));
    }
}

} // namespace
