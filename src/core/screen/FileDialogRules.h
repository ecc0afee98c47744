#pragma once

#include <QString>
#include <QStringList>

// The rules of the common file dialogs that don't need a window: the filter in its
// "name|pattern|name|pattern" form, and the extensions that the save dialog adds.
namespace filedialogrules {

// The filter as the dialog hands it to the system: a "|" appended unless it ends in one,
// every "|" made a NUL, two NULs behind. An empty filter gives three NULs.
QString convertFilter(const QString &filter);

// The name filters for a file dialog, from a converted filter. The list ends at its first
// empty piece, as the system reads it, so a name without a pattern is dropped. ";" between
// patterns becomes a blank, "*.*" stands for every file, and letters match either case,
// as they do on the system the filters were written for.
QStringList nameFilters(const QString &convertedFilter);

// Piece number `number` (from 1) of `text` cut at `delimiter`: the pieces are what stands
// behind each delimiter, a delimiter being put in front when the text doesn't begin with
// one. Empty for a number out of range.
QString filterPiece(const QString &text, int number, QChar delimiter);

// The extension of the filter pair `filterIndex` (from 1): its pattern, trimmed, from the
// last "." on, ".bup" for "*.bup"; empty with no such pair or no "." in the pattern.
QString saveExtension(const QString &convertedFilter, int filterIndex);

struct SaveNames
{
    QString fileName; // the `filename` field after the dialog
    QString result; // what the show operation returns
};

// The names after a save dialog, given the chosen path ("" for a cancel). A name shorter
// than four characters gets the extension, and so does any name whose fourth-last
// character isn't "." (a three-letter extension is taken for one). A default extension is
// then appended to both when the name doesn't end in it. A cancel on a dialog whose
// filter index is still set therefore leaves the bare extension as the name.
SaveNames saveNames(
    const QString &chosenPath, const QString &convertedFilter, int filterIndex, const QString &defaultExt);

} // namespace filedialogrules
