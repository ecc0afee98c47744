#include "records/CoverStore.h"

#include "QStringPrinting.h"
#include "TestPaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// Hands out the given values in turn, as the random source of a cover store.
CoverStore::RandomSource sequence(std::vector<double> values)
{
    return [values, next = size_t(0)]() mutable { return values.at(next++); };
}

QImage picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    return image;
}

// The number is the draw times 500000 rounded half to even; a taken number is drawn again, so
// nothing is overwritten.
TEST(CoverStoreTest, NumbersAreDrawnUntilOneIsFree)
{
    QTemporaryDir dir;
    const CoverStore store(dir.path(), sequence({ 0.000005, 0.000003, 0.999999999, 0.1, 0.1, 0.5 }));
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
