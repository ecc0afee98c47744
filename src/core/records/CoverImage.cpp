#include "CoverImage.h"

#include "common/Numbers.h"

#include <QImageReader>
#include <QPainter>

#include <algorithm>

namespace coverimage {

QSize fitCoverSize(int32_t w, int32_t h, int32_t maxWidth, int32_t maxHeight)
{
    if (w <= 0 || h <= 0)
        return {};
    const double sx = static_cast<double>(maxWidth) / w;
    const double sy = static_cast<double>(maxHeight) / h;
    const double scale = bankersRound(w * sy) > maxWidth ? sx : sy;
    // A very narrow picture would round to no width at all and be lost: a side keeps a pixel.
    const auto side = [scale](int32_t length) { return std::max(1, static_cast<int>(bankersRound(length * scale))); };
    return { side(w), side(h) };
}

QImage fitCover(const QImage &picture, int32_t maxWidth, int32_t maxHeight)
{
    const QSize size = fitCoverSize(picture.width(), picture.height(), maxWidth, maxHeight);
    if (size.isEmpty())
        return {};
    QImage cover(size, QImage::Format_RGB32);
    cover.fill(Qt::white);
    QPainter painter(&cover);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect(QPoint(0, 0), size), picture);
    return cover;
}

Loaded loadPicture(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    Loaded loaded { reader.read(), {} };
    if (loaded.picture.isNull() || loaded.picture.size().isEmpty())
        loaded = { {}, QStringLiteral("Ungültiges Bild!") };
    return loaded;
}

} // namespace coverimage
