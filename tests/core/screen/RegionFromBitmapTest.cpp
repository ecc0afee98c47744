#include "screen/RegionFromBitmap.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {

const QRgb red = qRgb(255, 0, 0);

// A picture drawn by rows: "r" the key colour, any other character blue.
QImage picture(const std::vector<std::string> &rows)
{
    QImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_RGB888);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, rows[y][x] == 'r' ? red : qRgb(0, 0, 255));
    return image;
}

} // namespace

TEST(RegionFromBitmap, OneRunPerRowAndStretchOfVisiblePixels)
{
    const struct
    {
        const char *why;
        std::vector<std::string> rows;
        std::vector<QRect> runs;
    } cases[] = {
        { "no key colour covers the window", { "bbbbbbb", "bbbbbbb", "bbbbbbb" },
            { QRect(0, 0, 7, 1), QRect(0, 1, 7, 1), QRect(0, 2, 7, 1) } },
        { "all key colour gives nothing", { "rrrrrrrrr", "rrrrrrrrr" }, {} },
        { "runs split at key pixels and end at the right edge", { "rbbrbbb", "bbbrrrr", "rrrrrrr" },
            { QRect(1, 0, 2, 1), QRect(4, 0, 3, 1), QRect(0, 1, 3, 1) } },
        // Widths on and off a multiple of four read alike.
        { "width 8", { "rrrrrrrr", "rrrrrrrb" }, { QRect(7, 1, 1, 1) } },
        { "width 9", { "rrrrrrrrr", "rrrrrrrrb" }, { QRect(8, 1, 1, 1) } },
        { "width 300", { std::string(300, 'r'), std::string(299, 'r') + "b" }, { QRect(299, 1, 1, 1) } },
    };
    for (const auto &c : cases)
        EXPECT_EQ(regionFromBitmap(picture(c.rows), red), c.runs) << c.why;
}

TEST(RegionFromBitmap, NearRedIsNotTheKeyAndAlphaIsIgnored)
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 0)); // key colour, transparent: still key
    image.setPixel(1, 0, qRgb(254, 0, 0)); // one step off: visible
    image.setPixel(2, 0, red);
    EXPECT_EQ(regionFromBitmap(image, red), std::vector<QRect> { QRect(1, 0, 1, 1) });
}
