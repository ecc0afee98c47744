#include "images/ImageWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// Runs `lines` on a writer for <dir>/1.dat, finishes and commits, and gives the file.
QByteArray written(const std::function<void(ImageWriter &)> &lines)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("1.dat"));
    ImageWriter writer(QFile::encodeName(target).toStdString());
    EXPECT_TRUE(writer.open());
    lines(writer);
    EXPECT_TRUE(writer.finish());
    EXPECT_TRUE(writer.commit());
    return readAll(target);
}

// 2003-03-12 09:41:07 UTC and 2003-02-01 00:00:00 UTC.
constexpr int64_t kMorning = 1047462067;
constexpr int64_t kMidnight = 1044057600;

} // namespace

TEST(ImageWriter, WritesEachLineKindInItsGrammar)
{
    const QByteArray image = written([](ImageWriter &w) {
        w.rootLine("d:");
        w.fileLine("d:", "liesmich.txt", 1834, kMorning);
        w.folderLine("d:", "Bilder");
        w.folderLine("d:\\Bilder", "alt.zip");
        w.entryLine("d:\\Bilder", "alt.zip", "2001/haus.jpg", "120455", "04.11.2001");
        w.entryLine("d:\\Bilder", "alt.zip", "", "", "");
    });
    EXPECT_EQ(image,
        QByteArray(">d:\r\n"
                   "d:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n"
                   ">d:\\Bilder\r\n"
                   ">d:\\Bilder\\alt.zip\r\n"
                   "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\n"
                   "d:\\Bilder\\alt.zip\\||\r\n"
                   "\r\n"));
}

TEST(ImageWriter, AnEmptyVolumeHasTheRootAndTheEndLine)
{
    EXPECT_EQ(written([](ImageWriter &w) { w.rootLine("e:"); }), QByteArray(">e:\r\n\r\n"));
}

TEST(ImageWriter, SizesAreTheSignedLowThirtyTwoBits)
{
    const struct
    {
        int64_t size;
        const char *text;
    } cases[] = {
        { 0, "0" },
        { 2147483647, "2147483647" },
        { 2147483648LL, "-2147483648" },
        { 3000000000LL, "-1294967296" },
        { 4294967296LL, "0" },
        { 4294967296LL + 17, "17" },
    };
    for (const auto &c : cases) {
        const QByteArray image
            = written([&](ImageWriter &w) { w.fileLine("f:", "film.avi", c.size, kMorning); });
        EXPECT_EQ(image, QByteArray("f:\\film.avi|") + c.text + "|12.03.2003 09:41:07\r\n\r\n") << c.size;
    }
}

TEST(ImageWriter, DatesAreUtcAndMidnightDropsTheTime)
{
    const struct
    {
        int64_t mtime;
        const char *text;
    } cases[] = {
        { kMidnight, "01.02.2003" }, { kMidnight + 1, "01.02.2003 00:00:01" },
        { kMidnight - 1, "31.01.2003 23:59:59" }, { -11644473600LL, "01.01.1601" }, // a zero file time
    };
    for (const auto &c : cases) {
        const QByteArray image = written([&](ImageWriter &w) { w.fileLine("f:", "alt.txt", 17, c.mtime); });
        EXPECT_EQ(image, QByteArray("f:\\alt.txt|17|") + c.text + "\r\n\r\n") << c.mtime;
    }
}

TEST(ImageWriter, APathEndingInABackslashGetsNoSecondOne)
{
    const QByteArray image
        = written([](ImageWriter &w) { w.fileLine("f:\\System Volume Information\\", "", 0, 0); });
    EXPECT_EQ(image, QByteArray("f:\\System Volume Information\\|0|01.01.1970\r\n\r\n"));
}

TEST(ImageWriter, LineBreaksInsideNamesAreRewritten)
{
    const struct
    {
        const char *name;
        const char *lines;
    } cases[] = {
        { "line1\rline2.txt", "d:\\a.zip\\line1line2.txt|4|03.02.2001\r\n" },
        { "line1\nline2.txt", "d:\\a.zip\\line1line2.txt|4|03.02.2001\r\n" },
        { "line1\r\nline2.txt", "d:\\a.zip\\line1\r\nline2.txt|4|03.02.2001\r\n" },
        { "a\r\r\nb", "d:\\a.zip\\a\r\nb|4|03.02.2001\r\n" },
        { "a\r\n\nb", "d:\\a.zip\\a\r\nb|4|03.02.2001\r\n" },
        { "\nfront", "d:\\a.zip\\front|4|03.02.2001\r\n" },
        { "back\r", "d:\\a.zip\\back|4|03.02.2001\r\n" },
    };
    for (const auto &c : cases) {
        const QByteArray image = written([&](ImageWriter &w) {
            w.rootLine("d:");
            w.entryLine("d:", "a.zip", c.name, "4", "03.02.2001");
        });
        EXPECT_EQ(image, QByteArray(">d:\r\n") + c.lines + "\r\n") << c.name;
    }
}

TEST(ImageWriter, TakesBackOnlyLinesThatAreNotFinal)
{
    // Enough lines to pass through the file several times while two lines stay open.
    const QByteArray image = written([](ImageWriter &w) {
        w.rootLine("d:");
        for (int i = 0; i < 60000; ++i) {
            const std::string name = "ordner" + std::to_string(i);
            w.folderLine("d:", name);
            w.folderLine("d:\\" + name, "leer");
            w.settle(2);
            if (i % 2 == 0) {
                w.dropLastLine();
                w.dropLastLine();
            }
            w.settle(0);
        }
    });
    QByteArray expected = ">d:\r\n";
    for (int i = 1; i < 60000; i += 2) {
        const QByteArray name = "ordner" + QByteArray::number(i);
        expected += ">d:\\" + name + "\r\n>d:\\" + name + "\\leer\r\n";
    }
    expected += "\r\n";
    EXPECT_EQ(image.size(), expected.size());
    EXPECT_TRUE(image == expected);
}

TEST(ImageWriter, AnUncommittedImageLeavesTheOldOneAndNoTemporaryFile)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("7.dat"));
    QFile old(target);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(">d:\r\n\r\n");
    old.close();
    {
        ImageWriter writer(QFile::encodeName(target).toStdString());
        ASSERT_TRUE(writer.open());
        writer.rootLine("x:");
        EXPECT_TRUE(writer.finish());
    }
    EXPECT_EQ(readAll(target), QByteArray(">d:\r\n\r\n"));
    EXPECT_EQ(
        QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList { QStringLiteral("7.dat") });
}

TEST(ImageWriter, ACommittedImageReplacesTheOldOne)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("-1408263712.dat"));
    QFile old(target);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old content that is longer than the new image\r\n");
    old.close();
    ImageWriter writer(QFile::encodeName(target).toStdString());
    ASSERT_TRUE(writer.open());
    writer.rootLine("e:");
    ASSERT_TRUE(writer.finish());
    ASSERT_TRUE(writer.commit());
    EXPECT_EQ(readAll(target), QByteArray(">e:\r\n\r\n"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST(ImageWriter, AMissingFolderIsAnErrorNotACrash)
{
    ImageWriter writer("/nonexistent-folder-for-images/1.dat");
    EXPECT_FALSE(writer.open());
    EXPECT_EQ(writer.error(), ENOENT);
}
