#include "DataPaths.h"

namespace datapaths {

QString archiveFolder(const QString &dataFolder)
{
    return dataFolder + QStringLiteral("/archive/");
}

QString archiveFile(const QString &dataFolder, const QString &name)
{
    return archiveFolder(dataFolder) + name + QStringLiteral(".mdb");
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
