#include "TruthValue.h"

#include "NumberText.h"

std::optional<bool> parseTruthValue(const QString &text)
{
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0
        || word.compare(QLatin1String("Wahr"), Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0
        || word.compare(QLatin1String("Falsch"), Qt::CaseInsensitive) == 0)
        return false;
    const std::optional<double> number = parseNumberText(word);
    if (!number)
        return std::nullopt;
    return *number != 0.0;
}
