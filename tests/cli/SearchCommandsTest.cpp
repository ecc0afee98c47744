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
        m_cli.write(u"lws/4711.dat"_s,
            ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Setup\r\n"
            "d:\\Setup\\liesmich.txt|2210|19.01.2003\r\nd:\\Setup\\H\xE4user.exe|65536|19.01.2003 "
            "00:12:31\r\n\r\n");
        m_cli.write(u"lws/-99.dat"_s, ">e:\r\ne:\\Haus 2003\\garten.jpg|501772|28.07.2002 18:02:50\r\n\r\n");
    }

    static QStringList search(QStringList words) { return args({ "--archive", "Fotos", "search" }) + words; }

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
        = { { args({ "2003", "--exact" }), hits }, { args({ "2003", "--cd", "3" }), { hits[0] } },
              { args({ "*\\LIESMICH.TXT|", "--cd", "12", "--exact" }), { hits[1], hits[2] } },
              { args({ "word", "--comments" }), args({ "3", "12" }) },
              { args({ "word", "--comments", "--exact" }), args({ "3" }) },
              { args({ "word", "--comments", "--cd", "12" }), args({ "12" }) } };
    for (const auto &[words, lines] : cases) {
        const CliRun run = m_cli.run(search(words));
        EXPECT_EQ(run.lines, lines) << words.join(u' ').toStdString() << run.error.toStdString();
    }
}

// The file's bytes are the results file's rule; here --save reaches it with the query and the hit.
TEST_F(SearchCommandsTest, SaveWritesTheResultsFile)
{
    const QString path = m_cli.scratch(u"ergebnis.txt"_s);
    m_cli.run(search({ u"häuser"_s, u"--save"_s, path }));
    const QByteArray saved = fileBytes(path);
    EXPECT_TRUE(saved.startsWith("Suchergebnisse f\xFCr die Suche nach h\xE4user Stand: ")
        && saved.endsWith(
            "\r\n12-Backup 2003 d:\\Setup\\H\xE4user.exe * 65536 Byte * Date:19.01.2003 00:12:31\r\n"))
        << saved.data();
}

// Why a search finds nothing is the core's; here the refusals reach the caller.
TEST_F(SearchCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    m_cli.expectRefused({ { search({ u"Zebrafink"_s }), 1, u"Keine CD mit dem Inhalt Zebrafink gefunden!"_s },
        { search(args({ "haus", "--cd", "8" })), 1, u"Kein Datenträgerabbild vorhanden!"_s },
        { search(args({ "haus", "--cd", "77" })), 1,
            u"Die CD (Nummer: 77) wurde im Archiv nicht gefunden."_s },
        { search(args({ "a", "--comments", "--save", "x.txt" })), 2, u"Aufruf: silberbuch-cli search"_s } });
}

} // namespace
