#include "images/DosDate.h"

#include <gtest/gtest.h>

TEST(DosDate, WordOfADayHoldsOnlyTheYearsItCanCarry)
{
    struct Case
    {
        int year, month, day;
        uint16_t word;
    };
    const Case cases[] = {
        { 1979, 12, 31, 0 },
        { 1980, 1, 1, 0x0021 },
        { 2001, 2, 3, 0x2A43 },
        { 2043, 12, 31, 0x7F9F },
        { 2044, 1, 1, 0 },
        { 2107, 12, 31, 0 },
    };
    for (const Case &c : cases)
        EXPECT_EQ(dosDateWord(c.year, c.month, c.day), c.word) << c.year << "-" << c.month << "-" << c.day;
}

TEST(DosDate, TextIsDayMonthYearAndEmptyWithoutADate)
{
    const std::pair<uint16_t, const char *> cases[] = {
        { 0x0021, "01.01.1980" },
        { 0x2A43, "03.02.2001" },
        { 0x7F9F, "31.12.2043" },
        { 0x0000, "" },
        { 0x8021, "" },
        { 0xFFFF, "" },
        // Fields are not checked: month 15 and day 0 stand as they are.
        { 0x01E0, "00.15.1980" },
    };
    for (const auto &[word, text] : cases)
        EXPECT_EQ(dosDateText(word), text) << word;
}
