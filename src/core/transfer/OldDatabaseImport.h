#pragma once

#include <QString>
#include <QStringList>

// The ".ini" text databases of older versions turned into an archive: one CD per section, the
// drive images copied from the "LWS" folder beside the old file's folder.
namespace olddatabase {

// The archive name the import offers: the file's name with its ".ini"; "default" for none.
QString archiveNameFor(const QString &iniPath);

struct ImportResult
{
    int cds = 0; // rows written
    QStringList leftOut; // titles of the sections that could not be taken, in file order
    QString error; // "Fehler! Fehlernummer: ... Description: ...", empty on success
    bool ok() const { return error.isEmpty(); }
};

// Creates the archive `name` in `dataFolder` and fills it from `iniPath`. Titles keep their
// length. A section that cannot be taken (see leftOut) is left out and the others come in; a
// failure to create or write the archive leaves it empty.
ImportResult importIni(const QString &iniPath, const QString &dataFolder, const QString &name);

// The note after an import that left sections out: names the first ten, then how many more;
// empty when none was left out.
QString leftOutMessage(const QStringList &titles);

// The message after a successful import.
QString successMessage();

} // namespace olddatabase
