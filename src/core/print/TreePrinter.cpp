#include "TreePrinter.h"

#include "ListPrints.h"
#include "PageFrame.h"
#include "Printer.h"

#include "app/NumberText.h"
#include "common/Numbers.h"

#include <limits>

namespace {

constexpr int rootLeft = 550;
constexpr int indent = 220;
constexpr int tickDown = 50;
constexpr int tickAcross = 200;
constexpr int connectorWidth = 4;

const QString headerFailure = QStringLiteral("Error in Procedure Headerprint, please contact Support!");
const QString levelFailure = QStringLiteral("Error in Printing Maintree, please contact Support!");

RuntimeFailure overflow()
{
    return { 6, QStringLiteral("Überlauf") };
}

// A signed 16-bit whole number, rounded half to even, or nothing where it would overflow.
std::optional<int16_t> toInt16(double value)
{
    const int64_t whole = bankersRound(value);
    if (whole < std::numeric_limits<int16_t>::min() || whole > std::numeric_limits<int16_t>::max())
        return std::nullopt;
    return static_cast<int16_t>(whole);
}

} // namespace

// One run of printTree: the printer, the properties and the reports so far.
struct TreePrinter::Run
{
    const TreePrinter &tree;
    Printer &printer;
    PrintOutcome outcome;

    // The printer refuses a font of no size, as it does for any size out of its range.
    bool setSize(int16_t size)
    {
        if (std::holds_alternative<RuntimeFailure>(fontSizeFrom(QString::number(size))))
            return false;
        printer.setFontSize(size);
        return true;
    }

    void printCentred(const QString &text)
    {
        printer.setCurrentX((printer.width() - printer.textWidth(text)) / 2);
        printer.print(text);
    }

    void printHeader()
    {
        printer.setCurrentY(printer.textHeight(QStringLiteral("Footer")) * 4);
        const QString &title = tree.title();
        const QString &second = tree.secondTitle();
        if (!title.isEmpty()) {
            setSize(10);
            printer.setFontBold(tree.titleFontBold());
            printCentred(QStringLiteral("Ordnerstruktur"));
            if (!setSize(tree.titleFontSize())) {
                outcome.levelReports.append(headerFailure);
                return;
            }
            printCentred(title);
            setSize(8);
            printCentred(QStringLiteral("Erstellt mit dem Silberbuch 5.1 von ") + printedWebAddress());
            printCentred(dateText(tree.m_printedAt) + QStringLiteral("      ---      ") + timeText(tree.m_printedAt));
        }
        if (!second.isEmpty()) {
            if (!setSize(tree.secondTitleFontSize())) {
                outcome.levelReports.append(headerFailure);
                return;
            }
            printer.setFontBold(tree.secondTitleFontBold());
            printCentred(second);
        }
        if (!title.isEmpty() || !second.isEmpty()) {
            printer.print(QString());
            printer.print(QString());
        }
    }

    // The short stroke down at x from the current line, and the stroke across that follows it.
    void stubDown(double x)
    {
        const double from = printer.currentY();
        if (tree.connectorStyle() == 1)
            printer.line(printer.currentX() + x, from, printer.currentX() + x, from + tickDown);
        else {
            printer.setCurrentX(printer.currentX() + x);
            printer.setCurrentY(from + tickDown);
        }
    }

    void stubAcross()
    {
        if (tree.connectorStyle() == 1)
            printer.lineTo(printer.currentX() + tickAcross, printer.currentY());
        else
            printer.setCurrentX(printer.currentX() + tickAcross);
    }

    // Depth first: the child with its whole branch, then the next sibling. Siblings follow in
    // a loop where each would be the last call of the level before it; a failure ends the
    // level that meets it, and the levels above go on.
    void printBranch(int node, int level, int x, int lineX, int lineY)
    {
        const PrintableTree &nodes = *tree.m_tree;
        while (!printer.stopped()) {
            const int page0 = printer.page();
            if (const int child = nodes.child(node); child >= 0) {
                stubDown(x + indent);
                stubAcross();
                const auto newX = toInt16(printer.currentX());
                const auto newY = toInt16(printer.currentY() - tickDown);
                const auto newLineX = toInt16(printer.currentX() - tickAcross);
                if (!newX || !newY || !newLineX) {
                    outcome.levelReports.append(levelFailure);
                    return;
                }
                printer.print(nodes.text(child));
                printBranch(child, level + 1, *newX, *newLineX, printer.page() != page0 ? 0 : *newY);
            }
            const int sibling = nodes.nextSibling(node);
            if (sibling < 0 || (level == 0 && tree.printStyle() == 2))
                return;
            if (level != 0) {
                stubDown(lineX);
                if (tree.connectorStyle() == 1)
                    printer.line(lineX, printer.page() == page0 ? lineY : 0, lineX, printer.currentY());
                stubAcross();
            }
            const auto newX = toInt16(printer.currentX());
            if (!newX) {
                outcome.levelReports.append(levelFailure);
                return;
            }
            printer.print(nodes.text(sibling));
            if (printer.page() != page0)
                lineY = 0;
            node = sibling;
            x = *newX;
        }
    }
};

PrintOutcome TreePrinter::printTree(Printer &printer)
{
    Run run { *this, printer, {} };
    printer.setFontName(QStringLiteral("Arial"));
    const int start = m_printStyle == 1 ? m_tree->firstNode() : m_tree->selectedNode();
    run.printHeader();
    if (!run.setSize(m_fontSize)) {
        PrintOutcome failed = failedPrint({ 380, QStringLiteral("Ungültiger Eigenschaftswert") }, PrintTrap::None);
        failed.levelReports = run.outcome.levelReports;
        return failed;
    }
    printer.setFontBold(m_fontBold);
    printer.setDrawWidth(connectorWidth);
    printer.setScaleMode(Printer::Scale::Twips);
    if (start < 0) {
        // There is no node to print, and nothing tests for that.
        PrintOutcome failed = failedPrint(
            { 91, QStringLiteral("Objektvariable oder With-Blockvariable nicht festgelegt") }, PrintTrap::None);
        failed.levelReports = run.outcome.levelReports;
        return failed;
    }
    printer.setCurrentX(rootLeft);
    printer.print(m_tree->text(start));
    run.printBranch(start, 0, rootLeft, rootLeft, 0);
    printer.endDoc();
    PrintOutcome outcome = printOutcomeOf(printer, PrintTrap::None);
    outcome.levelReports = run.outcome.levelReports;
    return outcome;
}

PrintOutcome printFolderTree(
    Printer &printer, const PrintSettings &settings, const QString &title, const PrintableTree &tree)
{
    const std::optional<double> number = parseNumberText(settings.fontSizeText);
    if (!number)
        return failedPrint({ 13, QStringLiteral("Typen unverträglich") }, PrintTrap::None);
    const auto size = toInt16(*number);
    if (!size)
        return failedPrint(overflow(), PrintTrap::None);
    TreePrinter printout;
    printout.setFontBold(false);
    printout.setFontSize(*size);
    printout.setPrintFooter(false);
    printout.setPrintStyle(1);
    printout.setSecondTitle(QString());
    printout.setSecondTitleFontBold(false);
    printout.setSecondTitleFontSize(*size);
    printout.setTitle(QStringLiteral("* Archiv: ") + settings.archiveName + QStringLiteral("*** CD: ") + title);
    printout.setTitleFontBold(false);
    printout.setTitleFontSize(*size);
    printout.setConnectorStyle(1);
    printout.setTreeView(tree);
    printout.setPrintedAt(settings.printedAt);
    return printout.printTree(printer);
}
