#pragma once

#include "print/PrintOutcome.h"
#include "print/Printer.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

// One print-out from a dialog: the device of the chosen entry, the wait window with the pages
// so far and a cancel, and the outcome told the way the print-out reports it.
namespace printrun {

using Procedure = std::function<PrintOutcome(Printer &printer)>;

// The printer of a list entry. "PDF-Datei" asks for the file; nothing after a cancel there,
// or, with a message, for a printer that has gone since the list was filled.
std::unique_ptr<Printer> printerFor(QWidget *parent, const QString &entry);

// Prints with the quality given, if any; true when the print-out went out whole.
bool print(QWidget *parent, Printer &printer, std::optional<int> quality, const Procedure &procedure);

// Shows the same pages in a preview window, from which they can also be printed.
void preview(QWidget *parent, std::optional<int> quality, const Procedure &procedure);

// Tells the user what the outcome asks for: a refusal, a report, a run-time error.
void tell(QWidget *parent, const PrintOutcome &outcome);

} // namespace printrun
