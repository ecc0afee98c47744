#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"

#include "transfer/Backup.h"
#include "transfer/HtmlExport.h"

#include <QDir>

namespace {

const QString kReplace = QStringLiteral("--replace");

const char *const kBackupUsage = "backup DATEI [--replace]";
const char *const kRestoreUsage = "restore DATEI [--replace]";
const char *const kExportUsage = "export html DATEI";

int exportCommand(CliContext &context)
{
    if (context.words.size() != 2 || context.words.first() != QLatin1String("html"))
        return usageError(kExportUsage);
    CliData data(context);
    const QString archive = data.archiveOrRefuse();
    if (archive.isEmpty())
        return ExitRefused;
    const htmlexport::Result result
        = htmlexport::exportArchiveToHtml(archive, QDir().absoluteFilePath(context.words[1]));
    for (const QString &page : result.pages)
        printLine(page);
    return result.ok() ? ExitOk : refuse(result.error);
}

int backupCommand(CliContext &context)
{
    const CliOptions options(context.words, {}, { kReplace });
    if (!options.ok() || options.plainWords().size() != 1)
        return usageError(kBackupUsage);
    CliData data(context);
    const QString archive = data.archiveOrRefuse();
    if (archive.isEmpty())
        return ExitRefused;
    const QString error = backup::write(archive, data.dataFolder(), QDir().absoluteFilePath(options.plainWords().first()),
        options.has(kReplace));
    return error.isEmpty() ? ExitOk : refuse(error);
}

int restoreCommand(CliContext &context)
{
    const CliOptions options(context.words, {}, { kReplace });
    if (!options.ok() || options.plainWords().size() != 1)
        return usageError(kRestoreUsage);
    CliData data(context);
    if (!data.ok())
        return refuse(data.problem());
    const bool replace = options.has(kReplace);
    const backup::RestoreResult result
        = backup::restore(options.plainWords().first(), data.dataFolder(), [replace](const QString &) { return replace; });
    if (!result.ok())
        return refuse(result.error);
    for (const QString &written : result.written)
        printLine(written);
    for (const QString &notice : result.notices)
        printError(notice);
    return ExitOk;
}

const CliCommand exportRegistration("export", kExportUsage, &exportCommand,
    "Schreibt das Archiv als HTML-Seiten zu je 15 CDs und nennt jede geschriebene Seite.");
const CliCommand backupRegistration("backup", kBackupUsage, &backupCommand,
    "Schreibt das Archiv mit seinen Laufwerksabbildern und Covern in eine Backup-Datei (.bup); eine "
    "vorhandene Datei wird nur mit --replace ersetzt.");
const CliCommand restoreRegistration("restore", kRestoreUsage, &restoreCommand,
    "Stellt ein Backup im Datenordner wieder her und nennt jede geschriebene Datei; ein vorhandenes Archiv "
    "wird nur mit --replace ersetzt.");

} // namespace
