#include "images/ImageWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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

constexpr int64_t kMorning = 1047462067; // 12.03.2003 09:41:07 UTC
constexpr int64_t kMidnight = 1044057600; // 01.02.2003 00:00:00 UTC

} // namespace

TEST(ImageWriter, FileLinesWrapTheSizeAndDropTheTimeAtMidnight)
{
    const struct
    {
        const char *folder;
        int64_t size, mtime;
        const char *line;
    } cases[] = {
        // Sizes are the signed low 32 bits.
        { "f:", 0, kMorning, "f:\\x|0|12.03.2003 09:41:07" },
        { "f:", 2147483647, kMorning, "f:\\x|2147483647|12.03.2003 09:41:07" },
        { "f:", 2147483648LL, kMorning, "f:\\x|-2147483648|12.03.2003 09:41:07" },
        { "f:", 3000000000LL, kMorning, "f:\\x|-1294967296|12.03.2003 09:41:07" },
        { "f:", 4294967296LL + 17, kMorning, "f:\\x|17|12.03.2003 09:41:07" },
        // Dates are UTC.
        { "f:", 17, kMidnight, "f:\\x|17|01.02.2003" },
        { "f:", 17, kMidnight + 1, "f:\\x|17|01.02.2003 00:00:01" },
        { "f:", 17, kMidnight - 1, "f:\\x|17|31.01.2003 23:59:59" },
        { "f:", 0, -11644473600LL, "f:\\x|0|01.01.1601" }, // a zero file time
        // A path ending in a backslash gets no second one.
        { "f:\\System Volume Information\\", 0, 0, "f:\\System Volume Information\\x|0|01.01.1970" },
    };
    for (const auto &c : cases) {
        const QByteArray image = written([&](ImageWriter &w) { w.fileLine(c.folder, "x", c.size, c.mtime); });
        EXPECT_EQ(image, QByteArray(c.line) + "\r\n\r\n") << c.line;
    }
}

TEST(ImageWriter, LineBreaksInsideNamesAreRewritten)
{
    // A lone CR or LF goes; a CR LF pair stays and splits the line.
    const std::pair<const char *, const char *> cases[] = { { "line1\rline2.txt", "line1line2.txt" },
        { "line1\nline2.txt", "line1line2.txt" }, { "line1\r\nline2.txt", "line1\r\nline2.txt" },
        { "a\r\r\nb", "a\r\nb" }, { "a\r\n\nb", "a\r\nb" }, { "\nfront", "front" }, { "back\r", "back" } };
    for (const auto &[name, kept] : cases) {
        const QByteArray image
            = written([&](ImageWriter &w) { w.entryLine("d:", "a.zip", name, "4", "03.02.2001"); });
        EXPECT_EQ(image, QByteArray("d:\\a.zip\\") + kept + "|4|03.02.2001\r\n\r\n") << name;
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

TEST(ImageWriter, ReplacesTheOldImageOnlyOnCommitAndLeavesNoTemporaryFile)
{
    for (const bool commit : { false, true }) {
        QTemporaryDir dir;
        const QString target = dir.filePath(QStringLiteral("-1408263712.dat"));
        QFile old(target);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("old content that is longer than the new image\r\n");
        old.close();
        {
            ImageWriter writer(QFile::encodeName(target).toStdString());
            ASSERT_TRUE(writer.open());
            writer.rootLine("e:");
            ASSERT_TRUE(writer.finish());
            if (commit) {
                ASSERT_TRUE(writer.commit());
            }
        }
        EXPECT_EQ(readAll(target),
            commit ? QByteArray(">e:\r\n\r\n")
                   : QByteArray("old content that is longer than the new image\r\n"));
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
            QStringList { QFileInfo(target).fileName() });
    }
    ImageWriter writer("/nonexistent-folder-for-images/1.dat");
    EXPECT_FALSE(writer.open());
    EXPECT_EQ(writer.error(), ENOENT);
}
