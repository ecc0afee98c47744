#include "ListPrints.h"

#include "PageFrame.h"
#include "Printer.h"

#include "common/Cp1252.h"
#include "images/LineBlockReader.h"
#include "images/LineScanner.h"
#include "search/ResultColumns.h"
#include "services/ServiceRequest.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <optional>
#include <string_view>

namespace {

const QString listEnd = QStringLiteral("- Ende der Liste -");
// A list box counts its lines with a signed 16-bit counter.
constexpr qsizetype counterLimit = 32767;

RuntimeFailure overflow()
{
    return { 6, QStringLiteral("Überlauf") };
}

void printAt(Printer &printer, double x, const QString &line)
{
    printer.setCurrentX(x);
    printer.print(line);
}

// Where the comment, file and result lists differ; the rest of their pages is one body.
struct ListBody
{
    QString captionTail; // " * CD: " + title, or " * Suche nach " + word
    QString secondHead; // "* CD: " + title, or "* Suche nach: " + word
    double x = 2;
    bool xBeforeTest = false; // so a new page's first line stands at the paper's edge
    bool testAfterLast = true;
    PrintTrap trap = PrintTrap::Full;
};

using LineSink = std::function<void(const QString &out)>;
// Hands each line to print to the sink; a failure ends the print-out.
using LineSource = std::function<std::optional<RuntimeFailure>(const LineSink &sink)>;

PrintOutcome printList(Printer &printer, const PrintSettings &settings, const ListBody &body, const LineSource &source)
{
    auto setUp = PageFrame::startJob(printer, settings.fontSizeText);
    if (const auto *failure = std::get_if<RuntimeFailure>(&setUp))
        return failedPrint(*failure, body.trap);
    PageFrame &frame = std::get<PageFrame>(setUp);
    const QString caption = QStringLiteral(" Archiv: ") + settings.archiveName + body.captionTail;
    // One blank fewer after the dash than the footers of the later pages.
    frame.printFooter(PageFrame::pageText(1) + QStringLiteral(" -") + caption);

    printer.setCurrentY(2);
    for (const QString &head : { QStringLiteral("* Archiv: ") + settings.archiveName, body.secondHead,
             QStringLiteral("* Stand: ") + dateText(settings.printedAt) + QLatin1Char(' ')
                 + timeText(settings.printedAt),
             QStringLiteral("* Erstellt mit dem Silberbuch 5.1"), QStringLiteral("* ") + printedWebAddress(),
             QString() }) {
        // Only a large font fills a page with the head.
        if (frame.overflows())
            frame.startNextPage(true, caption);
        printAt(printer, 2, head);
    }

    const std::optional<RuntimeFailure> failure = source([&](const QString &out) {
        if (printer.stopped())
            return;
        if (body.xBeforeTest)
            printer.setCurrentX(body.x);
        if (frame.overflows())
            frame.startNextPage(true, caption);
        if (!body.xBeforeTest)
            printer.setCurrentX(body.x);
        printer.print(out);
    });
    if (failure)
        return failedPrint(*failure, body.trap);
    if (printer.stopped())
        return printOutcomeOf(printer, body.trap);
    if (body.testAfterLast && frame.overflows())
        frame.startNextPage(true, caption);
    printAt(printer, 2, QString());
    printAt(printer, 2, listEnd);
    printer.endDoc();
    return printOutcomeOf(printer, body.trap);
}

// The title list tests after each line: a full page gets this footer over the one it began with.
void closeFullPage(PageFrame &frame)
{
    if (frame.overflows()) {
        frame.printFooter(PageFrame::pageText(frame.pageNumber()) + QStringLiteral(" -"));
        frame.startNextPage(true, QString());
    }
}

// The out text of an image line; an empty line leaves it as it was.
void cutImageLine(std::string_view line, FileListColumns columns, QString &out)
{
    if (line.empty())
        return;
    if (line.front() == '>') {
        out = cp1252::toQString(line);
        return;
    }
    const size_t firstBar = line.find('|');
    std::string text(line.substr(0, firstBar));
    if (columns.size) {
        const std::string_view rest = firstBar == std::string_view::npos ? std::string_view() : line.substr(firstBar + 1);
        const size_t lastBar = rest.rfind('|');
        text += " * ";
        text += rest.substr(0, lastBar == std::string_view::npos ? 0 : lastBar);
        text += " Byte *";
    }
    if (columns.date) {
        text += " Date:";
        text += line.substr(line.rfind('|') + 1);
    }
    out = cp1252::toQString(text);
}

std::optional<RuntimeFailure> readImageLines(const QString &path, const std::function<void(std::string_view)> &onLine)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return RuntimeFailure { 53, QStringLiteral("Datei nicht gefunden") };
    struct stat info {};
    bool whole = ::fstat(fd, &info) == 0;
    if (whole) {
        LineBlockReader reader(fd, static_cast<uint64_t>(info.st_size));
        LineBlockReader::Block block;
        while (reader.next(block))
            linescanner::forEachLine(block.data, block.size, [&](std::string_view line, size_t) { onLine(line); });
        whole = reader.readWhole();
    }
    ::close(fd);
    if (!whole)
        return RuntimeFailure { 57, QStringLiteral("Geräte-E/A-Fehler") };
    return std::nullopt;
}

} // namespace

QString printedWebAddress()
{
    return service::vendorWebAddress();
}

QString dateText(const QDateTime &when)
{
    return when.toString(QStringLiteral("dd.MM.yyyy"));
}

QString timeText(const QDateTime &when)
{
    return when.toString(QStringLiteral("hh:mm:ss"));
}

PrintOutcome printCdList(Printer &printer, const PrintSettings &settings, const QStringList &cdListEntries)
{
    auto setUp = PageFrame::startJob(printer, settings.fontSizeText);
    if (const auto *failure = std::get_if<RuntimeFailure>(&setUp))
        return failedPrint(*failure, PrintTrap::Short);
    PageFrame &frame = std::get<PageFrame>(setUp);
    printer.setCurrentY(2);
    for (const QString &head : { QStringLiteral("--- Archiv: ") + settings.archiveName
                 + QStringLiteral(". Liste der CD-Titel Stand: ") + dateText(settings.printedAt) + QLatin1Char(' ')
                 + timeText(settings.printedAt) + QStringLiteral(" ---"),
             QStringLiteral("---") + QString(21, QLatin1Char(' ')) + QStringLiteral("Erstellt mit dem Silberbuch 5.1")
                 + QString(18, QLatin1Char(' ')) + QStringLiteral("---"),
             QStringLiteral("---") + QString(29, QLatin1Char(' ')) + printedWebAddress()
                 + QString(26, QLatin1Char(' ')) + QStringLiteral("---"),
             QString() }) {
        printAt(printer, 2, head);
        // Only a large font fills a page with the head.
        closeFullPage(frame);
    }
    if (cdListEntries.size() - 1 > counterLimit)
        return failedPrint(overflow(), PrintTrap::Short);
    for (const QString &entry : cdListEntries) {
        if (printer.stopped())
            return printOutcomeOf(printer, PrintTrap::Short);
        printAt(printer, 3, QStringLiteral("Nr. ") + entry);
        closeFullPage(frame);
    }
    printAt(printer, 2, QString());
    printAt(printer, 3, listEnd);
    printer.endDoc();
    return printOutcomeOf(printer, PrintTrap::Short);
}

PrintOutcome printCommentList(
    Printer &printer, const PrintSettings &settings, const QString &title, const QStringList &comments)
{
    ListBody body { QStringLiteral(" * CD: ") + title, QStringLiteral("* CD: ") + title, 3, true, false,
        PrintTrap::Short };
    return printList(printer, settings, body, [&](const LineSink &sink) -> std::optional<RuntimeFailure> {
        if (comments.size() - 1 > counterLimit)
            return overflow();
        for (const QString &comment : comments)
            sink(comment);
        return std::nullopt;
    });
}

PrintOutcome printFileList(Printer &printer, const PrintSettings &settings, const QString &title,
    const QString &imagePath, FileListColumns columns)
{
    if (!QFileInfo::exists(imagePath)) {
        PrintOutcome refused;
        refused.status = PrintOutcome::Status::Refused;
        refused.message = QStringLiteral("Kein Laufwerks_Abbild verfügbar!");
        return refused;
    }
    ListBody body { QStringLiteral(" * CD: ") + title, QStringLiteral("* CD: ") + title };
    return printList(printer, settings, body, [&](const LineSink &sink) {
        QString out;
        return readImageLines(imagePath, [&](std::string_view line) {
            if (printer.stopped())
                return;
            cutImageLine(line, columns, out);
            sink(out);
        });
    });
}

PrintOutcome printSearchHits(Printer &printer, const PrintSettings &settings, const QString &searchWord,
    const std::vector<HitEntry> &hits)
{
    ListBody body { QStringLiteral(" * Suche nach ") + searchWord, QStringLiteral("* Suche nach: ") + searchWord,
        2, false, true, PrintTrap::None };
    return printList(printer, settings, body, [&](const LineSink &sink) -> std::optional<RuntimeFailure> {
        QString out;
        for (const HitEntry &entry : hits) {
            if (printer.stopped())
                break;
            if (!entry.text.isEmpty()) {
                auto line = ResultColumns::fileLine(entry);
                if (const auto *failure = std::get_if<RuntimeFailure>(&line))
                    return *failure;
                out = std::get<QString>(std::move(line));
            } else if (const qsizetype lt = out.indexOf(QLatin1Char('<')); lt >= 0) {
                out[lt] = QLatin1Char(' ');
            }
            sink(out);
        }
        return std::nullopt;
    });
}
