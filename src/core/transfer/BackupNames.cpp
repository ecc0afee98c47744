#include "BackupNames.h"

#include "common/Cp1252.h"

#include <QFile>

#include <algorithm>

namespace backup {

namespace {

// The longest file name the file systems here take, in bytes.
constexpr qsizetype kLongestName = 255;
constexpr qsizetype kLongestShown = 120;

bool isControl(char32_t c)
{
    return QChar::category(c) == QChar::Other_Control;
}

} // namespace

bool isPlainFileName(const QString &leaf)
{
    if (leaf.isEmpty() || leaf == QLatin1String(".") || leaf.contains(QLatin1String(".."))
        || leaf.contains(QLatin1Char('/')) || leaf.contains(QLatin1Char('\\'))
        || QFile::encodeName(leaf).size() > kLongestName)
        return false;
    const QList<uint> characters = leaf.toUcs4();
    return std::none_of(characters.begin(), characters.end(), [](uint c) { return isControl(c); });
}

QString charactersOutsideCodePage(const QString &text)
{
    QString missing;
    for (const uint c : text.toUcs4()) {
        const QString character = QString::fromUcs4(reinterpret_cast<const char32_t *>(&c), 1);
        if (!cp1252::holds(c) && !missing.contains(character))
            missing += character;
    }
    return missing;
}

QString shownName(const QString &name)
{
    QString shown;
    for (const uint c : name.toUcs4()) {
        if (isControl(c))
            shown += QLatin1Char('?');
        else
            shown += QString::fromUcs4(reinterpret_cast<const char32_t *>(&c), 1);
    }
    return shown.size() > kLongestShown ? shown.left(kLongestShown) + QStringLiteral("…") : shown;
}

} // namespace backup
