#include "DataPaths.h"

#include <QDir>
#include <QFileInfo>

namespace datapaths {

QString archiveFolder(const QString &dataFolder)
{
    return dataFolder + QStringLiteral("/archive/");
}

QString archiveFile(const QString &dataFolder, const QString &name)
{
    const QString path = archiveFolder(dataFolder) + name + QStringLiteral(".mdb");
    if (QFileInfo::exists(path))
        return path;
    // An archive copied in from Windows may be called "X.MDB": the extension in any case.
    const QStringList present = QDir(archiveFolder(dataFolder)).entryList({ name + QStringLiteral(".*") }, QDir::Files);
    for (const QString &file : present)
        if (file.size() == name.size() + 4 && file.startsWith(name)
            && file.endsWith(QStringLiteral(".mdb"), Qt::CaseInsensitive))
            return archiveFolder(dataFolder) + file;
    return path;
}

QString imageFolder(const QString &dataFolder)
{
    return dataFolder + QStringLiteral("/lws/");
}

QString imageFile(const QString &dataFolder, int32_t imageId)
{
    return imageFolder(dataFolder) + QString::number(imageId) + QStringLiteral(".dat");
}

QString coverFolder(const QString &dataFolder)
{
    return dataFolder + QStringLiteral("/Covers/");
}

QString coverFile(const QString &dataFolder, const QString &number)
{
    return coverFolder(dataFolder) + number + QStringLiteral(".bmp");
}

} // namespace datapaths
