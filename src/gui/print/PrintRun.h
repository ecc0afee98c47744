#pragma once

#include "print/PrintOutcome.h"
#include "print/Printer.h"

#include <QString>

#include <functional>
#include <optional>

class QWidget;
class Settings;

// One print-out from a dialog: the device of the chosen entry, the wait window with the pages
// so far and a cancel, and the outcome told the way the print-out reports it.
namespace printrun {

using Procedure = std::function<PrintOutcome(Printer &printer)>;

// What the file dialog of the PDF entry proposes and where it keeps the folder chosen.
struct PdfFile
{
    Settings &settings;
    QString printedName; // the CD's title, or empty for "Suchergebnis"
};

// Prints on the device of a list entry; false when none was chosen (the file dialog of the
// PDF entry cancelled, a printer gone), true once the job has run, whatever its outcome.
bool printOn(QWidget *parent, const QString &entry, const PdfFile &pdf, std::optional<int> quality,
    const Procedure &procedure);

// Prints with the quality given, if any; true when the print-out went out whole.
bool print(QWidget *parent, Printer &printer, std::optional<int> quality, const Procedure &procedure);

// Shows the same pages in a preview window, from which they can also be printed.
void preview(QWidget *parent, std::optional<int> quality, const Procedure &procedure);

// Tells the user what the outcome asks for: a refusal, a report, a run-time error.
void tell(QWidget *parent, const PrintOutcome &outcome);

} // namespace printrun
