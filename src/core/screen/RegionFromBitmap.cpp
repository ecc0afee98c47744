#include "RegionFromBitmap.h"

#include <QImage>

std::vector<QRect> regionFromBitmap(const QImage &picture, QRgb keyColour)
{
    // Compare colour only: a picture with an alpha channel still keys on red, green, blue.
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    const QRgb key = keyColour | 0xFF000000u;
    const int width = rgb.width();
    std::vector<QRect> runs;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(rgb.constScanLine(y));
        int x = 0;
        while (x < width) {
            while (x < width && row[x] == key)
                ++x;
            const int start = x;
            while (x < width && row[x] != key)
                ++x;
            if (x > start)
                runs.emplace_back(start, y, x - start, 1);
        }
    }
    return runs;
}
