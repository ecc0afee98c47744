#pragma once

#include "PrintOutcome.h"

#include "search/HitEntry.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

class Printer;

// What every print-out is given besides its lines.
struct PrintSettings
{
    QString archiveName;
    // The font size as typed in the dialog; its digits are also the probe of the overflow test.
    QString fontSizeText = QStringLiteral("10");
    QDateTime printedAt; // the date and time the head shows
};

// The list of CD titles: each entry of the CD list as it stands ("12 Titel"), under a head of
// its own, with footers only on full pages.
PrintOutcome printCdList(Printer &printer, const PrintSettings &settings, const QStringList &cdListEntries);

// The comment lines of the CD on display, each as it stands.
PrintOutcome printCommentList(
    Printer &printer, const PrintSettings &settings, const QString &title, const QStringList &comments);

struct FileListColumns
{
    bool size = false; // "Größe der Dateien mitdrucken"
    bool date = true; // "Datum der Dateien mitdrucken"
};

// The lines of a drive image: folder lines as they stand, file lines cut to the path with the
// size and the date asked for. The last line comes out twice, as the image's empty closing
// line repeats it. An image file that is not there is refused before anything is printed.
PrintOutcome printFileList(Printer &printer, const PrintSettings &settings, const QString &title,
    const QString &imagePath, FileListColumns columns);

// The hit entries of a file search in the order of the search, each as the results file
// writes it (size and date always). Failures are not trapped.
PrintOutcome printSearchHits(Printer &printer, const PrintSettings &settings, const QString &searchWord,
    const std::vector<HitEntry> &hits);

// The program's web address, which the heads and the credits name.
QString printedWebAddress();
QString dateText(const QDateTime &when); // dd.mm.yyyy
QString timeText(const QDateTime &when); // hh:mm:ss
