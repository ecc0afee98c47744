#include "records/CoverImage.h"
#include "records/CoverStore.h"

#include "QStringPrinting.h"
#include "TestPaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QImage picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    return image;
}

// One side reaches the box; the other is rounded half to even. The picture fills the cover.
TEST(CoverImageTest, FittedSizeReachesTheBoxOnOneSide)
{
    const std::pair<QSize, QSize> cases[]
        = { { { 600, 300 }, { 300, 150 } }, { { 100, 50 }, { 300, 150 } }, { { 300, 600 }, { 150, 300 } },
              { { 600, 301 }, { 300, 150 } }, { { 600, 303 }, { 300, 152 } }, { { 0, 10 }, {} },
              { { 1, 1000 }, { 1, 300 } }, { { 1000, 1 }, { 300, 1 } } }; // a side keeps one pixel
    for (const auto &[size, fitted] : cases)
        EXPECT_EQ(coverimage::fitCoverSize(size.width(), size.height(), 300, 300), fitted)
            << size.width() << "x" << size.height();
    const QImage cover = coverimage::fitCover(picture({ 100, 50 }));
    EXPECT_EQ(std::pair(cover.size(), cover.pixel(150, 75)), std::pair(QSize(300, 150), qRgb(10, 20, 30)));
}

// The GIF is written by hand since the toolkit writes none; BMP and PNG come in through the command line
// tests.
TEST(CoverImageTest, LoaderReadsTheOfferedFormatsAndRefusesTheRest)
{
    QTemporaryDir dir;
    ASSERT_TRUE(picture({ 40, 20 }).save(dir.filePath(u"bild.jpg"_s), "jpg"));
    writeFile(dir.filePath(u"punkt.gif"_s),
        QByteArray::fromHex(
            "47494638396101000100800000ff000000000021f90400000000002c00000000010001000002024401003b"));
    writeFile(dir.filePath(u"brief.jpg"_s), "Kein Bild, nur Text.");
    const std::pair<const char *, QSize> cases[] = { { "bild.jpg", { 40, 20 } }, { "punkt.gif", { 1, 1 } },
        { "brief.jpg", { 0, 0 } }, { "fehlt.bmp", { 0, 0 } } };
    for (const auto &[name, size] : cases) {
        const coverimage::Loaded loaded = coverimage::loadPicture(dir.filePath(QString::fromLatin1(name)));
        EXPECT_EQ(loaded.picture.size(), size) << name;
        EXPECT_EQ(loaded.error, !size.isEmpty() ? QString() : u"Ungültiges Bild!"_s) << name;
    }
}

// The number is the draw times 500000 rounded half to even; a taken number is drawn again, so
// nothing is overwritten.
TEST(CoverStoreTest, NumbersAreDrawnUntilOneIsFree)
{
    QTemporaryDir dir;
    const CoverStore store(dir.path(),
        [draws = std::vector { 0.000005, 0.000003, 0.999999999, 0.1, 0.1, 0.5 }, next = size_t(0)]() mutable {
            return draws.at(next++);
        });
    QStringList numbers;
    for (const QSize size : { QSize(10, 10), QSize(20, 10), QSize(300, 150), QSize(150, 300) }) {
        const StoreResult<QString> saved = store.save(picture(size));
        EXPECT_TRUE(saved.ok()) << saved.error.message.toStdString();
        numbers << saved.value;
    }
    EXPECT_EQ(numbers, (QStringList { u"2"_s, u"500000"_s, u"50000"_s, u"250000"_s }));
    EXPECT_EQ(store.fileOf(u"250000"_s), dir.filePath(u"Covers/250000.bmp"_s));
    EXPECT_TRUE(fileBytes(store.fileOf(u"50000"_s)).startsWith("BM"));
    EXPECT_EQ(store.load(u"250000"_s).size(), QSize(150, 300));
    EXPECT_TRUE(store.load(u"123"_s).isNull());
}

} // namespace
