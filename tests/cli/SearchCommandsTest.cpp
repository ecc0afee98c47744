#include "CliRunner.h"

#include "ArchiveBuilder.h"

namespace {

using namespace Qt::StringLiterals;

// An archive "Fotos": two CDs with images, one without, one whose image is missing.
// \xE4 is "ä" in code page 1252.
class SearchCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ArchiveBuilder(m_cli.dataFolder(), u"Fotos"_s)
            .cd(12, u"Backup 2003"_s, u"Sta1|Word 97|Rock'n'Roll|End1"_s, 4711)
            .cd(3, u"Gärten"_s, u"Sta1|Word|End1"_s, -99)
            .cd(5, u"Leer"_s, u"Sta1|End1"_s, 0)
            .cd(8, u"Abbild fehlt"_s, u"Sta1|End1"_s, 808);
        writeImage(4711,
            ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Setup\r\n"
            "d:\\Setup\\liesmich.txt|2210|19.01.2003\r\nd:\\Setup\\H\xE4user.exe|65536|19.01.2003 "
            "00:12:31\r\n\r\n");
        writeImage(-99, ">e:\r\ne:\\Haus 2003\\garten.jpg|501772|28.07.2002 18:02:50\r\n\r\n");
    }

    void writeImage(int32_t id, const QByteArray &bytes) const
    {
        QDir().mkpath(m_cli.dataPath(u"lws"_s));
        QFile file(m_cli.dataPath(u"lws/%1.dat"_s.arg(id)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QStringList search(const QStringList &words) const
    {
        const CliRun run = m_cli.run(args({ "--archive", "Fotos", "search" }) + words);
        EXPECT_EQ(run.exitCode, 0) << run.error.toStdString();
        return run.lines;
    }

    CliRunner m_cli;
};

// All CDs: whole lines in archive order, "--exact" without effect. One CD: the path, exact
// when asked. Comments: the CD numbers.
TEST_F(SearchCommandsTest, PrintsTheHitEntriesOrTheFoundCdNumbers)
{
    const QStringList hits = { u"3-Gärten<e:\\Haus 2003\\garten.jpg|501772|28.07.2002 18:02:50"_s,
        u"12-Backup 2003<d:\\liesmich.txt|1834|12.03.2003 09:41:07"_s,
        u"12-Backup 2003<d:\\Setup\\liesmich.txt|2210|19.01.2003"_s,
        u"12-Backup 2003<d:\\Setup\\Häuser.exe|65536|19.01.2003 00:12:31"_s };
    const std::pair<QStringList, QStringList> cases[]
        = { { args({ "2003" }), hits }, { args({ "2003", "--exact" }), hits },
              { args({ "HÄUSER" }), { hits[3] } }, { args({ "2003", "--cd", "3" }), { hits[0] } },
              { args({ "*\\LIESMICH.TXT|", "--cd", "12", "--exact" }), { hits[1], hits[2] } },
              { args({ "word", "--comments" }), args({ "3", "12" }) },
              { args({ "word", "--comments", "--exact" }), args({ "3" }) },
              { args({ "word", "--comments", "--cd", "12" }), args({ "12" }) } };
    for (const auto &[words, lines] : cases)
        EXPECT_EQ(search(words), lines) << words.join(u' ').toStdString();
}

TEST_F(SearchCommandsTest, SaveWritesTheResultsFile)
{
    const QString path = m_cli.scratch(u"ergebnis.txt"_s);
    search({ u"häuser"_s, u"--save"_s, path });
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    ASSERT_EQ(lines.size(), 4); // three lines and the empty rest after the last line end
    EXPECT_TRUE(lines[0].startsWith("Suchergebnisse f\xFCr die Suche nach h\xE4user Stand: "));
    EXPECT_EQ(lines[1], "======================\r");
    EXPECT_EQ(lines[2], "12-Backup 2003 d:\\Setup\\H\xE4user.exe * 65536 Byte * Date:19.01.2003 00:12:31\r");
}

TEST_F(SearchCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    const QString usage = u"Aufruf: silberbuch-cli search"_s;
    std::vector<Refusal> calls = { { args({ "Zebrafink" }), 1,
                                       u"Keine CD mit dem Inhalt Zebrafink gefunden!"_s },
        { args({ "" }), 1, u"Bitte geben Sie einen Suchbegriff ein!"_s },
        { args({ "[ab" }), 1, u"Ungültiges Suchmuster: Eine eckige Klammer \"[\" wird nicht geschlossen."_s },
        { args({ "haus", "--cd", "8" }), 1, u"Kein Datenträgerabbild vorhanden!"_s },
        { args({ "haus", "--cd", "77" }), 1, u"Die CD (Nummer: 77) wurde im Archiv nicht gefunden."_s },
        { args({ "Excel", "--comments" }), 1, u"Keine übereinstimmende CD gefunden!"_s },
        { args({ "a", "b" }), 2, usage }, { args({ "a", "--comments", "--save", "x.txt" }), 2, usage } };
    for (Refusal &call : calls)
        call.arguments = args({ "--archive", "Fotos", "search" }) + call.arguments;
    m_cli.expectRefused(calls);
}

} // namespace
