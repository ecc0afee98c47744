#pragma once

#include <QString>

// The entry that starts the program with the desktop session, minimized:
// $XDG_CONFIG_HOME/autostart/silberbuch.desktop (~/.config when the variable is unset).
// Callers ignore failures: a user who may not write there gets no word.
namespace autostart {

QString entryPath();

// Writes the entry so that it runs `executable -minimized`. Returns whether it was written.
bool writeEntry(const QString &executable);

// Removes the entry. Returns whether none is left.
bool removeEntry();

// The Exec line's value for the executable, quoted as desktop entries require.
QString execValue(const QString &executable);

} // namespace autostart
