#pragma once

#include "SheetPrint.h"

#include "archives/CdRow.h"
#include "search/RuntimeFailure.h"

#include <QString>

#include <variant>

// What the main window shows of a CD when it is chosen with nothing shown before: the sheet's
// labels, comments and cover, and the image file behind the image id.
struct CdOnDisplay
{
    SheetContent content;
    QString imagePath; // the file the image id names; it may be missing
};

// The image id reads "0" when the CD has none or its file is gone; the counts then read
// "Nicht Verfügbar!", or keep the window's first "0" when only the file is gone. The cover is
// the CD's own, else the placeholder nopic.bmp, else none. A cover field that is no number, or
// a picture that cannot be read, is the run-time failure the window reports.
std::variant<CdOnDisplay, RuntimeFailure> cdOnDisplay(const QString &dataFolder, const CdRow &row);
