#pragma once

#include <QString>
#include <QStringList>

#include <functional>

// The backup file (".bup"): an outer stream of two length-prefixed records, the count text and
// the inner stream, which holds the archive database, then the drive images, then the covers
// of its CDs. Names are paths in code page 1252 with "\" between folders, as the Windows
// version writes them, so that either program restores the other's backups.
namespace backup {

// Writes the backup of the archive `mdbPath` (with its images and covers in `dataFolder`) to
// `target`: streamed from the files to a temporary file beside the target, renamed over it at
// the end. An existing target is replaced only when `replace` is set. A file whose name the
// backup could not give back as it is (a character outside code page 1252, a "\") is refused.
// Empty on success, else the German reason; the old target is then untouched.
QString write(const QString &mdbPath, const QString &dataFolder, const QString &target, bool replace,
    const std::function<void(int done, int total)> &progress = {});

struct RestoreResult
{
    QStringList written; // the files written, in the order of the backup
    QStringList notices; // what the user must hear besides (an archive converted from Jet)
    QString error; // the German reason nothing was written
    bool ok() const { return error.isEmpty(); }
};

// Restores `file` into `dataFolder`. The whole file is checked first: the counted records must
// all be there (what follows them is ignored), every name must be a plain file name, and there
// must be an archive database among them, each one really an archive. Before an existing
// archive would be replaced, `mayReplace(name)` is asked; false writes nothing. Then every
// packed file is written whole under a temporary name, and all take their places together:
// on any failure the data folder stays as it was.
RestoreResult restore(const QString &file, const QString &dataFolder,
    const std::function<bool(const QString &archiveName)> &mayReplace);

// The question asked before an existing archive is replaced.
QString replaceQuestion(const QString &archiveName);

// The text behind the last "\" of a stored name.
QString leafName(const QString &path);

} // namespace backup
