#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>

// A cover as the catalogue keeps it: the chosen picture scaled, up or down, until one side
// reaches the box and the other fits inside it.
namespace coverimage {

constexpr int32_t kBoxSide = 300;

// The size of a w x h picture fitted into W x H, proportions kept. Empty for an empty picture.
QSize fitCoverSize(int32_t w, int32_t h, int32_t maxWidth, int32_t maxHeight);

// The picture drawn at its fitted size on white, ready to be stored as a bitmap.
QImage fitCover(const QImage &picture, int32_t maxWidth = kBoxSide, int32_t maxHeight = kBoxSide);

struct Loaded
{
    QImage picture;
    QString error; // "Ungültiges Bild!" when the file is no picture the loader reads
};
Loaded loadPicture(const QString &path);

} // namespace coverimage
