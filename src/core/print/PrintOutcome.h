#pragma once

#include "search/RuntimeFailure.h"

#include <QString>
#include <QStringList>

class Printer;

// How a print-out ended, and what the user is to be told.
struct PrintOutcome
{
    enum class Status {
        Printed,
        Cancelled, // the user stopped it; nothing went out
        Refused, // message shown without an icon, nothing printed
        Reported, // the procedure's own failure report, with the stop icon
        Untrapped, // no report of its own: shown as a run-time error
    };

    Status status = Status::Printed;
    QString message; // Refused and Reported
    RuntimeFailure failure; // Untrapped
    // The tree printer's own reports, each with the stop icon; its levels go on after them.
    QStringList levelReports;

    bool printed() const { return status == Status::Printed; }
};

// How a procedure reports a failure inside its error trap.
enum class PrintTrap {
    Full, // three lines: the request to check the printer, number, description
    Short, // the first line alone
    None, // the failure is untrapped
};

PrintOutcome failedPrint(const RuntimeFailure &failure, PrintTrap trap);
// After the last output: cancelled, failed in the device, or printed.
PrintOutcome printOutcomeOf(const Printer &printer, PrintTrap trap);
