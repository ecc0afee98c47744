#include "ResultNavigator.h"

ResultNavigator::ResultNavigator(std::vector<QString> foundCdNumbers)
    : m_numbers(std::move(foundCdNumbers))
{
    showPosition();
    // Nothing lies before the first CD, so "<" starts disabled; ">" needs a second CD.
    m_previousEnabled = false;
    m_nextEnabled = count() > 1;
}

QString ResultNavigator::currentNumber() const
{
    return inRange() ? m_numbers[static_cast<size_t>(m_index)] : QString();
}

void ResultNavigator::next()
{
    if (m_index + 1 >= count())
        return;
    ++m_index;
    showPosition();
    m_previousEnabled = true;
    if (m_index == count() - 1)
        m_nextEnabled = false;
}

void ResultNavigator::previous()
{
    if (m_index == 0)
        return;
    --m_index;
    showPosition();
    m_nextEnabled = true;
    if (m_index == 0)
        m_previousEnabled = false;
}

void ResultNavigator::showPosition()
{
    m_positionText = QString::number(m_index + 1) + QStringLiteral(" / ") + countText();
}

int ResultNavigator::listEntryOf(const QStringList &entries, const QString &number)
{
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QString &entry = entries[i];
        const qsizetype blank = entry.indexOf(QLatin1Char(' '));
        if ((blank < 0 ? entry : entry.left(blank)) == number)
            return static_cast<int>(i);
    }
    return -1;
}
