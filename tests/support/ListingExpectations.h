#pragma once

#include "images/ArchiveListing.h"

#include <string>

// A ZIP or RAR listing as the image gets it: the rows as "name|size|date" joined by ";", or
// the error message when there is one.
inline std::string rowsOf(const ArchiveListing &listing)
{
    if (!listing.error.isEmpty())
        return listing.error.toStdString();
    std::string out;
    for (const ArchiveEntry &row : listing.rows)
        out += (&row == listing.rows.data() ? "" : ";") + row.name + '|' + row.size + '|' + row.date;
    return out;
}
