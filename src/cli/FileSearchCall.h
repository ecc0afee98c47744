#pragma once

#include "search/FileSearch.h"

#include <QString>

#include <optional>

class ArchiveStore;

// The file search of a call: the whole archive, or with a CD number that CD alone. A CD that
// cannot be read gives an empty result with the reason in *refusal.
FileSearchResult searchFiles(const ArchiveStore &store, const QString &dataFolder, const QString &word,
    std::optional<int> cd, bool exact, QString *refusal);
