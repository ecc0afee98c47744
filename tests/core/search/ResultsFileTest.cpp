#include "search/ResultsFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QDateTime kNow(QDate(2003, 1, 9), QTime(7, 5, 3));

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

TEST(ResultsFile, HeadLineRuleAndOneLinePerHitInCodePage1252WithCrLf)
{
    const std::vector<QString> hits = {
        QStringLiteral("12-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"),
        QStringLiteral("12-Backup 2003<>d:\\Setup"),
        QStringLiteral("3-Bücher<d:\\Bücher\\liste.txt|-1294967296|01.02.2003"),
    };
    const auto text = ResultsFile::text(QStringLiteral("säge"), hits, kNow);
    ASSERT_TRUE(std::holds_alternative<QByteArray>(text));
    const QByteArray expected = "Suchergebnisse f\xFCr die Suche nach s\xE4ge Stand: 09.01.2003 07:05:03\r\n"
                                "======================\r\n"
                                "12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31\r\n"
                                "12-Backup 2003 >d:\\Setup\r\n"
                                "3-B\xFC" "cher d:\\B\xFC" "cher\\liste.txt * -1294967296 Byte * Date:01.02.2003\r\n";
    EXPECT_EQ(std::get<QByteArray>(text), expected);
}

TEST(ResultsFile, SaveWritesTwoLinesMoreThanThereAreHits)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("ergebnis.txt"));
    const std::vector<QString> hits = {QStringLiteral("1-A<d:\\a|1|2"), QStringLiteral("1-A<>d:\\b")};
    EXPECT_FALSE(ResultsFile::save(path, QStringLiteral("a"), hits, kNow));
    EXPECT_EQ(readAll(path).count("\r\n"), 4);
    // Saved again over the file, it is replaced, not appended to.
    EXPECT_FALSE(ResultsFile::save(path, QStringLiteral("a"), {hits.front()}, kNow));
    EXPECT_EQ(readAll(path).count("\r\n"), 3);
}

TEST(ResultsFile, AFailureLeavesAnEarlierFileAsItWas)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("ergebnis.txt"));
    ASSERT_FALSE(ResultsFile::save(path, QStringLiteral("a"), {QStringLiteral("1-A<d:\\a|1|2")}, kNow));
    const QByteArray before = readAll(path);

    const auto badEntry = ResultsFile::save(path, QStringLiteral("*"), {QStringLiteral("1-A<")}, kNow);
    ASSERT_TRUE(badEntry);
    EXPECT_EQ(badEntry->number, 5);
    EXPECT_EQ(readAll(path), before);

    const auto noFolder =
        ResultsFile::save(dir.filePath(QStringLiteral("fehlt/ergebnis.txt")), QStringLiteral("a"), {}, kNow);
    ASSERT_TRUE(noFolder);
    EXPECT_EQ(noFolder->number, 75);
}

} // namespace
