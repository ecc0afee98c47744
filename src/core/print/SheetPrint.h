#pragma once

#include "ListPrints.h"

#include <QImage>
#include <QString>
#include <QStringList>

// What the main window shows of the CD on display, as the sheet prints it.
struct SheetContent
{
    QString title;
    QString imageId; // "0" for none
    QString files; // the count of files, as the label reads
    QString folders; // the count of folders, as the label reads
    QStringList comments;
    QImage cover; // the cover as shown; null for nothing
};

struct SheetOptions
{
    QString commentSizeText = QStringLiteral("10"); // the sheet's own size box, for the comments
    bool cover = true; // "Cover-Bild mitdrucken"
};

// The one-page sheet of a CD: a double-ruled box with archive and title in its head, the
// facts below, the comments on the right and the cover on the left. The box grows with the
// comments, measured in the list's font size, not in the comments' own.
PrintOutcome printCdSheet(Printer &printer, const PrintSettings &settings, const SheetContent &content,
    const SheetOptions &options);

// The cover box of the main window, 260 pixels square, with the picture in it as shown there:
// scaled down to fit where larger, centred. Null for a null picture.
QImage coverBoxFace(const QImage &cover);
