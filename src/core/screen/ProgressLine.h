#pragma once

#include <QString>

class QFontMetrics;

// The capture's line of progress for a label of the given width: the counts always whole, only
// the folder path shortened in the middle when the line would not fit.
QString captureProgressLine(
    quint32 folders, quint32 files, const QString &path, int width, const QFontMetrics &metrics);
