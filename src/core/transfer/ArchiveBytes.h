#pragma once

#include <QByteArray>
#include <QString>

// Tells an archive database from other bytes, cheaply: by its first bytes, and for one of
// ours by its table "cds".
namespace archivebytes {

enum class Kind { None, Ours, Jet };

// How many first bytes kindOf needs.
constexpr qint64 kHeadSize = 19;

// An SQLite file ("SQLite format 3" and a NUL) is ours; "Standard Jet DB" at offset 4 is a
// Jet database of the Windows version.
Kind kindOf(const QByteArray &head);

// Whether the SQLite file at `path` has the table "cds". Opened read-only and unchanging, so
// that nothing is written beside it.
bool hasCdsTable(const QString &path);

} // namespace archivebytes
