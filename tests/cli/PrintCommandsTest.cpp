#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "PdfText.h"

#include <QImage>

namespace {

using namespace Qt::StringLiterals;

// The archive "Musik": CD 1 "Jazz" with two comments, a cover and image 42; CD 2 "Ohne"
// with neither.
class PrintCommands : public ::testing::Test
{
protected:
    PrintCommands()
    {
        ArchiveBuilder(m_cli.dataFolder(), u"Musik"_s)
            .cd(1, u"Jazz"_s, u"Sta1|Erster Kommentar|Zweiter|End1"_s, 42, u"1"_s)
            .cd(2, u"Ohne"_s, u"Sta1|End1"_s, 0);
        m_cli.write(u"lws/42.dat"_s,
            ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Setup\r\n"
            "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\n\r\n");
        QImage cover(120, 90, QImage::Format_RGB32);
        cover.fill(Qt::darkBlue);
        QDir().mkpath(m_cli.dataPath(u"Covers"_s));
        EXPECT_TRUE(cover.save(m_cli.dataPath(u"Covers/1.bmp"_s)));
    }

    CliRun print(const QStringList &words) const
    {
        return m_cli.run(QStringList { u"--archive"_s, u"Musik"_s, u"print"_s } + words);
    }

    CliRunner m_cli;
};

// A picture of the first page for a person to look at.
void keepFirstPage(const QString &pdf, const QString &name)
{
    QDir().mkpath(QStringLiteral(SILBERBUCH_PRINT_PAGES));
    QProcess::execute(u"pdftoppm"_s,
        { u"-png"_s, u"-r"_s, u"60"_s, u"-singlefile"_s, u"-f"_s, u"1"_s, u"-l"_s, u"1"_s, pdf,
            QStringLiteral(SILBERBUCH_PRINT_PAGES) + u'/' + name });
}

TEST_F(PrintCommands, EachPrintOutIntoAPdfFile)
{
    struct Case
    {
        const char *name;
        QStringList words;
        QStringList texts; // as pdftotext gives them, blanks made single
        int pages;
    };
    const QString file = u"d:\\Setup\\start.exe"_s;
    const Case cases[] = {
        { "list", { u"list"_s },
            { u"--- Archiv: Musik. Liste der CD-Titel Stand:"_s, u"--- Erstellt mit dem Silberbuch 5.1 ---"_s,
                u"Nr. 1 Jazz Nr. 2 Ohne"_s, u"- Ende der Liste -"_s },
            1 },
        { "comments", { u"comments"_s, u"1"_s },
            { u"- Seite 1 - Archiv: Musik * CD: Jazz"_s, u"* CD: Jazz"_s, u"Erster Kommentar Zweiter"_s }, 1 },
        { "files", { u"files"_s, u"1"_s, u"--size"_s },
            { u"* Archiv: Musik * CD: Jazz"_s, u">d:\\Setup "_s + file + u" * 65536 Byte * Date:19.01.2003 00:12:31 "_s
                    + file + u" * 65536 Byte * Date:19.01.2003 00:12:31 - Ende der Liste -"_s },
            1 },
        { "files-no-date", { u"files"_s, u"1"_s, u"--no-date"_s, u"--font-size"_s, u"12"_s },
            { u">d:\\Setup "_s + file + u" "_s + file + u" - Ende der Liste -"_s }, 1 },
        { "tree", { u"tree"_s, u"1"_s },
            { u"Ordnerstruktur * Archiv: Musik*** CD: Jazz"_s, u"Jazz (d:) Setup"_s }, 1 },
        { "sheet", { u"sheet"_s, u"1"_s, u"--comment-size"_s, u"14"_s },
            { u"Archiv: Musik CD: Jazz"_s, u"Seriennummer: 42 | Dateienanzahl: 2 | Ordneranzahl: 1"_s,
                u"Kommentare zur CD: Erster Kommentar Zweiter"_s },
            1 },
        { "results", { u"results"_s, u"start*"_s },
            { u"- Seite 1 - Archiv: Musik * Suche nach start*"_s, u"* Suche nach: start*"_s,
                u"1-Jazz "_s + file + u" * 65536 Byte * Date:19.01.2003 00:12:31"_s },
            1 },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const QString pdf = m_cli.scratch(QString::fromLatin1(c.name) + u".pdf"_s);
        const CliRun run = print(c.words + QStringList { u"--pdf"_s, pdf });
        EXPECT_EQ(run.exitCode, 0) << run.error.toStdString();
        EXPECT_EQ(run.error, QString());
        EXPECT_EQ(pdfPages(pdf), c.pages);
        const QString text = pdfText(pdf).simplified();
        for (const QString &expected : c.texts)
            EXPECT_TRUE(text.contains(expected)) << expected.toStdString() << "\nin: " << text.toStdString();
        keepFirstPage(pdf, QString::fromLatin1(c.name));
    }
    // The list of printers, empty where none is set up, is no failure.
    const CliRun printers = m_cli.run({ u"print"_s, u"--printers"_s });
    EXPECT_EQ(std::pair(printers.exitCode, printers.error), std::pair(0, QString()));
}

TEST_F(PrintCommands, LongListsBreakIntoPagesWithTheirFooters)
{
    QByteArray image = ">d:\r\n";
    for (int i = 1; i <= 300; ++i)
        image += "d:\\datei" + QByteArray::number(i) + ".txt|" + QByteArray::number(i) + "|01.02.2003\r\n";
    m_cli.write(u"lws/42.dat"_s, image + "\r\n");
    const QString pdf = m_cli.scratch(u"lang.pdf"_s);
    ASSERT_EQ(print({ u"files"_s, u"1"_s, u"--pdf"_s, pdf }).exitCode, 0);
    const int pages = pdfPages(pdf);
    EXPECT_GE(pages, 5);
    const QString text = pdfText(pdf).simplified();
    EXPECT_TRUE(text.contains(u"- Seite 1 - Archiv: Musik * CD: Jazz"_s));
    EXPECT_TRUE(text.contains(u"- Seite %1 - Archiv: Musik * CD: Jazz"_s.arg(pages)));
    EXPECT_EQ(text.count(u"d:\\datei300.txt Date:01.02.2003"_s), 2);
}

TEST_F(PrintCommands, RefusalsAndWrongCalls)
{
    const QString pdf = m_cli.scratch(u"nie.pdf"_s);
    const QString noImage = u"Kein Laufwerks_Abbild verfügbar!"_s;
    const QString report = u"Fehler! Es konnte nicht gedruckt werden. Stellen Sie sicher, dass ein Drucker "
                           u"angeschlossen und korrekt eingestellt ist."_s;
    const QStringList target = { u"--pdf"_s, pdf };
    const QStringList musik = { u"--archive"_s, u"Musik"_s, u"print"_s };
    m_cli.expectRefused({
        { musik + QStringList { u"files"_s, u"2"_s } + target, 1, noImage },
        { musik + QStringList { u"comments"_s, u"99"_s } + target, 1, u"Die CD (Nummer: 99) wurde im Archiv nicht gefunden."_s },
        { musik + QStringList { u"list"_s, u"--printer"_s, u"Nirgends"_s }, 1,
            u"Der Drucker Nirgends ist nicht eingerichtet."_s },
        { musik + QStringList { u"list"_s, u"--font-size"_s, u"99999"_s } + target, 1, report },
        { musik + QStringList { u"sheet"_s, u"1"_s, u"--comment-size"_s, u"groß"_s } + target, 1,
            report + u"\nFehlernummer: 13\nFehler-Beschreibung: Typen unverträglich"_s },
        { musik + QStringList { u"files"_s, u"1"_s, u"--pdf"_s, m_cli.scratch(u"fehlt/x.pdf"_s) }, 1,
            report + u"\nFehlernummer: 75\nFehler-Beschreibung: Fehler beim Zugriff auf Pfad/Datei"_s },
        { musik + QStringList { u"list"_s, u"--printer"_s, u"A"_s } + target, 2, u"Aufruf: silberbuch-cli print"_s },
        { musik + QStringList { u"list"_s, u"--font-size"_s, u"zehn"_s } + target, 2,
            u"Aufruf: silberbuch-cli print"_s },
        { musik + QStringList { u"poster"_s } + target, 2, u"Aufruf: silberbuch-cli print"_s },
    });
}

TEST_F(PrintCommands, ResultsWithoutHitsSayWhatTheSearchSays)
{
    const CliRun search = m_cli.run({ u"--archive"_s, u"Musik"_s, u"search"_s, u"nirgendwo"_s });
    ASSERT_EQ(search.exitCode, 1);
    const CliRun printed = print({ u"results"_s, u"nirgendwo"_s, u"--pdf"_s, m_cli.scratch(u"x.pdf"_s) });
    EXPECT_EQ(printed.exitCode, 1);
    EXPECT_EQ(printed.error, search.error);
    EXPECT_FALSE(QFileInfo::exists(m_cli.scratch(u"x.pdf"_s)));
}

} // namespace
