#include "PrintOutcome.h"

#include "Printer.h"

namespace {

const QString checkPrinter = QStringLiteral("Fehler! Es konnte nicht gedruckt werden. Stellen Sie sicher, dass ein "
                                            "Drucker angeschlossen und korrekt eingestellt ist.");

} // namespace

PrintOutcome failedPrint(const RuntimeFailure &failure, PrintTrap trap)
{
    PrintOutcome outcome;
    switch (trap) {
    case PrintTrap::Full:
        outcome.status = PrintOutcome::Status::Reported;
        outcome.message = checkPrinter + QStringLiteral("\r\nFehlernummer: ") + QString::number(failure.number)
            + QStringLiteral("\r\nFehler-Beschreibung: ") + failure.text;
        break;
    case PrintTrap::Short:
        outcome.status = PrintOutcome::Status::Reported;
        outcome.message = checkPrinter;
        break;
    case PrintTrap::None:
        outcome.status = PrintOutcome::Status::Untrapped;
        outcome.failure = failure;
        break;
    }
    return outcome;
}

PrintOutcome printOutcomeOf(const Printer &printer, PrintTrap trap)
{
    if (printer.failure())
        return failedPrint(*printer.failure(), trap);
    PrintOutcome outcome;
    if (printer.cancelled())
        outcome.status = PrintOutcome::Status::Cancelled;
    return outcome;
}
