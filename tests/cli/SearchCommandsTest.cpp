#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

// An archive "Fotos" with three CDs: two with images, one without; \xE4 is "ä" in code page 1252.
class SearchCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ArchiveBuilder archive(m_cli.dataFolder(), QStringLiteral("Fotos"));
        archive.cd(12, QStringLiteral("Backup 2003"), QStringLiteral("Sta1|Word 97|Rock'n'Roll|End1"), 4711)
            .cd(3, QStringLiteral("Gärten"), QStringLiteral("Sta1|Word|End1"), -99)
            .cd(5, QStringLiteral("Leer"), QStringLiteral("Sta1|End1"), 0)
            .cd(8, QStringLiteral("Abbild fehlt"), QStringLiteral("Sta1|End1"), 808);
        writeImage(4711, ">d:\r\n"
                         "d:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n"
                         ">d:\\Setup\r\n"
                         "d:\\Setup\\liesmich.txt|2210|19.01.2003\r\n"
                         "d:\\Setup\\H\xE4user.exe|65536|19.01.2003 00:12:31\r\n"
                         "\r\n");
        writeImage(-99, ">e:\r\n"
                        "e:\\Haus 2003\\garten.jpg|501772|28.07.2002 18:02:50\r\n"
                        "\r\n");
    }

    void writeImage(int32_t id, const QByteArray &bytes) const
    {
        QDir().mkpath(m_cli.dataPath(QStringLiteral("lws")));
        QFile file(m_cli.dataPath(QStringLiteral("lws/%1.dat").arg(id)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    CliRun search(const QStringList &words) const
    {
        return m_cli.run(QStringList{QStringLiteral("--archive"), QStringLiteral("Fotos"), QStringLiteral("search")} +
                         words);
    }

    CliRunner m_cli;
};

TEST_F(SearchCommandsTest, AllCdsPrintsTheHitEntriesInArchiveOrder)
{
    const QStringList expected = {QStringLiteral("3-Gärten<e:\\Haus 2003\\garten.jpg|501772|28.07.2002 18:02:50"),
                                  QStringLiteral("12-Backup 2003<d:\\liesmich.txt|1834|12.03.2003 09:41:07"),
                                  QStringLiteral("12-Backup 2003<d:\\Setup\\liesmich.txt|2210|19.01.2003"),
                                  QStringLiteral("12-Backup 2003<d:\\Setup\\Häuser.exe|65536|19.01.2003 00:12:31")};
    const CliRun found = search({QStringLiteral("2003")});
    EXPECT_EQ(found.exitCode, 0) << found.error.toStdString();
    EXPECT_EQ(found.lines, expected);
    // "Explizite Suche" has no effect when all CDs are searched.
    EXPECT_EQ(search({QStringLiteral("2003"), QStringLiteral("--exact")}).lines, expected);
    EXPECT_EQ(search({QStringLiteral("HÄUSER")}).lines, QStringList{expected[3]});
}

TEST_F(SearchCommandsTest, OneCdSearchesThePathAndHonoursExact)
{
    EXPECT_EQ(search({QStringLiteral("2003"), QStringLiteral("--cd"), QStringLiteral("3")}).lines,
              QStringList{QStringLiteral("3-Gärten<e:\\Haus 2003\\garten.jpg|501772|28.07.2002 18:02:50")});
    EXPECT_EQ(search({QStringLiteral("liesmich.txt"), QStringLiteral("--cd"), QStringLiteral("12"),
                      QStringLiteral("--exact")})
                  .exitCode,
              1);
    EXPECT_EQ(search({QStringLiteral("*\\LIESMICH.TXT|"), QStringLiteral("--cd"), QStringLiteral("12"),
                      QStringLiteral("--exact")})
                  .lines,
              (QStringList{QStringLiteral("12-Backup 2003<d:\\liesmich.txt|1834|12.03.2003 09:41:07"),
                           QStringLiteral("12-Backup 2003<d:\\Setup\\liesmich.txt|2210|19.01.2003")}));
}

TEST_F(SearchCommandsTest, RefusalsExitWithOneAndTheGermanMessage)
{
    struct Case
    {
        const char *name;
        QStringList words;
        QString message;
    };
    const Case cases[] = {
        {"noHit", {QStringLiteral("Zebrafink")}, QStringLiteral("Keine CD mit dem Inhalt Zebrafink gefunden!")},
        {"emptyWord", {QString()}, QStringLiteral("Bitte geben Sie einen Suchbegriff ein!")},
        {"unclosedBracket", {QStringLiteral("[ab")},
         QStringLiteral("Ungültiges Suchmuster: Eine eckige Klammer \"[\" wird nicht geschlossen.")},
        {"oneCdWithoutImageFile", {QStringLiteral("haus"), QStringLiteral("--cd"), QStringLiteral("8")},
         QStringLiteral("Kein Datenträgerabbild vorhanden!")},
        {"noCommentMatches", {QStringLiteral("Excel"), QStringLiteral("--comments")},
         QStringLiteral("Keine übereinstimmende CD gefunden!")},
    };
    for (const Case &c : cases) {
        const CliRun run = search(c.words);
        EXPECT_EQ(run.exitCode, 1) << c.name;
        EXPECT_EQ(run.error, c.message) << c.name;
        EXPECT_TRUE(run.lines.isEmpty()) << c.name;
    }
    const CliRun unknownCd = search({QStringLiteral("haus"), QStringLiteral("--cd"), QStringLiteral("77")});
    EXPECT_EQ(unknownCd.exitCode, 1);
    EXPECT_FALSE(unknownCd.error.isEmpty());
}

TEST_F(SearchCommandsTest, CommentsPrintTheFoundCdNumbers)
{
    EXPECT_EQ(search({QStringLiteral("word"), QStringLiteral("--comments")}).lines,
              (QStringList{QStringLiteral("3"), QStringLiteral("12")}));
    EXPECT_EQ(search({QStringLiteral("word"), QStringLiteral("--comments"), QStringLiteral("--exact")}).lines,
              QStringList{QStringLiteral("3")});
    EXPECT_EQ(search({QStringLiteral("word"), QStringLiteral("--comments"), QStringLiteral("--cd"),
                      QStringLiteral("12")})
                  .lines,
              QStringList{QStringLiteral("12")});
    EXPECT_EQ(search({QStringLiteral("rock'n'roll"), QStringLiteral("--comments")}).lines,
              QStringList{QStringLiteral("12")});
}

TEST_F(SearchCommandsTest, SaveWritesTheResultsFile)
{
    const QString path = m_cli.scratch(QStringLiteral("ergebnis.txt"));
    const CliRun saved = search({QStringLiteral("häuser"), QStringLiteral("--save"), path});
    ASSERT_EQ(saved.exitCode, 0) << saved.error.toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    ASSERT_EQ(lines.size(), 4); // three lines and the empty rest after the last line end
    EXPECT_TRUE(lines[0].startsWith("Suchergebnisse f\xFCr die Suche nach h\xE4user Stand: "));
    EXPECT_EQ(lines[1], "======================\r");
    EXPECT_EQ(lines[2], "12-Backup 2003 d:\\Setup\\H\xE4user.exe * 65536 Byte * Date:19.01.2003 00:12:31\r");
}

TEST_F(SearchCommandsTest, WrongCallsAreUsageErrors)
{
    EXPECT_EQ(search({}).exitCode, 2);
    EXPECT_EQ(search({QStringLiteral("a"), QStringLiteral("b")}).exitCode, 2);
    EXPECT_EQ(search({QStringLiteral("a"), QStringLiteral("--comments"), QStringLiteral("--save"),
                      m_cli.scratch(QStringLiteral("x.txt"))})
                  .exitCode,
              2);
    EXPECT_EQ(search({QStringLiteral("a"), QStringLiteral("--weird")}).exitCode, 2);
}

} // namespace
