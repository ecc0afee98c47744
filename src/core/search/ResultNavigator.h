#pragma once

#include "RuntimeFailure.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// The navigator over the CDs that a comment search found: which one is on display, the texts
// of its labels and which of its buttons "<" and ">" are enabled. The window selects the CD of
// currentNumber() in the CD list after each step that succeeded.
class ResultNavigator
{
public:
    // Opens at the first found CD. With fewer than two CDs both buttons are disabled; with two
    // or more both stay enabled, "<" included.
    explicit ResultNavigator(std::vector<QString> foundCdNumbers);

    int count() const { return static_cast<int>(m_numbers.size()); }
    int index() const { return m_index; }
    bool previousEnabled() const { return m_previousEnabled; }
    bool nextEnabled() const { return m_nextEnabled; }
    QString countText() const { return QString::number(count()); } // "Übereinstimmungen"
    QString positionText() const { return m_positionText; }           // "2 / 5"

    // The number of the CD on display; empty when the index has left the found CDs.
    QString currentNumber() const;

    // One found CD: the window shows it, then gives way to searchmessages::oneCdFound().
    bool givesWayToMessage() const { return count() == 1; }

    // ">" and "<". The index moves first; when it has left the found CDs the step fails, and
    // labels and buttons stay as they were (so "<" pressed at the first CD fails).
    std::optional<RuntimeFailure> next();
    std::optional<RuntimeFailure> previous();

    // The entry of the CD list that shows `number`: the first whose text up to its first blank
    // equals it, or -1 when there is none (then nothing is selected, without a message).
    static int listEntryOf(const QStringList &entries, const QString &number);

private:
    bool inRange() const { return m_index >= 0 && m_index < count(); }
    void showPosition();

    std::vector<QString> m_numbers;
    int m_index = 0;
    bool m_previousEnabled = true;
    bool m_nextEnabled = true;
    QString m_positionText;
};
