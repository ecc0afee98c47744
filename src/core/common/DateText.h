#pragma once

#include <string>

// The German date text of the catalogue, "dd.mm.yyyy hh:mm:ss", every field two digits and
// the year four; at exactly 00:00:00 the time is dropped and the text is the date alone.
struct DateTime
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Appends to `out` so that writers on hot paths keep one buffer.
void appendGermanDateText(const DateTime &when, std::string &out);
std::string germanDateText(const DateTime &when);

// Seconds since 1970-01-01 UTC, broken down in UTC (no time zone is ever applied).
DateTime utcDateTime(long long secondsSinceEpoch);
