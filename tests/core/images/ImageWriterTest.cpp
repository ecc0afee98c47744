#include "images/ImageWriter.h"

#include "TestPaths.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace {

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
    return fileBytes(target);
}

constexpr int64_t kMorning = 1047462067; // 12.03.2003 09:41:07 UTC
constexpr int64_t kMidnight = 1044057600; // 01.02.2003 00:00:00 UTC

} // namespace

TEST(ImageWriter, LinesWrapTheSizeDropTheTimeAtMidnightAndRewriteLineBreaks)
{
    // Sizes are the signed low 32 bits; dates are UTC; a zero file time is 01.01.1601; a path
    // ending in a backslash gets no second one.
    const std::tuple<const char *, int64_t, int64_t, const char *> cases[] = {
        { "f:", 2147483647, kMorning, "f:\\x|2147483647|12.03.2003 09:41:07" },
        { "f:", 3000000000LL, kMorning, "f:\\x|-1294967296|12.03.2003 09:41:07" },
        { "f:", 4294967296LL + 17, kMorning, "f:\\x|17|12.03.2003 09:41:07" },
        { "f:", 17, kMidnight, "f:\\x|17|01.02.2003" },
        { "f:", 17, kMidnight - 1, "f:\\x|17|31.01.2003 23:59:59" },
        { "f:", 0, -11644473600LL, "f:\\x|0|01.01.1601" },
        { "f:\\S\\", 0, 0, "f:\\S\\x|0|01.01.1970" },
    };
    for (const auto &[folder, size, mtime, line] : cases)
        EXPECT_EQ(written([&](ImageWriter &w) { w.fileLine(folder, "x", size, mtime); }),
            QByteArray(line) + "\r\n\r\n");
    // A "|" or a control character in any name becomes "?": no name can end its line or
    // inject another (the ZIP entry "a\r\n>d:\r\nb.txt" would hide the rest of the tree), move
    // the size field, or reach a terminal raw. Other characters of the code page stay.
    const std::pair<const char *, const char *> names[] = { { "a\rb", "a?b" }, { "a\nb", "a?b" },
        { "a\r\n>d:\r\nb.txt", "a?\?>d:?\?b.txt" }, { "back\r", "back?" }, { "a|b|c.txt", "a?b?c.txt" },
        { "esc\x1b[2J.txt", "esc?[2J.txt" }, { "tab\t.txt", "tab?.txt" }, { "del\x7f.txt", "del?.txt" },
        { "\x01\x1f~ \xA0\xFF", "??~ \xA0\xFF" } };
    for (const auto &[name, kept] : names) {
        EXPECT_EQ(written([&](ImageWriter &w) { w.entryLine("d:", "a.zip", name, "4", "03.02.2001"); }),
            QByteArray("d:\\a.zip\\") + kept + "|4|03.02.2001\r\n\r\n")
            << name;
        EXPECT_EQ(written([&](ImageWriter &w) { w.folderLine(std::string("d:\\") + name, name); }),
            QByteArray(">d:\\") + kept + "\\" + kept + "\r\n\r\n")
            << name;
    }
}

TEST(ImageWriter, TakesBackOnlyLinesThatAreNotFinal)
{
    // Enough lines to pass through the file several times while two lines stay open.
    QByteArray expected = ">d:\r\n";
    const QByteArray image = written([&](ImageWriter &w) {
        w.rootLine("d:");
        for (int i = 0; i < 60000; ++i) {
            const std::string name = "ordner" + std::to_string(i);
            w.folderLine("d:", name);
            w.folderLine("d:\\" + name, "leer");
            w.settle(2);
            if (i % 2 == 1)
                expected += QByteArray::fromStdString(">d:\\" + name + "\r\n>d:\\" + name + "\\leer\r\n");
            for (int drop = i % 2 == 0 ? 2 : 0; drop > 0; --drop)
                w.dropLastLine();
            w.settle(0);
        }
    });
    EXPECT_TRUE(image == expected + "\r\n");
}
