#include "CliCommand.h"
#include "CliData.h"

#include "archives/ArchiveCatalog.h"
#include "archives/ArchiveStore.h"

namespace {

const char *const kUsage = "archive list | create NAME | delete NAME | default NAME | convert NAME";

// Converts an archive of the Windows version now rather than at its first use.
int convert(CliData &data, const QString &name)
{
    QString problem;
    const QString path = data.archivePathOf(name, &problem);
    if (path.isEmpty())
        return refuse(problem);
    const StoreResult<std::vector<CdRow>> rows = ArchiveStore(path).selectAll();
    if (!rows.ok())
        return refuse(rows.error.message);
    printLine(QString::number(rows.value.size()));
    return ExitOk;
}

int archive(CliContext &context)
{
    const QStringList &words = context.words;
    const QString action = words.value(0);
    const bool list = action == QLatin1String("list") && words.size() == 1;
    const bool named = (action == QLatin1String("create") || action == QLatin1String("delete")
                           || action == QLatin1String("default") || action == QLatin1String("convert"))
        && words.size() == 2;
    if (!list && !named)
        return usageError(kUsage);

    CliData data(context);
    if (!data.ok())
        return refuse(data.problem());
    const ArchiveCatalog catalog(data.dataFolder());
    if (list) {
        for (const QString &name : catalog.names())
            printLine(name);
        return ExitOk;
    }
    const QString &name = words[1];
    if (action == QLatin1String("default")) {
        if (!catalog.names().contains(name))
            return refuse(archiveNotFoundMessage());
        const QString confirmation = setDefaultArchive(data.settings(), name);
        if (confirmation.isEmpty())
            return refuse(data.settings().writeFailure());
        printLine(confirmation);
        return ExitOk;
    }
    if (action == QLatin1String("convert"))
        return convert(data, name);
    const ArchiveError error
        = action == QLatin1String("create") ? catalog.create(name, catalog.names()) : catalog.remove(name);
    return error.ok() ? ExitOk : refuse(error.message);
}

const CliCommand registration(
    "archive", kUsage, &archive,
    "Archive auflisten, anlegen, löschen, als Standard festlegen oder ein Archiv der Windows-Version umwandeln (die Zahl seiner CDs wird ausgegeben).");

} // namespace
