#include "PrintRun.h"

#include "common/Prompts.h"
#include "images/ProgressWindow.h"
#include "screen/FileDialogs.h"

#include "print/PdfFileProposal.h"
#include "print/PdfPrinter.h"
#include "print/PrinterChoice.h"
#include "printers/SystemPrinter.h"

#include <QApplication>
#include <QFileInfo>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace printrun {

namespace {

// The printer of a list entry. "PDF-Datei" asks for the file; nothing after a cancel there,
// or, with a message, for a printer that has gone since the list was filled.
std::unique_ptr<Printer> printerFor(QWidget *parent, const QString &entry, const PdfFile &pdf)
{
    QString device = entry.isEmpty() ? SystemPrinter::defaultDeviceName() : entry;
    if (device.isEmpty())
        device = printerchoice::pdfFileEntry();
    if (device == printerchoice::pdfFileEntry()) {
        FileDialogs dialog(parent);
        dialog.filter = QStringLiteral("PDF|*.pdf");
        const QFileInfo proposal(proposedPdfFile(pdf.settings, pdf.printedName));
        dialog.fileName = proposal.fileName();
        dialog.initialFolder = proposal.path() == QStringLiteral(".") ? QString() : proposal.path();
        // The file name field carries the filter's extension; what the dialog returns may not.
        // "Nein" to replacing a file brings the dialog back.
        while (true) {
            if (dialog.askFileToSave().isEmpty())
                return nullptr;
            if (!QFileInfo::exists(dialog.fileName)
                || Prompts::message(parent, QStringLiteral("Wollen Sie die vorhandene Datei überschreiben?"),
                       Prompts::Icon::None, QStringLiteral("Überschreiben?"), Prompts::Buttons::YesNo)
                    == Prompts::Answer::Yes)
                break;
        }
        rememberPdfFolder(pdf.settings, dialog.fileName);
        return std::make_unique<PdfPrinter>(dialog.fileName);
    }
    std::unique_ptr<SystemPrinter> printer = SystemPrinter::named(device);
    if (!printer)
        Prompts::message(parent, QStringLiteral("Der Drucker ") + device + QStringLiteral(" ist nicht eingerichtet."),
            Prompts::Icon::Critical);
    return printer;
}

} // namespace

void tell(QWidget *parent, const PrintOutcome &outcome)
{
    for (const QString &report : outcome.levelReports)
        Prompts::message(parent, report, Prompts::Icon::Critical);
    switch (outcome.status) {
    case PrintOutcome::Status::Refused:
        Prompts::message(parent, outcome.message);
        break;
    case PrintOutcome::Status::Reported:
        Prompts::message(parent, outcome.message, Prompts::Icon::Critical);
        break;
    case PrintOutcome::Status::Untrapped:
        Prompts::runtimeError(parent, outcome.failure.number, outcome.failure.text);
        break;
    case PrintOutcome::Status::Printed:
    case PrintOutcome::Status::Cancelled:
        break;
    }
}

bool print(QWidget *parent, Printer &printer, std::optional<int> quality, const Procedure &procedure)
{
    // The wait window holds the other windows still; each page lets the events in, so it
    // shows the count and takes the cancel.
    auto *waiting = new class ProgressWindow(parent);
    waiting->setWindowModality(Qt::ApplicationModal);
    waiting->setText(QStringLiteral("Es wird gedruckt..."));
    waiting->setProgressText(QStringLiteral("Seite 1"));
    waiting->setCancellable(true);
    bool cancel = false;
    QObject::connect(waiting, &ProgressWindow::cancelRequested, waiting, [&cancel] { cancel = true; });
    waiting->show();
    QApplication::processEvents();
    printer.setPageWatcher([&](int page) {
        waiting->setProgressText(QStringLiteral("Seite ") + QString::number(page));
        QApplication::processEvents();
        return !cancel;
    });
    if (quality)
        printer.setPrintQuality(*quality);
    const PrintOutcome outcome = procedure(printer);
    printer.setPageWatcher({});
    waiting->close();
    tell(parent, outcome);
    return outcome.printed();
}

bool printOn(QWidget *parent, const QString &entry, const PdfFile &pdf, std::optional<int> quality,
    const Procedure &procedure)
{
    std::unique_ptr<Printer> printer = printerFor(parent, entry, pdf);
    if (!printer)
        return false;
    print(parent, *printer, quality, procedure);
    return true;
}

void preview(QWidget *parent, std::optional<int> quality, const Procedure &procedure)
{
    QPrinter device(QPrinter::HighResolution);
    QPrintPreviewDialog dialog(&device, parent);
    dialog.setObjectName(QStringLiteral("Vorschau"));
    dialog.setWindowTitle(QStringLiteral("Vorschau"));
    // A long list takes its time here too: the wait window counts the pages, and a cancel
    // leaves the preview with the pages drawn so far.
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter *target) {
        SystemPrinter printer(*target);
        print(&dialog, printer, quality, procedure);
    });
    dialog.exec();
}

} // namespace printrun
