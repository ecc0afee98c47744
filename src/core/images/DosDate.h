#pragma once

#include <cstdint>
#include <string>

// The date half of an MS-DOS time stamp, as both archive listers write it: bits 0-4 day,
// 5-8 month, 9-15 year minus 1980.

// "dd.mm.yyyy", day and month two digits, the fields taken as they stand (a day 0 gives
// "00"). Empty for the word 0 and for a word with its top bit set: the catalogue holds the
// word as a signed 16-bit number, so the years from 2044 on have no date.
std::string dosDateText(uint16_t word);

// The date word of a calendar day; 0, which means no date, outside the years 1980 to 2043.
uint16_t dosDateWord(int year, int month, int day);
