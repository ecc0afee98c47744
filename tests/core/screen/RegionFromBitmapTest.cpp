#include "screen/RegionFromBitmap.h"

#include <QImage>

#include <gtest/gtest.h>

TEST(RegionFromBitmap, OneRunPerRowAndStretchOfVisiblePixels)
{
    // A picture drawn by rows: "r" the key colour, "t" the key colour transparent (still key),
    // "n" one step off the key (visible), any other character blue. Widths on and off a
    // multiple of four read alike.
    const QRgb red = qRgb(255, 0, 0),
               colours[] = { red, qRgba(255, 0, 0, 0), qRgb(254, 0, 0), qRgb(0, 0, 255) };
    const std::pair<std::vector<std::string>, std::vector<QRect>> cases[] = {
        { { "bbb", "bbb" }, { QRect(0, 0, 3, 1), QRect(0, 1, 3, 1) } },
        { { "rrrrrrrrr", "rrrrrrrrr" }, {} },
        { { "rbbrbbb", "bbbrrrr", "rrrrrrr" }, { QRect(1, 0, 2, 1), QRect(4, 0, 3, 1), QRect(0, 1, 3, 1) } },
        { { "tnr" }, { QRect(1, 0, 1, 1) } },
        { { std::string(300, 'r'), std::string(299, 'r') + "b" }, { QRect(299, 1, 1, 1) } },
    };
    for (const auto &[rows, runs] : cases) {
        QImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, colours[std::min<size_t>(std::string_view("rtn").find(rows[y][x]), 3)]);
        EXPECT_EQ(regionFromBitmap(image, red), runs) << rows[0];
    }
}
