#pragma once

#include <QString>

#include <cstdint>

// Conversion of a floating-point value to a whole number: the nearest one, ties to the even
// neighbour (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
int64_t bankersRound(double value);

// A number in the format pattern "#": plain decimal, no grouping, and the empty text for 0.
QString formatHash(int64_t number);
