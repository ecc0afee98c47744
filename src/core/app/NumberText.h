#pragma once

#include <QString>

#include <optional>

// A number kept as text in the settings: blanks around it allowed, "." or "," as the
// decimal mark (the German form writes ","), an exponent allowed. Anything else, and
// infinity or NaN, is no number.
std::optional<double> parseNumberText(const QString &text);
