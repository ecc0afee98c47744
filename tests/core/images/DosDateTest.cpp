#include "images/DosDate.h"

#include <gtest/gtest.h>

TEST(DosDate, WordOfADayHoldsOnlyTheYearsItCanCarry)
{
    const std::tuple<int, int, int, uint16_t> cases[] = { { 1979, 12, 31, 0 }, { 1980, 1, 1, 0x0021 },
        { 2001, 2, 3, 0x2A43 }, { 2043, 12, 31, 0x7F9F }, { 2044, 1, 1, 0 }, { 2107, 12, 31, 0 } };
    for (const auto &[year, month, day, word] : cases)
        EXPECT_EQ(dosDateWord(year, month, day), word) << year << "-" << month << "-" << day;
}

TEST(DosDate, TextIsDayMonthYearAndEmptyWithoutADate)
{
    // Fields are not checked: month 15 and day 0 stand as they are.
    const std::pair<uint16_t, const char *> cases[] = { { 0x0021, "01.01.1980" }, { 0x2A43, "03.02.2001" },
        { 0x7F9F, "31.12.2043" }, { 0x0000, "" }, { 0x8021, "" }, { 0xFFFF, "" }, { 0x01E0, "00.15.1980" } };
    for (const auto &[word, text] : cases)
        EXPECT_EQ(dosDateText(word), text) << word;
}
