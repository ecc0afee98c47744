#pragma once

#include "FileSearchResult.h"
#include "SearchCd.h"

#include <QString>

#include <vector>

class ArchiveStore;
class SearchProgress;

// The search for a word in the drive images below a data folder. Every image is read afresh;
// there is no index. The word goes into the pattern as typed, so "*", "?", "#" and "[...]" in
// it act as wildcards.
class FileSearch
{
public:
    // `workers`: how many images are read at once when all CDs are searched; 0 takes one per
    // processor core.
    explicit FileSearch(QString dataFolder, int workers = 0);

    // The image of one CD. A line is hit when its path up to and including the first "|"
    // contains the word, or with `explicitMatch` when it matches the word as a whole.
    FileSearchResult searchOneCd(const SearchCd &cd, const QString &word, bool explicitMatch,
                                 SearchProgress *progress = nullptr) const;

    // The images of all CDs that have one, in the order given. A line is hit when it contains
    // the word anywhere, size and date included; folder lines count too. A missing image file
    // is passed over.
    FileSearchResult searchAllCds(const std::vector<SearchCd> &cds, const QString &word,
                                  SearchProgress *progress = nullptr) const;

    // All CDs of an archive that have an image, in the archive's order. The archive is read
    // and closed before the first image is touched.
    FileSearchResult searchArchive(const ArchiveStore &store, const QString &word,
                                   SearchProgress *progress = nullptr) const;

private:
    QString m_dataFolder;
    int m_workers;
};
