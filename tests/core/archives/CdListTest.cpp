#include "archives/CdList.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using cdlist::sortList1;

QStringList sortedOnce(QStringList entries)
{
    bool listSorted = false;
    sortList1(entries, listSorted);
    return entries;
}

TEST(CdListTest, EntriesAreNumberBlankTitleInRowOrder)
{
    const std::vector<CdRow> rows = { { .number = -32768, .name = QStringLiteral("Kleinste") },
        { .number = 0, .name = QString() }, { .number = 7, .name = QStringLiteral("Abc") },
        { .number = 32767, .name = QStringLiteral("Größte Nummer") } };
    const cdlist::Fill fill = cdlist::entriesOf(rows);
    EXPECT_EQ(fill.entries,
        (QStringList { QStringLiteral("-32768 Kleinste"), QStringLiteral("0 "), QStringLiteral("7 Abc"),
            QStringLiteral("32767 Größte Nummer") }));
    EXPECT_TRUE(fill.error.isEmpty());
}

TEST(CdListTest, NumbersOutsideSixteenBitsAreLeftOutAndNamed)
{
    const std::vector<CdRow> rows = { { .number = -32769, .name = QStringLiteral("a") },
        { .number = 1, .name = QStringLiteral("b") }, { .number = 32768, .name = QStringLiteral("c") } };
    const cdlist::Fill fill = cdlist::entriesOf(rows);
    EXPECT_EQ(fill.entries, QStringList { QStringLiteral("1 b") });
    EXPECT_EQ(fill.error,
        QStringLiteral("Folgende CD-Nummern liegen außerhalb des Bereichs von -32768 bis 32767 und "
                       "können in der Liste nicht angezeigt werden: -32769, 32768"));
}

TEST(CdListTest, NumberOfAnEntryIsTheTextBeforeTheFirstBlank)
{
    struct Case
    {
        const char *entry;
        std::optional<int16_t> number;
    };
    const Case cases[] = {
        { "12 Titel mit Blanks", 12 },
        { "7  Abc", 7 },
        { "7     Nach vielen Sortierungen", 7 },
        { "-3 negativ", -3 },
        { "32767 x", 32767 },
        { "-32768 x", -32768 },
        { "32768 x", std::nullopt },
        { "12", std::nullopt },
        { " 5 x", std::nullopt },
        { "abc def", std::nullopt },
    };
    for (const Case &c : cases)
        EXPECT_EQ(cdlist::numberOf(QString::fromUtf8(c.entry)), c.number) << c.entry;
}

TEST(CdListTest, SortIsBinaryByTitle)
{
    const QStringList entries
        = { QStringLiteral("1 apfel"), QStringLiteral("2 Birne"), QStringLiteral("3 äpfel"),
              QStringLiteral("4 zitrone"), QStringLiteral("5 Apfel"), QStringLiteral("6 10 Euro") };
    EXPECT_EQ(sortedOnce(entries),
        (QStringList { QStringLiteral("6  10 Euro"), QStringLiteral("5  Apfel"), QStringLiteral("2  Birne"),
            QStringLiteral("1  apfel"), QStringLiteral("4  zitrone"), QStringLiteral("3  äpfel") }));
}

TEST(CdListTest, EachSortWithoutReloadAddsABlank)
{
    QStringList entries = { QStringLiteral("7 Abc"), QStringLiteral("3 Xyz") };
    bool listSorted = false;
    sortList1(entries, listSorted);
    EXPECT_EQ(entries, (QStringList { QStringLiteral("7  Abc"), QStringLiteral("3  Xyz") }));
    sortList1(entries, listSorted);
    EXPECT_EQ(entries, (QStringList { QStringLiteral("7   Abc"), QStringLiteral("3   Xyz") }));
    EXPECT_TRUE(listSorted);
    EXPECT_EQ(cdlist::numberOf(entries.front()), 7);
}

TEST(CdListTest, EmptyListStaysUnsorted)
{
    QStringList entries;
    bool listSorted = false;
    sortList1(entries, listSorted);
    EXPECT_FALSE(listSorted);
    EXPECT_TRUE(entries.isEmpty());
}

TEST(CdListTest, EqualTitlesComeOutInTheQuickSortsOrder)
{
    // The middle of 0..3 is 1.5, rounded to 2; of 0..5 it is 2.5, rounded to 2 as well.
    // Other roundings of the middle give other orders of the equal titles.
    struct Case
    {
        const char *name;
        QStringList entries;
        QStringList sorted;
    };
    const Case cases[] = {
        { "four",
            { QStringLiteral("1 b"), QStringLiteral("2 a"), QStringLiteral("3 b"), QStringLiteral("4 a") },
            { QStringLiteral("2  a"), QStringLiteral("4  a"), QStringLiteral("3  b"),
                QStringLiteral("1  b") } },
        { "six",
            { QStringLiteral("1 b"), QStringLiteral("2 a"), QStringLiteral("3 b"), QStringLiteral("4 a"),
                QStringLiteral("5 b"), QStringLiteral("6 b") },
            { QStringLiteral("2  a"), QStringLiteral("4  a"), QStringLiteral("5  b"), QStringLiteral("6  b"),
                QStringLiteral("1  b"), QStringLiteral("3  b") } },
    };
    for (const Case &c : cases)
        EXPECT_EQ(sortedOnce(c.entries), c.sorted) << c.name;
}

TEST(CdListTest, AnEntryWithoutBlankSortsAsAWholeTitle)
{
    EXPECT_EQ(sortedOnce({ QStringLiteral("b"), QStringLiteral("1 a") }),
        (QStringList { QStringLiteral("1  a"), QStringLiteral(" b") }));
}

TEST(CdListTest, DeleteTexts)
{
    EXPECT_EQ(cdlist::noCdSelectedMessage(), QStringLiteral("Keine CD ausgewählt!"));
    EXPECT_EQ(cdlist::deleteQuestion(12), QStringLiteral("Wollen Sie die CD (Nummer: 12) wirklich löschen?"));
    EXPECT_EQ(cdlist::deletedMessage(), QStringLiteral("CD wurde aus dem Archiv entfernt!"));
}

} // namespace
