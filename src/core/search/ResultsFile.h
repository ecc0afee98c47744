#pragma once

#include "HitEntry.h"
#include "RuntimeFailure.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

// The text file in which the user keeps the results of a file search: a head line with the
// word and the moment of saving, a row of 22 "=", then one line per hit entry in the order of
// the search. Code page 1252, every line ending in CR LF.
class ResultsFile
{
public:
    // The file's bytes; `now` is the local date and time that the head line shows.
    static std::variant<QByteArray, RuntimeFailure> text(const QString &searchWord,
                                                         const std::vector<HitEntry> &hitEntries,
                                                         const QDateTime &now);

    // Writes the file at `path`, replacing an earlier one only when the whole text is written.
    static std::optional<RuntimeFailure> save(const QString &path, const QString &searchWord,
                                              const std::vector<HitEntry> &hitEntries, const QDateTime &now);
};
