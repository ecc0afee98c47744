#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"
#include "FileSearchCall.h"

#include "archives/ArchiveStore.h"
#include "archives/CdList.h"
#include "images/FolderTree.h"
#include "images/ImageIndex.h"
#include "print/CdOnDisplay.h"
#include "print/ListPrints.h"
#include "print/PdfPrinter.h"
#include "print/PrintedFolderTree.h"
#include "print/SheetPrint.h"
#include "print/TreePrinter.h"
#include "printers/SystemPrinter.h"

#include <QDir>
#include <QFileInfo>

#include <memory>

namespace {

const char *const kUsage
    = "print list (--pdf DATEI | --printer NAME) [--font-size P]\n"
      "  print comments N (--pdf DATEI | --printer NAME) [--font-size P]\n"
      "  print files N [--size] [--no-date] (--pdf DATEI | --printer NAME) [--font-size P]\n"
      "  print tree N (--pdf DATEI | --printer NAME) [--font-size P]\n"
      "  print sheet N [--no-cover] [--comment-size P] (--pdf DATEI | --printer NAME) [--font-size P]\n"
      "  print results WORT [--cd N] [--exact] (--pdf DATEI | --printer NAME) [--font-size P]\n"
      "  print --printers";

const QString kPdf = QStringLiteral("--pdf");
const QString kPrinter = QStringLiteral("--printer");
const QString kFontSize = QStringLiteral("--font-size");
const QString kCommentSize = QStringLiteral("--comment-size");
const QString kCd = QStringLiteral("--cd");
const QString kSize = QStringLiteral("--size");
const QString kNoDate = QStringLiteral("--no-date");
const QString kNoCover = QStringLiteral("--no-cover");
const QString kExact = QStringLiteral("--exact");
const QString kPrinters = QStringLiteral("--printers");

// The print-outs, the words each takes after its name, and the options of its own.
struct PrintForm
{
    QString what;
    int words;
    QStringList ownOptions;
};

const PrintForm forms[] = {
    { QStringLiteral("list"), 0, {} },
    { QStringLiteral("comments"), 1, {} },
    { QStringLiteral("files"), 1, { kSize, kNoDate } },
    { QStringLiteral("tree"), 1, {} },
    { QStringLiteral("sheet"), 1, { kNoCover, kCommentSize } },
    { QStringLiteral("results"), 1, { kCd, kExact } },
};

bool allDigits(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

// The call fits its form: one target, each value option once, no option of another form.
bool fitsForm(const CliOptions &options, const PrintForm &form)
{
    if (options.plainWords().size() != form.words + 1 || options.has(kPrinters))
        return false;
    if (options.has(kPdf) == options.has(kPrinter))
        return false;
    for (const QString &option : { kPdf, kPrinter, kFontSize, kCommentSize, kCd }) {
        if (options.values(option).size() > 1)
            return false;
    }
    for (const PrintForm &other : forms) {
        for (const QString &option : other.ownOptions) {
            if (options.has(option) && !form.ownOptions.contains(option))
                return false;
        }
    }
    // The size box takes digits only.
    return !options.has(kFontSize) || allDigits(options.value(kFontSize));
}

int exitFor(const PrintOutcome &outcome)
{
    for (const QString &report : outcome.levelReports)
        printError(report);
    switch (outcome.status) {
    case PrintOutcome::Status::Printed:
        return ExitOk;
    case PrintOutcome::Status::Untrapped:
        return refuse(outcome.failure.message());
    default:
        return refuse(outcome.message);
    }
}

// What a print-out of one CD reads: the CD as the main window would show it.
struct ShownCd
{
    CdOnDisplay shown;
    QString problem;
};

ShownCd showCd(const ArchiveStore &store, const QString &dataFolder, const QString &word)
{
    const std::optional<int32_t> number = wholeNumber(word);
    if (!number)
        return { {}, cdNumberNotWholeMessage() };
    const StoreResult<CdRow> row = store.selectByNumber(*number);
    if (!row.ok())
        return { {}, row.error.message };
    auto shown = cdOnDisplay(dataFolder, row.value);
    if (const auto *failure = std::get_if<RuntimeFailure>(&shown))
        return { {}, failure->message() };
    return { std::get<CdOnDisplay>(std::move(shown)), {} };
}

PrintOutcome printCd(Printer &printer, const PrintSettings &settings, const CliOptions &options, const CdOnDisplay &cd)
{
    const QString &what = options.plainWords().first();
    const SheetContent &content = cd.content;
    if (what == QLatin1String("comments"))
        return printCommentList(printer, settings, content.title, content.comments);
    if (what == QLatin1String("files"))
        return printFileList(
            printer, settings, content.title, cd.imagePath, { options.has(kSize), !options.has(kNoDate) });
    if (what == QLatin1String("sheet"))
        return printCdSheet(printer, settings, content,
            { options.has(kCommentSize) ? options.value(kCommentSize) : QStringLiteral("10"),
                !options.has(kNoCover) });
    // The tree comes from the image, as the main window's image tab shows it.
    const std::shared_ptr<const ImageIndex> image = ImageIndex::load(cd.imagePath);
    if (content.imageId == QLatin1String("0") || !image->isLoaded()) {
        PrintOutcome refused;
        refused.status = PrintOutcome::Status::Refused;
        refused.message = QStringLiteral("Kein Laufwerks_Abbild verfügbar!");
        return refused;
    }
    const FolderTree folders(*image, content.title);
    return printFolderTree(printer, settings, content.title, PrintedFolderTree(folders));
}

int printCommand(CliContext &context)
{
    const CliOptions options(
        context.words, { kPdf, kPrinter, kFontSize, kCommentSize, kCd }, { kSize, kNoDate, kNoCover, kExact, kPrinters });
    if (options.ok() && options.has(kPrinters) && context.words.size() == 1) {
        for (const QString &name : SystemPrinter::deviceNames())
            printLine(name);
        return ExitOk;
    }
    if (!options.ok() || options.plainWords().isEmpty())
        return usageError(kUsage);
    const auto form = std::find_if(std::begin(forms), std::end(forms),
        [&](const PrintForm &candidate) { return candidate.what == options.plainWords().first(); });
    if (form == std::end(forms) || !fitsForm(options, *form))
        return usageError(kUsage);

    CliData data(context);
    const QString archive = data.archiveOrRefuse();
    if (archive.isEmpty())
        return ExitRefused;
    const ArchiveStore store(archive);
    PrintSettings settings { QFileInfo(archive).completeBaseName(),
        options.has(kFontSize) ? options.value(kFontSize) : QStringLiteral("10"), QDateTime::currentDateTime() };

    // Everything is read before the printer is chosen, so a refusal leaves no job behind.
    QStringList listEntries;
    ShownCd cd;
    std::vector<HitEntry> hits;
    const QString &what = form->what;
    if (what == QLatin1String("list")) {
        const StoreResult<std::vector<CdRow>> rows = store.selectAll();
        if (!rows.ok())
            return refuse(rows.error.message);
        const cdlist::Fill fill = cdlist::entriesOf(rows.value);
        if (!fill.error.isEmpty())
            printError(fill.error);
        listEntries = fill.entries;
    } else if (what == QLatin1String("results")) {
        std::optional<int> cdNumber;
        if (options.has(kCd) && !(cdNumber = wholeNumber(options.value(kCd))))
            return refuse(cdNumberNotWholeMessage());
        QString refusal;
        const FileSearchResult result
            = searchFiles(store, data.dataFolder(), options.plainWords()[1], cdNumber, options.has(kExact), &refusal);
        if (!refusal.isEmpty())
            return refuse(refusal);
        if (result.outcome != FileSearchOutcome::Hits)
            return refuse(result.message);
        hits = result.hits.entries();
    } else {
        cd = showCd(store, data.dataFolder(), options.plainWords()[1]);
        if (!cd.problem.isEmpty())
            return refuse(cd.problem);
    }

    std::unique_ptr<Printer> printer;
    if (options.has(kPdf)) {
        printer = std::make_unique<PdfPrinter>(QDir().absoluteFilePath(options.value(kPdf)));
    } else {
        printer = SystemPrinter::named(options.value(kPrinter));
        if (!printer)
            return refuse(QStringLiteral("Der Drucker ") + options.value(kPrinter) + QStringLiteral(" ist nicht eingerichtet."));
    }
    if (what == QLatin1String("list"))
        return exitFor(printCdList(*printer, settings, listEntries));
    if (what == QLatin1String("results"))
        return exitFor(printSearchHits(*printer, settings, options.plainWords()[1], hits));
    return exitFor(printCd(*printer, settings, options, cd.shown));
}

const CliCommand registration("print", kUsage, &printCommand,
    "Druckt die Liste der CD-Titel, die Kommentare, die Dateiliste, die Ordnerstruktur oder den Steckbrief einer "
    "CD oder die Treffer einer Dateisuche auf einen Drucker oder in eine PDF-Datei; --printers nennt die Drucker "
    "des Systems.");

} // namespace
