#pragma once

#include "ArchiveError.h"

#include <QString>
#include <QStringList>

class Settings;

// The archives of a data folder: the files <data>/archive/*.mdb. The folder is the list;
// an archive's name is its file's name less ".mdb", and nothing else records it.
class ArchiveCatalog
{
public:
    explicit ArchiveCatalog(const QString &dataFolder);

    // The names, ordered by name as a file list shows them (letter case aside, then binary).
    QStringList names() const;
    QString pathOf(const QString &name) const;

    // Creates an empty archive under a name that checkNewArchiveName() allows. listedNames are
    // the names the caller showed: a name among them is refused, compared binary, even when its
    // file has gone meanwhile.
    ArchiveError create(const QString &name, const QStringList &listedNames) const;
    // Deletes the archive's file alone; images and covers stay, as they belong to no archive.
    ArchiveError remove(const QString &name) const;

    static QString duplicateNameMessage(const QString &name);

private:
    QString m_dataFolder;
};

// Whether a new archive may be called `name`; a BadName error with the German reason when not.
// The name must be a plain file name, must not begin with "." (the file would be hidden and
// no list would show the archive), must hold no control character (it would break the lines
// of a list) and only characters of code page 1252, in which backups and HTML pages store it.
ArchiveError checkNewArchiveName(const QString &name);

// The typed name of the archive chooser is found when it equals an entry, or an entry
// followed by ".mdb"; binary, so letter case counts.
bool archiveNameMatches(const QString &typed, const QStringList &entries);

// The default archive, opened at a start without asking; empty when none was chosen.
QString defaultArchive(const Settings &settings);
// Makes name the default archive and returns the confirmation to show; empty when the
// settings could not be written (Settings::writeFailure() says why).
QString setDefaultArchive(Settings &settings, const QString &name);

// Shown when a name typed or asked for is not among the archives.
QString archiveNotFoundMessage();
