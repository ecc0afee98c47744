#pragma once

#include "ArchiveError.h"
#include "JetTable.h"

#include <QString>
#include <QVariantList>

#include <vector>

// What became of an archive file on its way to being opened.
struct JetConversion
{
    bool converted = false; // the file was a Jet database and is now an archive of ours
    int cdCount = 0; // rows carried over
    QString notice; // the information to show the user once, set when converted
    ArchiveError error; // why a Jet file could not be converted; the file is then untouched

    bool ok() const { return error.ok(); }
};

// Archives of the Windows version are Jet databases. Converts such a file into our form
// once, in place: the new file is written under a temporary name and renamed over the old
// one, which is kept beside it as "<name>.mdb.jet". A file that is no Jet database is left
// alone (converted false, no error).
JetConversion convertIfJet(const QString &mdbPath);

// Writes rows (the six fields each) as a new archive in place of the Jet file mdbPath, which
// is kept as "<name>.mdb.jet"; on failure everything stays as it was.
JetConversion replaceByArchive(const QString &mdbPath, const std::vector<QVariantList> &rows);

// The six fields of each row of a Jet table cds, in the order of our table, NULLs kept as
// invalid variants; an error names a missing field.
StoreResult<std::vector<QVariantList>> cdsRowsOf(const JetTable &table);
