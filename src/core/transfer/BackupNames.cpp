#include "BackupNames.h"

#include "common/Cp1252.h"

#include <QFile>

namespace backup {

namespace {

// The longest file name the file systems here take, in bytes.
constexpr qsizetype kLongestName = 255;
constexpr qsizetype kLongestShown = 120;

} // namespace

bool isPlainFileName(const QString &leaf)
{
    if (leaf.isEmpty() || leaf == QLatin1String(".") || leaf.contains(QLatin1String(".."))
        || leaf.contains(QLatin1Char('/')) || leaf.contains(QLatin1Char('\\'))
        || QFile::encodeName(leaf).size() > kLongestName)
        return false;
    return !cp1252::holdsControlCharacter(leaf);
}

QString shownName(const QString &name)
{
    QString shown;
    for (const char32_t c : name.toUcs4())
        shown += QChar::category(c) == QChar::Other_Control ? QStringLiteral("?") : QString::fromUcs4(&c, 1);
    return shown.size() > kLongestShown ? shown.left(kLongestShown) + QStringLiteral("…") : shown;
}

} // namespace backup
