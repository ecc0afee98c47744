#include "search/ResultsFile.h"

#include "TestPaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

const QDateTime kNow(QDate(2003, 1, 9), QTime(7, 5, 3));

TEST(ResultsFile, HeadLineRuleAndOneLinePerHitInCodePage1252WithCrLf)
{
    const auto text = ResultsFile::text(u"säge"_s,
        { u"12-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"_s, u"12-Backup 2003<>d:\\Setup"_s,
            u"3-Bücher<d:\\Bücher\\liste.txt|-1294967296|01.02.2003"_s },
        kNow);
    ASSERT_TRUE(std::holds_alternative<QByteArray>(text));
    EXPECT_EQ(std::get<QByteArray>(text),
        "Suchergebnisse f\xFCr die Suche nach s\xE4ge Stand: 09.01.2003 07:05:03\r\n"
        "======================\r\n"
        "12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31\r\n"
        "12-Backup 2003 >d:\\Setup\r\n"
        "3-B\374cher d:\\B\374cher\\liste.txt * -1294967296 Byte * Date:01.02.2003\r\n");
}

// Saving replaces an earlier file, and only once the whole text is written.
TEST(ResultsFile, SaveReplacesTheFileOrLeavesItAsItWas)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"ergebnis.txt"_s);
    EXPECT_FALSE(ResultsFile::save(path, u"a"_s, { u"1-A<d:\\a|1|2"_s, u"1-A<>d:\\b"_s }, kNow));
    EXPECT_EQ(fileBytes(path).count("\r\n"), 4);
    EXPECT_FALSE(ResultsFile::save(path, u"a"_s, { u"1-A<d:\\a|1|2"_s }, kNow));
    const QByteArray before = fileBytes(path);
    EXPECT_EQ(before.count("\r\n"), 3);

    const auto badEntry = ResultsFile::save(path, u"*"_s, { u"1-A<"_s }, kNow);
    EXPECT_EQ(badEntry ? badEntry->number : 0, 5);
    EXPECT_EQ(fileBytes(path), before);
    const auto noFolder = ResultsFile::save(dir.filePath(u"fehlt/ergebnis.txt"_s), u"a"_s, {}, kNow);
    EXPECT_EQ(noFolder ? noFolder->number : 0, 75);
}

} // namespace
