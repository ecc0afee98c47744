#include "TypedFontSize.h"

#include "app/NumberText.h"

std::optional<QString> typedFontSizeRefusal(const QString &text)
{
    const std::optional<double> size = parseNumberText(text);
    if (size && *size >= smallestTypedFontSize && *size <= largestTypedFontSize)
        return std::nullopt;
    return QStringLiteral("Bitte geben Sie als Schriftgröße eine Zahl von %1 bis %2 ein.")
        .arg(smallestTypedFontSize)
        .arg(largestTypedFontSize);
}
