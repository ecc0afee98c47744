#include "DateText.h"

#include <chrono>

namespace {

void appendTwoDigits(int value, std::string &out)
{
    out.push_back(static_cast<char>('0' + value / 10 % 10));
    out.push_back(static_cast<char>('0' + value % 10));
}

void appendYear(int year, std::string &out)
{
    out.push_back(static_cast<char>('0' + year / 1000 % 10));
    out.push_back(static_cast<char>('0' + year / 100 % 10));
    appendTwoDigits(year % 100, out);
}

} // namespace

void appendGermanDateText(const DateTime &when, std::string &out)
{
    appendTwoDigits(when.day, out);
    out.push_back('.');
    appendTwoDigits(when.month, out);
    out.push_back('.');
    appendYear(when.year, out);
    if (when.hour == 0 && when.minute == 0 && when.second == 0)
        return;
    out.push_back(' ');
    appendTwoDigits(when.hour, out);
    out.push_back(':');
    appendTwoDigits(when.minute, out);
    out.push_back(':');
    appendTwoDigits(when.second, out);
}

std::string germanDateText(const DateTime &when)
{
    std::string out;
    appendGermanDateText(when, out);
    return out;
}

DateTime utcDateTime(long long secondsSinceEpoch)
{
    using namespace std::chrono;
    const sys_seconds point{seconds{secondsSinceEpoch}};
    const sys_days day = floor<days>(point);
    const year_month_day date{day};
    const hh_mm_ss time{point - day};
    return DateTime{static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                    static_cast<int>(static_cast<unsigned>(date.day())), static_cast<int>(time.hours().count()),
                    static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count())};
}
