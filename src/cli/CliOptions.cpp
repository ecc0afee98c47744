#include "CliOptions.h"

CliOptions::CliOptions(
    const QStringList &words, const QStringList &valueOptions, const QStringList &flagOptions)
{
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString &word = words[i];
        if (!word.startsWith(QLatin1String("--"))) {
            m_plainWords.append(word);
        } else if (flagOptions.contains(word)) {
            m_values[word];
        } else if (valueOptions.contains(word) && i + 1 < words.size()) {
            m_values[word].append(words[++i]);
        } else {
            m_ok = false;
        }
    }
}

QString CliOptions::value(const QString &option) const
{
    const QStringList given = values(option);
    return given.isEmpty() ? QString() : given.last();
}

QStringList CliOptions::values(const QString &option) const
{
    const auto found = m_values.find(option);
    return found == m_values.end() ? QStringList() : found->second;
}
