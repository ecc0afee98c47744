#pragma once

#include <QString>
#include <QStringList>

#include <map>

// The words of a verb, split into plain words and options. A value option takes the next
// word whatever it looks like; each option may be given more than once.
class CliOptions
{
public:
    CliOptions(
        const QStringList &words, const QStringList &valueOptions, const QStringList &flagOptions = {});

    // False for an unknown option or a value option at the end with no value.
    bool ok() const { return m_ok; }
    const QStringList &plainWords() const { return m_plainWords; }

    bool has(const QString &option) const { return m_values.count(option) > 0; }
    // The value given last.
    QString value(const QString &option) const;
    // Every value, in the order given.
    QStringList values(const QString &option) const;

private:
    bool m_ok = true;
    QStringList m_plainWords;
    std::map<QString, QStringList> m_values;
};
