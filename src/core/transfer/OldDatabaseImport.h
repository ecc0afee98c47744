#pragma once

#include <QString>

// The ".ini" text databases of older versions turned into an archive: one CD per section, the
// drive images copied from the "LWS" folder beside the old file's folder.
namespace olddatabase {

// The archive name the import offers: the file's name with its ".ini"; "default" for none.
QString archiveNameFor(const QString &iniPath);

struct ImportResult
{
    int cds = 0; // rows written, also when a failure stopped the import
    QString error; // "Fehler! Fehlernummer: ... Description: ...", empty on success
    bool ok() const { return error.isEmpty(); }
};

// Creates the archive `name` in `dataFolder` and fills it from `iniPath`. A failure stops the
// import where it happened; what was imported before stays, as the old program left it.
ImportResult importIni(const QString &iniPath, const QString &dataFolder, const QString &name);

// The message after a successful import.
QString successMessage();

} // namespace olddatabase
