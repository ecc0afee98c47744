#include "records/CoverStore.h"

#include "QStringPrinting.h"
#include "app/DataPaths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>

namespace {

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

TEST(CoverStoreTest, NumberIsTheRoundedDrawTimesFiveHundredThousand)
{
    struct Case
    {
        const char *name;
        double draw;
        const char *number;
    };
    const Case cases[] = {
        { "tenth", 0.1, "50000" },
        { "halfDown", 0.000001, "0" },
        { "halfUp", 0.000003, "2" },
        { "halfEven", 0.000005, "2" },
        { "nearOne", 0.999999999, "500000" },
    };
    for (const Case &c : cases) {
        QTemporaryDir dir;
        const CoverStore store(dir.path(), sequence({ c.draw }));
        const StoreResult<QString> saved = store.save(picture({ 300, 150 }));
        ASSERT_TRUE(saved.ok()) << c.name;
        EXPECT_EQ(saved.value, QString::fromLatin1(c.number)) << c.name;
    }
}

TEST(CoverStoreTest, TakenNumbersAreDrawnAgainAndNothingIsOverwritten)
{
    QTemporaryDir dir;
    const CoverStore store(dir.path(), sequence({ 0.1, 0.1, 0.1, 0.5 }));
    ASSERT_FALSE(QDir(datapaths::coverFolder(dir.path())).exists());
    const StoreResult<QString> first = store.save(picture({ 300, 150 }));
    const StoreResult<QString> second = store.save(picture({ 150, 300 }));
    ASSERT_TRUE(first.ok() && second.ok());
    EXPECT_EQ(first.value, QStringLiteral("50000"));
    EXPECT_EQ(second.value, QStringLiteral("250000"));
    EXPECT_EQ(store.fileOf(second.value), dir.filePath(QStringLiteral("Covers/250000.bmp")));

    QFile file(store.fileOf(first.value));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(2), QByteArray("BM"));
    EXPECT_EQ(store.load(first.value).size(), QSize(300, 150));
    EXPECT_EQ(store.load(second.value).size(), QSize(150, 300));
}

TEST(CoverStoreTest, MissingCoverLoadsAsNoPicture)
{
    QTemporaryDir dir;
    EXPECT_TRUE(CoverStore(dir.path()).load(QStringLiteral("123")).isNull());
}

TEST(CoverStoreTest, UnwritableFolderIsAGermanError)
{
    QTemporaryDir dir;
    QFile blocker(dir.filePath(QStringLiteral("Covers")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly)); // a file where the folder should be
    blocker.close();
    const StoreResult<QString> saved = CoverStore(dir.path(), sequence({ 0.2 })).save(picture({ 10, 10 }));
    EXPECT_EQ(saved.error.kind, ArchiveError::Kind::FileError);
    EXPECT_TRUE(saved.error.message.contains(QStringLiteral("kann nicht angelegt werden")))
        << saved.error.message.toStdString();
}

} // namespace
