#include "SearchDataFolder.h"

#include "app/DataPaths.h"

#include <QDir>
#include <QFile>

SearchDataFolder::SearchDataFolder()
{
    QDir().mkpath(datapaths::imageFolder(path()));
    QDir().mkpath(datapaths::archiveFolder(path()));
}

QString SearchDataFolder::imagePath(int32_t imageId) const
{
    return datapaths::imageFile(path(), imageId);
}

void SearchDataFolder::writeImage(int32_t imageId, const std::vector<std::string> &lines) const
{
    std::string bytes;
    for (const std::string &line : lines)
        bytes += line + "\r\n";
    writeRawImage(imageId, bytes + "\r\n");
}

void SearchDataFolder::writeRawImage(int32_t imageId, const std::string &bytes) const
{
    QFile file(imagePath(imageId));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write a test image");
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}
