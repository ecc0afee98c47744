#pragma once

#include <QString>

// One hit of a file search: number + "-" + title + "<" + image line. Titles (and, in folders
// captured here, paths) may hold "<" and "|" themselves, so the entry keeps where its CD part
// ends instead of leaving that to be guessed from the text.
struct HitEntry
{
    QString text;
    qsizetype titleEnd = 0; // index of the "<" between the title and the image line

    bool operator==(const HitEntry &) const = default;
};
