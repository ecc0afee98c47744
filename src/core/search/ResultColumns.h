#pragma once

#include "HitEntry.h"
#include "RuntimeFailure.h"

#include <QString>

#include <variant>

// The four columns that the result list shows for one hit entry. The entry is cut where its
// title ends, so a "<" or "|" in a title never moves a column; a file line is cut at its last
// two "|", since sizes and dates hold none and file names may.
struct ResultColumns
{
    QString cd;   // number + "-" + title
    QString file; // a folder line with its ">", else the path
    QString size; // empty for a folder line
    QString date; // empty for a folder line
    bool folder = false;

    bool operator==(const ResultColumns &) const = default;

    // A file line with fewer than two "|" (the empty end line, a damaged image) cannot be
    // cut; that is a run-time failure.
    static std::variant<ResultColumns, RuntimeFailure> cut(const HitEntry &entry);

    // The entry as a line of the saved result file: for a file "12-Backup d:\x.exe * 65536
    // Byte * Date:19.01.2003", for a folder "12-Backup >d:\Setup".
    static std::variant<QString, RuntimeFailure> fileLine(const HitEntry &entry);
};
