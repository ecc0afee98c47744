#include "Installation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace installation {

namespace {

// Every resource folder holds the help page; a folder without it is someone else's.
bool holdsResources(const QString &folder)
{
    return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/Hilfe.html"));
}

} // namespace

QString versionText()
{
    return QStringLiteral("Silberbuch " SILBERBUCH_VERSION);
}

QString resourceFolder()
{
    return findResourceFolder(QCoreApplication::applicationDirPath(), QStringLiteral(SILBERBUCH_BUILD_SHARE));
}

QString findResourceFolder(const QString &executableFolder, const QString &buildCopy)
{
    const QString installed = QDir::cleanPath(executableFolder + QStringLiteral("/../share/silberbuch"));
    if (holdsResources(installed))
        return installed;
    return holdsResources(buildCopy) ? buildCopy : QString();
}

} // namespace installation
