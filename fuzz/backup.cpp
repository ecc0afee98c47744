#include "FuzzFile.h"
#include "transfer/Backup.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

// Restores each input into a data folder of this process and checks what became of it: a
// refused backup leaves the folder empty, a restored one wrote only into its three folders.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString file = QString::fromStdString(fuzzFile("bup", data, size));
    QDir dataFolder(file + QStringLiteral(".data"));
    dataFolder.removeRecursively();
    dataFolder.mkpath(QStringLiteral("."));
    const backup::RestoreResult result
        = backup::restore(file, dataFolder.path(), [](const QString &) { return false; });
    if (!result.ok() && !dataFolder.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        __builtin_trap();
    const QStringList folders { QStringLiteral("archive"), QStringLiteral("lws"), QStringLiteral("Covers") };
    for (const QString &written : result.written) {
        const QString parent = QFileInfo(written).absoluteDir().canonicalPath();
        const bool inside = std::any_of(folders.begin(), folders.end(),
            [&](const QString &folder) { return parent == QDir(dataFolder.filePath(folder)).canonicalPath(); });
        if (!inside || !QFileInfo(written).isFile())
            __builtin_trap();
    }
    dataFolder.removeRecursively();
    return 0;
}
