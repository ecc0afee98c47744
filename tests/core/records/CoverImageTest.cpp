#include "records/CoverImage.h"

#include "QStringPrinting.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// One side reaches the box; the other is rounded half to even.
TEST(CoverImageTest, FittedSizeReachesTheBoxOnOneSide)
{
    const std::pair<QSize, QSize> cases[] = { { { 600, 300 }, { 300, 150 } }, { { 100, 50 }, { 300, 150 } },
        { { 300, 300 }, { 300, 300 } }, { { 300, 600 }, { 150, 300 } }, { { 1, 1 }, { 300, 300 } },
        { { 400, 299 }, { 300, 224 } }, { { 600, 301 }, { 300, 150 } }, { { 600, 303 }, { 300, 152 } },
        { { 301, 600 }, { 150, 300 } }, { { 0, 10 }, {} } };
    for (const auto &[picture, fitted] : cases)
        EXPECT_EQ(coverimage::fitCoverSize(picture.width(), picture.height(), 300, 300), fitted)
            << picture.width() << "x" << picture.height();
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
    const auto write = [&dir](const QString &name, const QByteArray &bytes) {
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    };
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(qRgb(0, 128, 255));
    QStringList files;
    for (const char *format : { "BMP", "JPG", "PNG" }) {
        files << dir.filePath(u"bild."_s + QString::fromLatin1(format).toLower());
        ASSERT_TRUE(picture.save(files.back(), format)) << format;
    }
    // A one-pixel GIF, written by hand since the toolkit writes none.
    files << write(u"punkt.gif"_s,
        QByteArray::fromHex(
            "47494638396101000100800000ff000000000021f90400000000002c00000000010001000002024401003b"));
    for (const QString &file : files) {
        const coverimage::Loaded loaded = coverimage::loadPicture(file);
        EXPECT_TRUE(loaded.error.isEmpty()) << file.toStdString();
        EXPECT_EQ(loaded.picture.size(), file.endsWith(u".gif"_s) ? QSize(1, 1) : QSize(40, 20));
    }
    for (const QString &file :
        { write(u"brief.jpg"_s, "Kein Bild, nur Text."), dir.filePath(u"fehlt.bmp"_s) }) {
        const coverimage::Loaded loaded = coverimage::loadPicture(file);
        EXPECT_EQ(loaded.error, u"Ungültiges Bild!"_s) << file.toStdString();
        EXPECT_TRUE(loaded.picture.isNull());
    }
}

} // namespace
