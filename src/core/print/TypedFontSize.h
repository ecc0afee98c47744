#pragma once

#include <QString>

#include <optional>

// The font sizes the print dialogs take, in points: up to the largest at which every print-out
// still has room for a line between its head and its footer.
constexpr double smallestTypedFontSize = 1;
constexpr double largestTypedFontSize = 72;

// Nothing when the text of a font size box is such a size, otherwise the message asking for one.
std::optional<QString> typedFontSizeRefusal(const QString &text);
