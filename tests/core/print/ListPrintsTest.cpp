#include "PrintedTexts.h"
#include "TestPaths.h"

#include "print/ListPrints.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

const QString kWeb = u"https://silberbuch.example.org/"_s;

PrintSettings settings(const QString &fontSize = u"10"_s)
{
    return { u"Musik"_s, fontSize, printMoment() };
}

// The footer of a page, centred on 20 cm of 0.3125-cm characters, 0.8 cm above the bottom.
Placed footer(int page, const QString &text)
{
    return { page, (20 - text.size() * 0.3125) / 2, 27.2, text };
}

TEST(PrintCdList, HeadEntriesAndClosingLine)
{
    RecordingPrinter printer(testPaper());
    ASSERT_TRUE(printCdList(printer, settings(), { u"1 Jazz"_s, u"12  Klassik"_s }).printed());
    const std::vector<Placed> expected = {
        { 1, 2, 2, u"--- Archiv: Musik. Liste der CD-Titel Stand: 19.01.2003 14:05:09 ---"_s },
        { 1, 2, 2.625, u"---                     Erstellt mit dem Silberbuch 5.1                  ---"_s },
        { 1, 2, 3.25, u"---"_s + QString(29, u' ') + kWeb + QString(26, u' ') + u"---"_s },
        { 1, 3, 4.5, u"Nr. 1 Jazz"_s },
        { 1, 3, 5.125, u"Nr. 12  Klassik"_s },
        { 1, 3, 6.375, u"- Ende der Liste -"_s },
    };
    EXPECT_EQ(placedTexts(printer), expected);
    EXPECT_TRUE(printer.finished());
}

// The test runs after each line: the 35th entry fills page 1, which then gets its footer
// without a caption; each later page begins with startNextPage's footer and, when full, gets the
// short one printed over it. Later pages continue at the top.
TEST(PrintCdList, PageBreaksAndTheirTwoFooters)
{
    const Placed f1 = footer(1, u"- Seite  1 -"_s), f2 = footer(2, u"- Seite  2 - "_s);
    const Placed end2 { 2, 3, 2.625, u"- Ende der Liste -"_s }, cd36 { 2, 3, 2, u"Nr. 7 CD 36"_s };
    const std::tuple<const char *, int, int, std::vector<Placed>, std::optional<Placed>> cases[] = {
        { "an empty archive has no footer", 0, 1, {}, {} },
        { "one entry short of full", 34, 1, {}, {} },
        { "full first page", 35, 2, { f1, f2 }, end2 },
        { "two full pages", 35 + 39, 3, { f1, f2, footer(2, u"- Seite  2 -"_s), footer(3, u"- Seite  3 - "_s) }, cd36 },
    };
    for (const auto &[what, entries, pages, footers, page2Opener] : cases) {
        SCOPED_TRACE(what);
        RecordingPrinter printer(testPaper());
        ASSERT_TRUE(printCdList(printer, settings(), numbered(u"7 CD "_s, entries)).printed());
        EXPECT_EQ(pageCount(printer), pages);
        std::vector<Placed> printedFooters;
        std::ranges::copy_if(placedTexts(printer), std::back_inserter(printedFooters),
            [](const Placed &placed) { return placed.text.startsWith(u"- Seite"_s); });
        EXPECT_EQ(printedFooters, footers);
        if (page2Opener) {
            EXPECT_EQ(textsOnPage(printer, 2).at(1), *page2Opener);
        }
        const Placed last = placedTexts(printer).back();
        EXPECT_EQ(std::pair(last.text, last.x), std::pair(u"- Ende der Liste -"_s, 3.0));
    }
}

TEST(PrintFailures, ReportsAsEachProcedureTrapsThem)
{
    const QString first = u"Fehler! Es konnte nicht gedruckt werden. Stellen Sie sicher, dass ein Drucker "
                          u"angeschlossen und korrekt eingestellt ist."_s;
    using Print = PrintOutcome (*)(Printer &, const PrintSettings &);
    const Print list = [](Printer &p, const PrintSettings &s) { return printCdList(p, s, {}); };
    const Print comments
        = [](Printer &p, const PrintSettings &s) { return printCommentList(p, s, u"T"_s, {}); };
    const Print results = [](Printer &p, const PrintSettings &s) {
        return printSearchHits(p, s, u"x"_s, std::vector<HitEntry> {});
    };
    const Print noImage = [](Printer &p, const PrintSettings &s) {
        return printFileList(p, s, u"x"_s, u"/fehlt/0.dat"_s, {});
    };
    using enum PrintOutcome::Status;
    const std::tuple<const char *, QString, Print, PrintOutcome::Status, QString, int> cases[] = {
        { "empty size box, title list: first line only", u""_s, list, Reported, first, 0 },
        { "empty size box, comments: first line only", u""_s, comments, Reported, first, 0 },
        { "size box beyond any font, results: untrapped", u"99999"_s, results, Untrapped, QString(), 380 },
        { "letters in the results' box: untrapped", u"zehn"_s, results, Untrapped, QString(), 13 },
        { "a missing image: refused before any output", u"10"_s, noImage, Refused, u"Kein Laufwerks_Abbild verfügbar!"_s, 0 },
    };
    for (const auto &[what, fontSize, print, status, message, number] : cases) {
        SCOPED_TRACE(what);
        RecordingPrinter printer(testPaper());
        const PrintOutcome outcome = print(printer, settings(fontSize));
        EXPECT_EQ(std::tie(outcome.status, outcome.message, outcome.failure.number), std::tie(status, message, number));
        EXPECT_TRUE(printer.items().empty()); // each fails before anything is printed
    }
}

class PrintFileList : public ::testing::Test
{
protected:
    QString image(const QByteArray &bytes) { return writeFile(m_dir.filePath(u"4711.dat"_s), bytes); }

    // A one-page list: footer and head, the lines at 2 cm and the closing line after a blank one.
    static std::vector<Placed> onePage(const QString &about, const QString &heading, const QStringList &lines)
    {
        std::vector<Placed> page = { footer(1, u"- Seite  1 - Archiv: Musik * "_s + about), { 1, 2, 2, u"* Archiv: Musik"_s },
            { 1, 2, 2.625, heading }, { 1, 2, 3.25, u"* Stand: 19.01.2003 14:05:09"_s },
            { 1, 2, 3.875, u"* Erstellt mit dem Silberbuch 5.1"_s }, { 1, 2, 4.5, u"* "_s + kWeb } };
        for (const QString &line : lines)
            page.push_back({ 1, 2, 5.75 + 0.625 * (static_cast<double>(page.size()) - 6), line });
        page.push_back({ 1, 2, page.back().y + 1.25, u"- Ende der Liste -"_s });
        return page;
    }

    QTemporaryDir m_dir;
};

TEST_F(PrintFileList, HeadAndLinesCutToTheColumnsAskedFor)
{
    const QByteArray bytes = ">d:\r\n>d:\\Setup\r\nd:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\n\r\n";
    const std::pair<FileListColumns, QString> cases[] = {
        { { false, false }, u"d:\\Setup\\start.exe"_s },
        { { false, true }, u"d:\\Setup\\start.exe Date:19.01.2003 00:12:31"_s }, // the dialog's default
        { { true, false }, u"d:\\Setup\\start.exe * 65536 Byte *"_s },
        { { true, true }, u"d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31"_s },
    };
    for (const auto &[columns, fileLine] : cases) {
        SCOPED_TRACE(fileLine.toStdString());
        RecordingPrinter printer(testPaper());
        ASSERT_TRUE(printFileList(printer, settings(), u"Setup-CD"_s, image(bytes), columns).printed());
        // The empty closing line of the image prints the line before it once more.
        EXPECT_EQ(placedTexts(printer),
            onePage(u"CD: Setup-CD"_s, u"* CD: Setup-CD"_s, { u">d:"_s, u">d:\\Setup"_s, fileLine, fileLine }));
    }
}

// Page 1 takes 33 lines below the head, later pages 39 from the top; the test after the last
// line can give a page of the closing lines alone. Lines: printed lines, the doubled last one
// included; the line that opens page 2, none when the closing lines do.
TEST_F(PrintFileList, PageBreaks)
{
    const std::tuple<const char *, int, int, std::optional<int>> cases[] = {
        { "one short of a page", 32, 1, {} },
        { "exactly a page: the closing lines go to page 2", 33, 2, {} },
        { "one line more", 34, 2, 33 },
        { "page 3", 33 + 39 + 1, 3, 34 },
    };
    for (const auto &[what, lines, pages, firstOnPage2] : cases) {
        SCOPED_TRACE(what);
        QByteArray bytes;
        for (int i = 1; i < lines; ++i)
            bytes += ">d:\\Ordner" + QByteArray::number(i) + "\r\n";
        RecordingPrinter printer(testPaper());
        ASSERT_TRUE(printFileList(printer, settings(), u"T"_s, image(bytes + "\r\n"), {}).printed());
        EXPECT_EQ(pageCount(printer), pages);
        if (pages == 1)
            continue;
        const std::vector<Placed> page2 = textsOnPage(printer, 2);
        ASSERT_GE(page2.size(), 2u);
        EXPECT_EQ(page2.front(), footer(2, u"- Seite  2 -  Archiv: Musik * CD: T"_s));
        EXPECT_EQ(page2[1], (firstOnPage2 ? Placed { 2, 2, 2, u">d:\\Ordner%1"_s.arg(*firstOnPage2) }
                                          : Placed { 2, 2, 2.625, u"- Ende der Liste -"_s }));
    }
}

// Comments stand at 3 cm on page 1 and at the left edge on later pages; no test after the last
// comment, and the closing line at 2 cm.
TEST(PrintCommentList, PagesAndClosingLine)
{
    RecordingPrinter none(testPaper());
    ASSERT_TRUE(printCommentList(none, settings(), u"Jazz"_s, {}).printed());
    EXPECT_EQ(placedTexts(none).size(), 7u);
    EXPECT_EQ(placedTexts(none).back(), (Placed { 1, 2, 6.375, u"- Ende der Liste -"_s }));
    RecordingPrinter printer(testPaper());
    ASSERT_TRUE(printCommentList(printer, settings(), u"Jazz"_s, numbered(u"Kommentar "_s, 34)).printed());
    const std::vector<Placed> page1 = textsOnPage(printer, 1);
    EXPECT_EQ(page1.front(), footer(1, u"- Seite  1 - Archiv: Musik * CD: Jazz"_s));
    EXPECT_EQ(page1[6], (Placed { 1, 3, 5.75, u"Kommentar 1"_s }));
    EXPECT_EQ(textsOnPage(printer, 2),
        (std::vector<Placed> { footer(2, u"- Seite  2 -  Archiv: Musik * CD: Jazz"_s), { 2, 0, 2, u"Kommentar 34"_s },
            { 2, 2, 3.25, u"- Ende der Liste -"_s } }));
}

// Results print as the results file has them, the empty end entry once more as the line
// before it.
TEST_F(PrintFileList, ResultsInSearchOrder)
{
    const std::vector<HitEntry> hits = { { u"3-Setup-CD<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"_s, 10 },
        { u"1-Bilder<>d:\\Urlaub"_s, 8 }, {} };
    RecordingPrinter printer(testPaper());
    ASSERT_TRUE(printSearchHits(printer, settings(), u"s*"_s, hits).printed());
    EXPECT_EQ(placedTexts(printer),
        onePage(u"Suche nach s*"_s, u"* Suche nach: s*"_s,
            { u"3-Setup-CD d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31"_s, u"1-Bilder >d:\\Urlaub"_s,
                u"1-Bilder >d:\\Urlaub"_s }));
}

TEST(PrintCancel, StoppedAtAPageLeavesTheDocumentUnfinished)
{
    RecordingPrinter printer(testPaper());
    printer.setPageWatcher([](int page) { return page < 3; });
    const PrintOutcome outcome = printCdList(printer, settings(), numbered(u"1 CD "_s, 500));
    EXPECT_EQ(outcome.status, PrintOutcome::Status::Cancelled);
    EXPECT_EQ(pageCount(printer), 2);
    EXPECT_FALSE(printer.finished());
}

} // namespace
