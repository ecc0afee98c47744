#include "TestPaths.h"

#include <QDir>

QString fixturePath(const QString &relative)
{
    const QString root = qEnvironmentVariable("SILBERBUCH_FIXTURES");
    return QDir(root).filePath(relative);
}
