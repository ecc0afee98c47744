#include "NumberText.h"

#include <QLocale>

#include <cmath>

std::optional<double> parseNumberText(const QString &text)
{
    QString number = text.trimmed();
    number.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double value = QLocale::c().toDouble(number, &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}
