#include "ArchiveCatalog.h"

#include "ArchiveStore.h"
#include "app/DataPaths.h"
#include "app/Settings.h"
#include "common/Cp1252.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

using Kind = ArchiveError::Kind;

const QString kExtension = QStringLiteral(".mdb");

bool byListOrder(const QString &a, const QString &b)
{
    const int folded = QString::compare(a, b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

} // namespace

ArchiveCatalog::ArchiveCatalog(const QString &dataFolder)
    : m_dataFolder(dataFolder)
{
}

QStringList ArchiveCatalog::names() const
{
    // Hidden files stay out of the list, as they do in a file list.
    const QFileInfoList files = QDir(datapaths::archiveFolder(m_dataFolder)).entryInfoList(QDir::Files);
    QStringList names;
    for (const QFileInfo &file : files) {
        const QString fileName = file.fileName();
        // Archives from Windows may end in ".MDB": its file system did not tell the cases apart.
        if (fileName.endsWith(kExtension, Qt::CaseInsensitive))
            names.append(fileName.left(fileName.size() - kExtension.size()));
    }
    std::sort(names.begin(), names.end(), byListOrder);
    return names;
}

QString ArchiveCatalog::pathOf(const QString &name) const
{
    return datapaths::archiveFile(m_dataFolder, name);
}

ArchiveError ArchiveCatalog::create(const QString &name, const QStringList &listedNames) const
{
    if (const ArchiveError refused = checkNewArchiveName(name); !refused.ok())
        return refused;
    if (listedNames.contains(name))
        return { Kind::DuplicateName, duplicateNameMessage(name) };
    if (!QDir().mkpath(datapaths::archiveFolder(m_dataFolder)))
        return { Kind::FileError,
            QStringLiteral("Der Ordner \"") + QDir::toNativeSeparators(datapaths::archiveFolder(m_dataFolder))
                + QStringLiteral("\" kann nicht angelegt werden.") };
    return ArchiveStore::create(pathOf(name));
}

ArchiveError ArchiveCatalog::remove(const QString &name) const
{
    QFile file(pathOf(name));
    if (!QFileInfo(file).isFile())
        return { Kind::NotFound,
            QStringLiteral("Fehler: Die Datenbankdatei für das ausgewählte Archiv wurde nicht "
                           "gefunden. Das Archiv wird aus der Liste entfernt!") };
    if (!file.remove())
        return { Kind::FileError,
            QStringLiteral("Die Archivdatei \"") + QDir::toNativeSeparators(file.fileName())
                + QStringLiteral("\" kann nicht gelöscht werden.") };
    return {};
}

QString ArchiveCatalog::duplicateNameMessage(const QString &name)
{
    return QStringLiteral("Fehler! Es existiert bereits ein Archiv mit dem Namen ") + name
        + QStringLiteral(" !\r\nBitte wählen Sie einen anderen Namen");
}

ArchiveError checkNewArchiveName(const QString &name)
{
    const QString other = QStringLiteral(" Bitte wählen Sie einen anderen Namen.");
    if (name.isEmpty())
        return { Kind::BadName, QStringLiteral("Der Name des Archivs darf nicht leer sein.") };
    // A "\" separates folders on Windows, and a backup that holds one or a ".." is refused whole.
    if (name.contains(QLatin1Char('/')) || name.contains(QLatin1Char('\\')) || name.contains(QLatin1String(".."))
        || name.contains(QChar(0)))
        return { Kind::BadName,
            QStringLiteral("Der Name \"") + name + QStringLiteral("\" kann nicht als Dateiname verwendet werden.")
                + other };
    if (name.startsWith(QLatin1Char('.')))
        return { Kind::BadName,
            QStringLiteral("Der Name \"") + name
                + QStringLiteral("\" beginnt mit einem Punkt: Das Archiv wäre eine versteckte Datei und erschiene "
                                 "in keiner Liste.")
                + other };
    // The name is not repeated here: its line break or escape would garble the message itself.
    if (cp1252::holdsControlCharacter(name))
        return { Kind::BadName,
            QStringLiteral("Der Name des Archivs enthält ein Steuerzeichen (etwa einen Zeilenumbruch oder einen "
                           "Tabulator).")
                + other };
    if (const QString missing = cp1252::missingCharacters(name); !missing.isEmpty())
        return { Kind::BadName,
            QStringLiteral("Der Name \"") + name + QStringLiteral("\" enthält das Zeichen \"")
                + missing.left(missing.front().isHighSurrogate() ? 2 : 1)
                + QStringLiteral("\", das in Sicherungen und HTML-Seiten nicht gespeichert werden "
                                 "kann. Erlaubt sind die Zeichen des westeuropäischen Zeichensatzes (Windows-1252).")
                + other };
    return {};
}

bool archiveNameMatches(const QString &typed, const QStringList &entries)
{
    return std::any_of(entries.begin(), entries.end(),
        [&](const QString &entry) { return typed == entry + kExtension || typed == entry; });
}

QString defaultArchive(const Settings &settings)
{
    return settings.value(SettingKey::Standard);
}

QString setDefaultArchive(Settings &settings, const QString &name)
{
    if (!settings.setValue(SettingKey::Standard, name))
        return {};
    return QStringLiteral("Archiv ") + name
        + QStringLiteral(
            " wurde als Standard festgelegt. Nun kann dieses bei jedem Start des Silberbuchs automatisch "
            "gestartet werden. Diese Option können Sie im Hauptfenster unter Optionen einstellen");
}

QString archiveNotFoundMessage()
{
    return QStringLiteral("Archiv nicht gefunden! Bitte wählen Sie ein anderes aus.");
}
