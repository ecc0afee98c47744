#pragma once

#include "HitList.h"

#include <QString>

// How a file search ended. The dialog shows `message` with the icon that the outcome calls
// for: EmptyWord none; NoImage stop (and the dialog closes); NoCdWithImage stop; NoHit
// information; BadPattern, UnreadableImage and ArchiveFailed critical. Hits and Cancelled have no message.
enum class FileSearchOutcome {
    Hits,
    EmptyWord,
    NoImage,
    NoCdWithImage,
    BadPattern,
    UnreadableImage,
    ArchiveFailed,
    NoHit,
    Cancelled,
};

struct FileSearchResult
{
    FileSearchOutcome outcome = FileSearchOutcome::NoHit;
    // The hit entries, number + "-" + title + "<" + image line, in code page 1252: in the
    // order of the images and, within an image, of its lines. Empty unless outcome is Hits.
    HitList hits;
    QString message;
};
