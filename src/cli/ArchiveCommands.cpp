#include "CliCommand.h"
#include "CliData.h"

#include "archives/ArchiveCatalog.h"

namespace {

const char *const kUsage = "archive list | create NAME | delete NAME | default NAME";

int archive(CliContext &context)
{
    const QStringList &words = context.words;
    const QString action = words.value(0);
    const bool list = action == QLatin1String("list") && words.size() == 1;
    const bool named = (action == QLatin1String("create") || action == QLatin1String("delete")
                           || action == QLatin1String("default"))
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
        printLine(setDefaultArchive(data.settings(), name));
        return ExitOk;
    }
    const ArchiveError error
        = action == QLatin1String("create") ? catalog.create(name, catalog.names()) : catalog.remove(name);
    return error.ok() ? ExitOk : refuse(error.message);
}

const CliCommand registration("archive", kUsage, &archive);

} // namespace
