#include "images/DosDate.h"

#include <gtest/gtest.h>

TEST(DosDate, WordHoldsOnlyTheYearsItCanCarryAndItsTextIsNotChecked)
{
    const std::tuple<int, int, int, uint16_t> words[]
        = { { 1979, 12, 31, 0 }, { 1980, 1, 1, 0x0021 }, { 2043, 12, 31, 0x7F9F }, { 2044, 1, 1, 0 } };
    for (const auto &[year, month, day, word] : words)
        EXPECT_EQ(dosDateWord(year, month, day), word) << year;
    // Month 15 and day 0 stand as they are; year 2044 and later has no text.
    const std::pair<uint16_t, const char *> texts[]
        = { { 0x2A43, "03.02.2001" }, { 0x0000, "" }, { 0x8021, "" }, { 0x01E0, "00.15.1980" } };
    for (const auto &[word, text] : texts)
        EXPECT_EQ(dosDateText(word), text) << word;
}
