#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"

#include "archives/ArchiveCatalog.h"
#include "transfer/OldDatabaseImport.h"

namespace {

const QString kName = QStringLiteral("--name");
const char *const kUsage = "import-ini DATEI [--name NAME]";

int importIni(CliContext &context)
{
    const CliOptions options(context.words, { kName });
    if (!options.ok() || options.plainWords().size() != 1)
        return usageError(kUsage);
    CliData data(context);
    if (!data.ok())
        return refuse(data.problem());
    const QString file = options.plainWords().first();
    const QString name = options.has(kName) ? options.value(kName) : olddatabase::archiveNameFor(file);
    if (ArchiveCatalog(data.dataFolder()).names().contains(name))
        return refuse(ArchiveCatalog::duplicateNameMessage(name));
    const olddatabase::ImportResult result = olddatabase::importIni(file, data.dataFolder(), name);
    if (!result.ok())
        return refuse(result.error);
    // The archive exists and holds the rest: a note, not a refusal.
    if (!result.leftOut.isEmpty())
        printError(olddatabase::leftOutMessage(result.leftOut));
    printLine(name);
    return ExitOk;
}

const CliCommand registration("import-ini", kUsage, &importIni,
    "Macht aus der Text-Datenbank (.ini) einer älteren Version ein neues Archiv und nennt seinen Namen; die "
    "Laufwerksabbilder kommen aus dem Ordner LWS neben dem Ordner der Datei. Abschnitte, die nicht "
    "übernommen werden können, nennt ein Hinweis auf der Fehlerausgabe; die übrigen werden importiert.");

} // namespace
