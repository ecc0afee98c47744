#include "DosDate.h"

std::string dosDateText(uint16_t word)
{
    if (word == 0 || (word & 0x8000) != 0)
        return {};
    const unsigned day = word & 31u;
    const unsigned month = (word >> 5) & 15u;
    const unsigned year = (word >> 9) + 1980u;
    std::string text = "00.00.";
    text[0] = static_cast<char>('0' + day / 10);
    text[1] = static_cast<char>('0' + day % 10);
    text[3] = static_cast<char>('0' + month / 10);
    text[4] = static_cast<char>('0' + month % 10);
    text += std::to_string(year);
    return text;
}

uint16_t dosDateWord(int year, int month, int day)
{
    if (year < 1980 || year > 2043)
        return 0;
    return static_cast<uint16_t>(((year - 1980) << 9) | (month << 5) | day);
}
