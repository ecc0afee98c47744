#pragma once

#include <QString>

// A failure that the catalogue reports the way a run-time error is reported: its number and
// German text in a critical message; the action is then abandoned and the program goes on.
struct RuntimeFailure
{
    int number = 0;
    QString text;

    // The text of the report: "Laufzeitfehler '9':" and the error's text below.
    QString message() const
    {
        return QStringLiteral("Laufzeitfehler '%1':\n\n%2").arg(number).arg(text);
    }

    bool operator==(const RuntimeFailure &) const = default;
};
