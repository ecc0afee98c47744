#pragma once

#include "RuntimeFailure.h"

#include <QString>

#include <variant>

// The four columns that the result list shows for one hit entry, number + "-" + title + "<" +
// image line. The entry is cut at its first "<" and at its "|" characters, the way the list
// always cut it: a "<" in the title moves the cut, and a "|" in the title moves size and date.
struct ResultColumns
{
    QString cd;   // number + "-" + title: the entry before its first "<"
    QString file; // a folder line with its ">", else the path up to its first "|"
    QString size; // empty for a folder line
    QString date; // empty for a folder line
    bool folder = false;

    bool operator==(const ResultColumns &) const = default;

    // A file entry whose line holds no "|" (the empty end line, or a title with a "|" and
    // too few in the line) cannot be cut; that is a run-time failure.
    static std::variant<ResultColumns, RuntimeFailure> cut(const QString &entry);

    // The entry as a line of the saved result file: for a file "12-Backup d:\x.exe * 65536
    // Byte * Date:19.01.2003", for a folder "12-Backup >d:\Setup".
    static std::variant<QString, RuntimeFailure> fileLine(const QString &entry);
};
