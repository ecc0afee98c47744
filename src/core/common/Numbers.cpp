#include "Numbers.h"

#include <cmath>

int64_t bankersRound(double value)
{
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest > 0.5)
        return static_cast<int64_t>(floor) + 1;
    if (rest < 0.5)
        return static_cast<int64_t>(floor);
    const auto lower = static_cast<int64_t>(floor);
    return lower % 2 == 0 ? lower : lower + 1;
}

QString formatHash(int64_t number)
{
    return number == 0 ? QString() : QString::number(number);
}
