#include "DataFolder.h"

#include "TruthValue.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <optional>

QString programFolder()
{
    QString folder = qEnvironmentVariable("SILBERBUCH_HOME");
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                 + QStringLiteral("/Silberbuch");
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    QDir().mkpath(folder);
    return folder;
}

QString getDataFolder(Session &session, const Settings &settings, QString *fallbackMessage)
{
    if (!session.dataFolderCache.isEmpty())
        return session.dataFolderCache;

    QString path;
    const std::optional<bool> standardFolder = parseTruthValue(settings.value(SettingKey::pfad));
    if (standardFolder && *standardFolder)
        return programFolder();
    if (standardFolder) {
        path = settings.value(SettingKey::path, programFolder());
        // The options dialog stores what the user typed, with or without a closing separator.
        if (path.endsWith(QLatin1Char('/')) || path.endsWith(QLatin1Char('\\')))
            path.chop(1);
    }
    QString result = path;
    if (!standardFolder || !folderExists(path + QLatin1Char('/'))) {
        if (fallbackMessage)
            *fallbackMessage = dataFolderFallbackMessage(path);
        result = programFolder();
    }
    session.dataFolderCache = result;
    return result;
}

QString dataFolderFallbackMessage(const QString &path)
{
    return QStringLiteral("Hinweis: Der angegebene Pfad zur Datenbank (") + path
           + QStringLiteral(") ist zur Zeit nicht verfügbar. Es wird nun der Standard-Pfad verwendet "
                            "(SLB-Verzeichniss)!");
}

bool fileExists(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

bool folderExists(const QString &path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

bool dirFinds(const QString &path)
{
    if (path.endsWith(QLatin1Char('/')))
        return !QDir(path).entryList(QDir::Files | QDir::Hidden | QDir::System).isEmpty();
    return fileExists(path);
}
