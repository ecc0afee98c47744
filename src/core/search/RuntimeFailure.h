#pragma once

#include <QString>

// A failure that the catalogue reports the way a run-time error is reported: its number and
// German text in a critical message; the action is then abandoned and the program goes on.
struct RuntimeFailure
{
    int number = 0;
    QString text;

    bool operator==(const RuntimeFailure &) const = default;
};
