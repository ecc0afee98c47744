#include "PrintedTexts.h"
#include "TestPaths.h"

#include "print/ListPrints.h"
#include "print/TreePrinter.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace {

using namespace Qt::StringLiterals;

using PrintOut = std::function<PrintOutcome(Printer &, const PrintSettings &)>;

// Every page of a print-out carries something besides its footer, each footer stands on the
// page it counts, and nothing runs off the paper.
TEST(Pagination, NoBlankPageAtAnyFontSize)
{
    QTemporaryDir dir;
    QByteArray imageBytes;
    for (int i = 1; i <= 120; ++i)
        imageBytes += "d:\\Ordner\\Datei" + QByteArray::number(i) + ".txt|1024|19.01.2003 00:12:31\r\n";
    const QString image = writeFile(dir.filePath(u"4711.dat"_s), imageBytes + "\r\n");
    std::vector<HitEntry> hits;
    const QString cd = u"3-Setup-CD"_s;
    for (int i = 1; i <= 120; ++i)
        hits.push_back({ cd + u"<d:\\Setup\\datei%1.exe|65536|19.01.2003 00:12:31"_s.arg(i), cd.size() });
    hits.push_back({});
    std::vector<std::pair<QString, int>> nodes = { { u"Jazz (d:)"_s, -1 } };
    for (int i = 1; i <= 120; ++i)
        nodes.push_back({ u"Ordner "_s + QString::number(i), 0 });
    const ListedTree tree(nodes);

    const std::pair<const char *, PrintOut> printOuts[] = {
        { "results", [&](Printer &p, const PrintSettings &s) { return printSearchHits(p, s, u"*.exe"_s, hits); } },
        { "file list",
            [&](Printer &p, const PrintSettings &s) { return printFileList(p, s, u"Setup-CD"_s, image, { true, true }); } },
        { "comments",
            [&](Printer &p, const PrintSettings &s) {
                return printCommentList(p, s, u"Jazz"_s, numbered(u"Kommentar "_s, 120));
            } },
        { "tree", [&](Printer &p, const PrintSettings &s) { return printFolderTree(p, s, u"Jazz"_s, tree); } },
        { "CD list", [&](Printer &p, const PrintSettings &s) { return printCdList(p, s, numbered(u"CD "_s, 120)); } },
    };
    const RecordingPrinter::Paper paper = testPaper();
    for (const auto &[what, print] : printOuts) {
        for (const QString &size : { u"1"_s, u"8"_s, u"12"_s, u"24"_s, u"40"_s, u"72"_s }) {
            SCOPED_TRACE(std::string(what) + " at " + size.toStdString() + " pt");
            RecordingPrinter printer(paper);
            ASSERT_TRUE(print(printer, { u"Musik"_s, size, printMoment() }).printed());
            std::map<int, int> contentOnPage;
            for (const RecordingPrinter::Item &text : printer.texts()) {
                EXPECT_LE(text.y + text.font.size / 16, paper.printableHeight + 1e-9) << text.text.toStdString();
                if (!text.text.startsWith(u"- Seite"_s))
                    ++contentOnPage[text.page];
                else // each footer on the page it counts
                    EXPECT_TRUE(text.text.startsWith(u"- Seite  %1 "_s.arg(text.page))) << text.text.toStdString();
            }
            for (int page = 1; page <= pageCount(printer); ++page)
                EXPECT_GT(contentOnPage[page], 0) << "page " << page << " of " << pageCount(printer) << " is blank";
        }
    }
}

} // namespace
