#include "records/CoverImage.h"

#include "QStringPrinting.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using coverimage::fitCoverSize;

TEST(CoverImageTest, FittedSizeReachesTheBoxOnOneSide)
{
    struct Case
    {
        const char *name;
        int w, h;
        QSize expected;
    };
    const Case cases[] = {
        { "wideShrinks", 600, 300, { 300, 150 } },
        { "smallGrows", 100, 50, { 300, 150 } },
        { "squareStays", 300, 300, { 300, 300 } },
        { "tall", 300, 600, { 150, 300 } },
        { "tinyGrows", 1, 1, { 300, 300 } },
        { "uneven", 400, 299, { 300, 224 } },
        { "tieGoesToEvenDown", 600, 301, { 300, 150 } }, // 150.5
        { "tieGoesToEvenUp", 600, 303, { 300, 152 } }, // 151.5
        { "tallTie", 301, 600, { 150, 300 } }, // 150.5
        { "emptyPicture", 0, 10, {} },
    };
    for (const Case &c : cases)
        EXPECT_EQ(fitCoverSize(c.w, c.h, 300, 300), c.expected) << c.name;
}

TEST(CoverImageTest, FittedPictureKeepsItsHalvesAndLosesTransparency)
{
    QImage picture(600, 300, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 300; ++x)
            picture.setPixel(x, y, qRgb(255, 0, 0));
    const QImage cover = coverimage::fitCover(picture);
    ASSERT_EQ(cover.size(), QSize(300, 150));
    EXPECT_EQ(cover.pixel(10, 75), qRgb(255, 0, 0));
    EXPECT_EQ(cover.pixel(290, 75), qRgb(255, 255, 255));
}

TEST(CoverImageTest, LoaderReadsTheOfferedFormatsAndRefusesTheRest)
{
    QTemporaryDir dir;
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(qRgb(0, 128, 255));
    for (const char *format : { "BMP", "JPG", "PNG" }) {
        const QString path = dir.filePath(QStringLiteral("bild.") + QString::fromLatin1(format).toLower());
        ASSERT_TRUE(picture.save(path, format)) << format;
        const coverimage::Loaded loaded = coverimage::loadPicture(path);
        EXPECT_TRUE(loaded.error.isEmpty()) << format;
        EXPECT_EQ(loaded.picture.size(), QSize(40, 20)) << format;
    }
    // A one-pixel GIF, written by hand since the toolkit writes none.
    const QByteArray gif
        = QByteArray::fromHex("47494638396101000100800000ff000000000021f90400000000002c00000000"
                              "010001000002024401003b");
    const QString gifPath = dir.filePath(QStringLiteral("punkt.gif"));
    QFile gifFile(gifPath);
    ASSERT_TRUE(gifFile.open(QIODevice::WriteOnly));
    gifFile.write(gif);
    gifFile.close();
    EXPECT_EQ(coverimage::loadPicture(gifPath).picture.size(), QSize(1, 1));

    const QString textPath = dir.filePath(QStringLiteral("brief.jpg"));
    QFile text(textPath);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("Kein Bild, nur Text.");
    text.close();
    for (const QString &path : { textPath, dir.filePath(QStringLiteral("fehlt.bmp")) }) {
        const coverimage::Loaded loaded = coverimage::loadPicture(path);
        EXPECT_EQ(loaded.error, QStringLiteral("Ungültiges Bild!")) << path.toStdString();
        EXPECT_TRUE(loaded.picture.isNull());
    }
}

} // namespace
