#include "screen/RegionFromBitmap.h"

#include <QImage>
#include <QRegion>

#include <gtest/gtest.h>

namespace {

const QRgb red = qRgb(255, 0, 0);
const QRgb blue = qRgb(0, 0, 255);

QImage picture(int width, int height, QRgb fill)
{
    QImage image(width, height, QImage::Format_RGB888);
    image.fill(fill);
    return image;
}

QRegion unite(const std::vector<QRect> &runs)
{
    QRegion region;
    for (const QRect &run : runs)
        region += run;
    return region;
}

} // namespace

TEST(RegionFromBitmap, PictureWithoutKeyColourGivesOneRunPerRowCoveringTheWindow)
{
    const auto runs = regionFromBitmap(picture(7, 5, blue), red);
    ASSERT_EQ(runs.size(), 5u);
    for (int y = 0; y < 5; ++y)
        EXPECT_EQ(runs[y], QRect(0, y, 7, 1));
    EXPECT_EQ(unite(runs), QRegion(0, 0, 7, 5));
}

TEST(RegionFromBitmap, PictureAllInKeyColourGivesAnEmptyRegion)
{
    EXPECT_TRUE(regionFromBitmap(picture(9, 4, red), red).empty());
}

TEST(RegionFromBitmap, RunsSplitAtKeyPixelsAndEndAtTheRightEdge)
{
    // Row 0: key, 2 visible, key, 3 visible up to the edge. Row 1: visible then key to the
    // edge. Row 2: all key.
    QImage image = picture(7, 3, red);
    for (int x : { 1, 2, 4, 5, 6 })
        image.setPixel(x, 0, blue);
    for (int x : { 0, 1, 2 })
        image.setPixel(x, 1, blue);
    const auto runs = regionFromBitmap(image, red);
    const std::vector<QRect> expected = { QRect(1, 0, 2, 1), QRect(4, 0, 3, 1), QRect(0, 1, 3, 1) };
    EXPECT_EQ(runs, expected);
}

TEST(RegionFromBitmap, WidthsOnAndOffAMultipleOfFourReadAlike)
{
    for (int width : { 8, 9, 300 }) {
        QImage image = picture(width, 2, red);
        image.setPixel(width - 1, 1, blue);
        const auto runs = regionFromBitmap(image, red);
        ASSERT_EQ(runs.size(), 1u) << width;
        EXPECT_EQ(runs[0], QRect(width - 1, 1, 1, 1)) << width;
    }
}

TEST(RegionFromBitmap, NearRedIsNotTheKeyAndAlphaIsIgnored)
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 0)); // key colour, transparent: still key
    image.setPixel(1, 0, qRgb(254, 0, 0)); // one step off: visible
    image.setPixel(2, 0, qRgb(255, 0, 0));
    const auto runs = regionFromBitmap(image, red);
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0], QRect(1, 0, 1, 1));
}
