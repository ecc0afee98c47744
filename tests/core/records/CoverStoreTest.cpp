#include "records/CoverStore.h"

#include "QStringPrinting.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>

namespace {

using namespace Qt::StringLiterals;

// Hands out the given values in turn, as the random source of a cover store.
CoverStore::RandomSource sequence(std::deque<double> values)
{
    return [values]() mutable {
        const double next = values.front();
        values.pop_front();
        return next;
    };
}

QImage picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    return image;
}

TEST(CoverStoreTest, NumberIsTheDrawTimesFiveHundredThousandRoundedToEven)
{
    const std::pair<double, const char *> cases[]
        = { { 0.1, "50000" }, { 0.000003, "2" }, { 0.000005, "2" }, { 0.999999999, "500000" } };
    for (const auto &[draw, number] : cases) {
        QTemporaryDir dir;
        const StoreResult<QString> saved
            = CoverStore(dir.path(), sequence({ draw })).save(picture({ 300, 150 }));
        EXPECT_TRUE(saved.ok()) << draw;
        EXPECT_EQ(saved.value, QString::fromLatin1(number)) << draw;
    }
}

TEST(CoverStoreTest, TakenNumbersAreDrawnAgainAndNothingIsOverwritten)
{
    QTemporaryDir dir;
    const CoverStore store(dir.path(), sequence({ 0.1, 0.1, 0.1, 0.5 }));
    const StoreResult<QString> first = store.save(picture({ 300, 150 }));
    const StoreResult<QString> second = store.save(picture({ 150, 300 }));
    EXPECT_EQ(first.value, u"50000"_s);
    EXPECT_EQ(second.value, u"250000"_s);
    EXPECT_EQ(store.fileOf(second.value), dir.filePath(u"Covers/250000.bmp"_s));
    QFile file(store.fileOf(first.value));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(2), QByteArray("BM"));
    EXPECT_EQ(store.load(first.value).size(), QSize(300, 150));
    EXPECT_EQ(store.load(second.value).size(), QSize(150, 300));
    EXPECT_TRUE(store.load(u"123"_s).isNull());
}

TEST(CoverStoreTest, UnwritableFolderIsAGermanError)
{
    QTemporaryDir dir;
    QFile blocker(dir.filePath(u"Covers"_s));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly)); // a file where the folder should be
    const StoreResult<QString> saved = CoverStore(dir.path(), sequence({ 0.2 })).save(picture({ 10, 10 }));
    EXPECT_EQ(saved.error.kind, ArchiveError::Kind::FileError);
    EXPECT_TRUE(saved.error.message.contains(u"kann nicht angelegt werden"_s))
        << saved.error.message.toStdString();
}

} // namespace
