#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// The navigator over the CDs that a comment search found: which one is on display, the texts
// of its labels and which of its buttons "<" and ">" are enabled. The window selects the CD of
// currentNumber() in the CD list after each step that succeeded.
class ResultNavigator
{
public:
    // Opens at the first found CD: "<" disabled, ">" enabled when there is a second CD.
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

    // ">" and "<". At the last and the first CD, where their buttons are disabled, they do
    // nothing.
    void next();
    void previous();

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
