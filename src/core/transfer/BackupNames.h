#pragma once

#include <QString>

// The names in a backup. A restore keeps only the text behind the last "\" of a stored name
// and writes a file of that name, so that text must be a plain file name that comes back
// exactly as it went in.
namespace backup {

// True for a plain file name: not empty, not ".", no ".." anywhere, no "/" or "\", no control
// character, at most 255 bytes on disk.
bool isPlainFileName(const QString &leaf);

// `name` fit for a message: a control character (a NUL too) shown as "?", a very long name cut.
QString shownName(const QString &name);

} // namespace backup
