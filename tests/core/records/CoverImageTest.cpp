#include "records/CoverImage.h"

#include "QStringPrinting.h"
#include "TestPaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// One side reaches the box; the other is rounded half to even. The picture fills the cover.
TEST(CoverImageTest, FittedSizeReachesTheBoxOnOneSide)
{
    const std::pair<QSize, QSize> cases[]
        = { { { 600, 300 }, { 300, 150 } }, { { 100, 50 }, { 300, 150 } }, { { 300, 600 }, { 150, 300 } },
              { { 600, 301 }, { 300, 150 } }, { { 600, 303 }, { 300, 152 } }, { { 0, 10 }, {} },
              { { 1, 1000 }, { 1, 300 } }, { { 1000, 1 }, { 300, 1 } } }; // a side keeps one pixel
    for (const auto &[picture, fitted] : cases)
        EXPECT_EQ(coverimage::fitCoverSize(picture.width(), picture.height(), 300, 300), fitted)
            << picture.width() << "x" << picture.height();
    QImage picture(100, 50, QImage::Format_RGB32);
    picture.fill(qRgb(255, 0, 0));
    const QImage cover = coverimage::fitCover(picture);
    EXPECT_EQ(std::pair(cover.size(), cover.pixel(150, 75)), std::pair(QSize(300, 150), qRgb(255, 0, 0)));
}

// The GIF is written by hand since the toolkit writes none; BMP and PNG come in through the command line
// tests.
TEST(CoverImageTest, LoaderReadsTheOfferedFormatsAndRefusesTheRest)
{
    QTemporaryDir dir;
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(qRgb(0, 128, 255));
    ASSERT_TRUE(picture.save(dir.filePath(u"bild.jpg"_s), "jpg"));
    const std::pair<const char *, QByteArray> written[] = {
        { "punkt.gif",
            QByteArray::fromHex(
                "47494638396101000100800000ff000000000021f90400000000002c00000000010001000002024401003b") },
        { "brief.jpg", "Kein Bild, nur Text." }
    };
    for (const auto &[name, bytes] : written)
        writeFile(dir.filePath(QString::fromLatin1(name)), bytes);
    const std::pair<const char *, QSize> cases[] = { { "bild.jpg", { 40, 20 } }, { "punkt.gif", { 1, 1 } },
        { "brief.jpg", { 0, 0 } }, { "fehlt.bmp", { 0, 0 } } };
    for (const auto &[name, size] : cases) {
        const coverimage::Loaded loaded = coverimage::loadPicture(dir.filePath(QString::fromLatin1(name)));
        EXPECT_EQ(loaded.picture.size(), size) << name;
        EXPECT_EQ(loaded.error, !size.isEmpty() ? QString() : u"Ungültiges Bild!"_s) << name;
    }
}

} // namespace
