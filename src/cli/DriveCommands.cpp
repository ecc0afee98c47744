#include "CliCommand.h"

#include "app/Settings.h"
#include "images/DriveTable.h"

namespace {

const char *const kUsage = "drives [add BUCHSTABE ORDNER | remove BUCHSTABE]";

// One drive a line: letter, label, mount point and serial (the image id), tab-separated.
void printDrive(const Drive &drive)
{
    const QChar tab = QLatin1Char('\t');
    printLine(
        drive.letter + tab + drive.label + tab + drive.mountPoint + tab + QString::number(drive.serial));
}

int drives(CliContext &context)
{
    Settings settings;
    DriveTable table(settings);
    const QStringList &words = context.words;
    if (words.isEmpty()) {
        for (const Drive &drive : table.drives())
            printDrive(drive);
        return ExitOk;
    }
    if (words.first() == QLatin1String("remove") && words.size() == 2) {
        const QString problem = table.removeFolder(words[1]);
        if (!problem.isEmpty()) {
            printError(problem);
            return ExitRefused;
        }
        return ExitOk;
    }
    if (words.first() != QLatin1String("add") || words.size() != 3) {
        printError(QStringLiteral("Aufruf: silberbuch-cli ") + QString::fromUtf8(kUsage));
        return ExitUsage;
    }
    const AddDriveResult added = table.addFolder(words[1], words[2]);
    if (!added.ok()) {
        printError(added.error);
        return ExitRefused;
    }
    printDrive(added.drive);
    return ExitOk;
}

const CliCommand registration(
    "drives", kUsage, &drives,
    "Zeigt die Laufwerke mit Buchstaben und Ordner; add nimmt einen Ordner als Laufwerk auf, remove entfernt ihn wieder.");

} // namespace
