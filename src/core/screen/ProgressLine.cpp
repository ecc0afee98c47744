#include "ProgressLine.h"

#include <QFontMetrics>

#include <algorithm>

QString captureProgressLine(
    quint32 folders, quint32 files, const QString &path, int width, const QFontMetrics &metrics)
{
    const QString counts = QStringLiteral("Ordner: %1   Dateien: %2   ").arg(folders).arg(files);
    const int room = std::max(width - metrics.horizontalAdvance(counts), 0);
    return counts + metrics.elidedText(path, Qt::ElideMiddle, room);
}
