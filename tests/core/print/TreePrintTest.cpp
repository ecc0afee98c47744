#include "PrintedTexts.h"

#include "print/TreePrinter.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

constexpr double twipsPerCm = 1440 / 2.54;

PrintOutcome printTree(RecordingPrinter &printer, const PrintableTree &tree, int connectorStyle = 1, int printStyle = 1)
{
    TreePrinter printout;
    printout.setTitle(u"* Archiv: Musik*** CD: Jazz"_s);
    printout.setConnectorStyle(connectorStyle);
    printout.setPrintStyle(printStyle);
    printout.setTreeView(tree);
    printout.setPrintedAt(printMoment());
    return printout.printTree(printer);
}

const std::vector<std::pair<QString, int>> kNodes = { { u"Jazz (d:)"_s, -1 }, { u"A"_s, 0 }, { u"A1"_s, 1 }, { u"B"_s, 0 } };
const ListedTree kTree(kNodes);

// The title block centred on the paper; each level moves 420 twips right: the stub down at
// parent x + 220, the stub across 200.
TEST(TreePrinter, TitleBlockConnectorsAndIndents)
{
    const double h = 0.625 * twipsPerCm; // a line at 10 points
    const double y1 = 5.75 * twipsPerCm + h; // under the root
    const double y2 = y1 + 50 + h;
    const double y3 = y2 + 50 + h;
    const auto at = [](double x, double y, const QString &text) { return Placed { 1, x / twipsPerCm, y / twipsPerCm, text }; };
    const std::vector<Placed> expected = { { 1, (21 - 14 * 0.3125) / 2, 2.5, u"Ordnerstruktur"_s },
        { 1, (21 - 27 * 0.3125) / 2, 3.125, u"* Archiv: Musik*** CD: Jazz"_s },
        { 1, (21 - 67 * 0.25) / 2, 3.75, u"Erstellt mit dem Silberbuch 5.1 von https://silberbuch.example.org/"_s },
        { 1, (21 - 33 * 0.25) / 2, 4.25, u"19.01.2003      ---      14:05:09"_s }, at(550, y1 - h, u"Jazz (d:)"_s),
        at(970, y1 + 50, u"A"_s), at(1390, y2 + 50, u"A1"_s), at(970, y3 + 50, u"B"_s) };
    for (const auto &[connectorStyle, lineCount] : { std::pair { 1, 7u }, std::pair { 2, 0u } }) {
        SCOPED_TRACE(connectorStyle == 1 ? "connector lines" : "indents alone");
        RecordingPrinter printer(testPaper());
        ASSERT_TRUE(printTree(printer, kTree, connectorStyle).printed());
        EXPECT_EQ(placedTexts(printer), expected);
        EXPECT_TRUE(printer.finished());
        const std::vector<RecordingPrinter::Item> lines = printer.lines();
        ASSERT_EQ(lines.size(), lineCount);
        if (lineCount == 0)
            continue;
        // B's upright runs from where A's stub began (rounded to whole twips) down to B.
        const RecordingPrinter::Item &upright = lines[5];
        EXPECT_NEAR(upright.x * twipsPerCm, 770, 1e-6);
        EXPECT_NEAR(upright.y * twipsPerCm, std::nearbyint(y1), 1e-6);
        EXPECT_NEAR(upright.y2 * twipsPerCm, y3 + 50, 1e-6);
        EXPECT_TRUE(std::ranges::all_of(lines, [](const RecordingPrinter::Item &line) { return line.dots == 4; }));
    }
}

TEST(TreePrinter, SelectedBranchAloneWithPrintStyle2)
{
    RecordingPrinter printer(testPaper());
    ASSERT_TRUE(printTree(printer, ListedTree(kNodes, 1), 1, 2).printed());
    const std::vector<Placed> placed = placedTexts(printer); // the title block, then the branch
    ASSERT_EQ(placed.size(), 6u);
    EXPECT_EQ(std::tuple(placed[4].text, placed[5].text), std::tuple(u"A"_s, u"A1"_s));
}

// A wide folder runs onto page 2: its uprights there start at the top, and no title repeats.
TEST(TreePrinter, PageChangeStartsUprightsAtTheTop)
{
    std::vector<std::pair<QString, int>> nodes = { { u"Jazz (d:)"_s, -1 } };
    for (int i = 1; i <= 60; ++i)
        nodes.push_back({ u"Ordner %1"_s.arg(i), 0 });
    RecordingPrinter printer(testPaper());
    ASSERT_TRUE(printTree(printer, ListedTree(nodes)).printed());
    EXPECT_EQ(pageCount(printer), 2);
    std::vector<double> uprightTops; // on page 2
    for (const RecordingPrinter::Item &line : printer.lines()) {
        if (line.page == 2 && line.x == line.x2 && line.y2 - line.y > 100 / twipsPerCm)
            uprightTops.push_back(line.y);
    }
    EXPECT_GT(uprightTops.size(), 10u);
    EXPECT_EQ(uprightTops, std::vector<double>(uprightTops.size(), 0));
    EXPECT_TRUE(std::ranges::none_of(textsOnPage(printer, 2), [](const Placed &p) { return p.text == u"Ordnerstruktur"_s; }));
}

TEST(PrintFolderTree, SizesFromTheBoxAndItsFailures)
{
    const ListedTree empty({});
    using enum PrintOutcome::Status;
    const std::tuple<const char *, QString, const PrintableTree *, PrintOutcome::Status, int> cases[] = {
        { "a size", u"12"_s, &kTree, Printed, 0 },
        { "empty box", u""_s, &kTree, Untrapped, 13 },
        { "beyond 16 bits", u"40000"_s, &kTree, Untrapped, 6 },
        { "an empty tree fails after the title", u"10"_s, &empty, Untrapped, 91 },
    };
    for (const auto &[what, size, tree, status, number] : cases) {
        SCOPED_TRACE(what);
        RecordingPrinter printer(testPaper());
        const PrintOutcome outcome
            = printFolderTree(printer, { u"Musik"_s, size, printMoment() }, u"Jazz"_s, *tree);
        EXPECT_EQ(std::tie(outcome.status, outcome.failure.number), std::tie(status, number));
        EXPECT_EQ(printer.finished(), status == Printed);
        if (status == Printed) {
            EXPECT_EQ(printer.texts()[1].text, u"* Archiv: Musik*** CD: Jazz"_s);
            EXPECT_EQ(printer.texts().back().font.size, 12);
        }
    }
}

TEST(PrintFolderTree, DeepLevelsEndWithTheirReportAndTheRestGoesOn)
{
    // Past about 77 levels the position leaves 16 bits: that level ends, those above go on.
    std::vector<std::pair<QString, int>> nodes = { { u"R"_s, -1 } };
    for (int level = 1; level <= 90; ++level)
        nodes.push_back({ u"L%1"_s.arg(level), level - 1 });
    nodes.push_back({ u"Nachbar"_s, 0 });
    RecordingPrinter printer(RecordingPrinter::Paper { 21, 20, 1000 });
    const PrintOutcome outcome
        = printFolderTree(printer, { u"Musik"_s, u"10"_s, printMoment() }, u"Jazz"_s, ListedTree(nodes));
    EXPECT_TRUE(outcome.printed());
    EXPECT_EQ(outcome.levelReports, QStringList { u"Error in Printing Maintree, please contact Support!"_s });
    EXPECT_EQ(printer.texts().back().text, u"Nachbar"_s);
}

} // namespace
