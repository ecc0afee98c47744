#include "CdSaveRules.h"

#include "common/Numbers.h"

#include <algorithm>

namespace cdsaverules {

namespace {

// What the number box holds, as a value; a message when it is no number the box could hold.
NumberCheck parseNumber(const QString &numberText)
{
    if (numberText.isEmpty())
        return { 0, QStringLiteral("Bitte geben Sie eine CD Nummer ein.") };
    const bool digitsOnly = std::all_of(numberText.begin(), numberText.end(),
        [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
    if (!digitsOnly)
        return { 0, QStringLiteral("Die CD Nummer darf nur die Ziffern 0 bis 9 enthalten.") };
    qsizetype start = 0;
    while (start < numberText.size() - 1 && numberText[start] == QLatin1Char('0'))
        ++start;
    const QString digits = numberText.mid(start);
    const QString limit
        = QStringLiteral("Fehler: Es können maximal 32000 CDs archiviert werden. Bitte verwenden Sie "
                         "eine CD Nummer die in diesem Bereich liegt.");
    if (digits.size() > 5)
        return { 0, limit };
    const int32_t number = digits.toInt();
    if (number > kHighestNumber)
        return { 0, limit };
    return { number, {} };
}

NumberCheck checkNumber(
    const QString &numberText, const QStringList &numberList, const QString *ownNumberText)
{
    NumberCheck check = parseNumber(numberText);
    if (!check.ok())
        return check;
    const QString formatted = formatHash(check.number);
    const bool taken = std::any_of(numberList.begin(), numberList.end(), [&](const QString &element) {
        return element == formatted && (!ownNumberText || element != *ownNumberText);
    });
    if (taken)
        check.message
            = QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie eine "
                             "andere CD Nummer ein, da jede Nummer nur einmal vergeben werden darf!");
    return check;
}

} // namespace

QStringList numberList(const std::vector<CdRow> &rows)
{
    QStringList numbers;
    for (const CdRow &row : rows)
        numbers.append(formatHash(row.number));
    numbers.append(QString());
    return numbers;
}

QString proposeNumber(const QStringList &numberList)
{
    QString proposal = QStringLiteral("001");
    for (qsizetype i = 0; i < numberList.size(); ++i) {
        if (numberList[i] != QString::number(i + 1)) {
            proposal = QStringLiteral("00") + QString::number(i + 1);
            if (i != 0)
                break;
        }
    }
    return proposal;
}

NumberCheck checkNewCdNumber(const QString &numberText, const QStringList &numberList)
{
    return checkNumber(numberText, numberList, nullptr);
}

NumberCheck checkChangeCdNumber(
    const QString &numberText, const QStringList &numberList, const QString &oldNumberText)
{
    return checkNumber(numberText, numberList, &oldNumberText);
}

QString savedMessage()
{
    return QStringLiteral("CD erfolgreich gespeichert!");
}

} // namespace cdsaverules
