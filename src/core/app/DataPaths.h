#pragma once

#include <QString>

#include <cstdint>

// Paths below the data folder, built afresh on each use. One spelling of each folder:
// "archive", "lws", "Covers".
namespace datapaths {

QString archiveFolder(const QString &dataFolder);                     // <data>/archive/
QString archiveFile(const QString &dataFolder, const QString &name);  // <data>/archive/<name>.mdb, ".MDB" too
QString imageFolder(const QString &dataFolder);                       // <data>/lws/
QString imageFile(const QString &dataFolder, int32_t imageId);        // <data>/lws/<id>.dat
QString coverFolder(const QString &dataFolder);                       // <data>/Covers/
QString coverFile(const QString &dataFolder, const QString &number);  // <data>/Covers/<n>.bmp

} // namespace datapaths
