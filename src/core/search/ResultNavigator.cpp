#include "ResultNavigator.h"

namespace {

RuntimeFailure subscriptOutOfRange()
{
    return {9, QStringLiteral("Index außerhalb des gültigen Bereichs")};
}

} // namespace

ResultNavigator::ResultNavigator(std::vector<QString> foundCdNumbers)
    : m_numbers(std::move(foundCdNumbers))
{
    showPosition();
    if (count() < 2) {
        m_previousEnabled = false;
        m_nextEnabled = false;
    }
}

QString ResultNavigator::currentNumber() const
{
    return inRange() ? m_numbers[static_cast<size_t>(m_index)] : QString();
}

std::optional<RuntimeFailure> ResultNavigator::next()
{
    ++m_index;
    if (!inRange())
        return subscriptOutOfRange();
    showPosition();
    m_previousEnabled = true;
    if (m_index == count() - 1)
        m_nextEnabled = false;
    return std::nullopt;
}

std::optional<RuntimeFailure> ResultNavigator::previous()
{
    --m_index;
    if (!inRange())
        return subscriptOutOfRange();
    showPosition();
    m_nextEnabled = true;
    if (m_index == 0)
        m_previousEnabled = false;
    return std::nullopt;
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
