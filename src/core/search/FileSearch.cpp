#include "FileSearch.h"

#include "ImageLineMatcher.h"
#include "ImageScanner.h"
#include "SearchMessages.h"
#include "SearchProgress.h"

#include "app/DataPaths.h"
#include "archives/ArchiveStore.h"
#include "common/Cp1252.h"

#include <thread>

namespace {

FileSearchResult refused(FileSearchOutcome outcome, const QString &message)
{
    FileSearchResult result;
    result.outcome = outcome;
    result.message = message;
    return result;
}

FileSearchResult emptyWord()
{
    return refused(FileSearchOutcome::EmptyWord, searchmessages::emptyWord());
}

FileSearchResult unreadable(const QString &path)
{
    return refused(FileSearchOutcome::UnreadableImage, searchmessages::unreadableImage(path));
}

ImageScanJob jobFor(const SearchCd &cd, const QString &dataFolder)
{
    ImageScanJob job;
    job.cdNumber = cd.number;
    job.entryPrefix = std::to_string(cd.number) + '-' + cp1252::fromQString(cd.title) + '<';
    job.path = datapaths::imageFile(dataFolder, cd.imageId);
    return job;
}

// Hits in the order of the jobs, the message when there are none.
FileSearchResult collect(std::vector<ImageScanJob> &jobs, const QString &word)
{
    FileSearchResult result;
    for (ImageScanJob &job : jobs)
        result.hits.append(std::move(job.hits));
    if (result.hits.empty())
        return refused(FileSearchOutcome::NoHit, searchmessages::noHit(word));
    result.outcome = FileSearchOutcome::Hits;
    return result;
}

} // namespace

FileSearch::FileSearch(QString dataFolder, int workers)
    : m_dataFolder(std::move(dataFolder))
    , m_workers(workers > 0 ? workers : std::max(1, static_cast<int>(std::thread::hardware_concurrency())))
{
}

FileSearchResult FileSearch::searchOneCd(const SearchCd &cd, const QString &word, bool explicitMatch,
                                         SearchProgress *progress) const
{
    if (word.isEmpty())
        return emptyWord();
    std::vector<ImageScanJob> jobs;
    jobs.push_back(jobFor(cd, m_dataFolder));
    ImageFileBuffer buffer;
    switch (buffer.load(jobs.front().path)) {
    case ImageFileBuffer::Status::Missing:
        return refused(FileSearchOutcome::NoImage, searchmessages::noImage());
    case ImageFileBuffer::Status::Unreadable:
        return unreadable(jobs.front().path);
    case ImageFileBuffer::Status::Loaded:
        break;
    }
    const std::string typed = cp1252::fromQString(word);
    const ImageLineMatcher matcher(explicitMatch ? typed : '*' + typed + '*', ImageLineMatcher::Part::PathAndBar);
    if (matcher.error() != LikePattern::Error::None)
        return refused(FileSearchOutcome::BadPattern, likeErrorMessage(matcher.error()));
    if (progress)
        progress->imageStarted(0, 1, cd.number);
    if (!ImageScanner(matcher, progress).scanText(buffer.text(), jobs.front()))
        return refused(FileSearchOutcome::Cancelled, {});
    return collect(jobs, word);
}

FileSearchResult FileSearch::searchAllCds(const std::vector<SearchCd> &cds, const QString &word,
                                          SearchProgress *progress) const
{
    if (word.isEmpty())
        return emptyWord();
    std::vector<ImageScanJob> jobs;
    for (const SearchCd &cd : cds) {
        if (cd.imageId != 0)
            jobs.push_back(jobFor(cd, m_dataFolder));
    }
    if (jobs.empty())
        return refused(FileSearchOutcome::NoCdWithImage, searchmessages::noCdWithImage());
    const ImageLineMatcher matcher('*' + cp1252::fromQString(word) + '*', ImageLineMatcher::Part::WholeLine);
    if (matcher.error() != LikePattern::Error::None)
        return refused(FileSearchOutcome::BadPattern, likeErrorMessage(matcher.error()));
    switch (ImageScanner(matcher, progress).run(jobs, m_workers)) {
    case ImageScanner::Stop::Cancelled:
        return refused(FileSearchOutcome::Cancelled, {});
    case ImageScanner::Stop::Unreadable:
        for (const ImageScanJob &job : jobs) {
            if (job.status == ImageFileBuffer::Status::Unreadable)
                return unreadable(job.path);
        }
        break;
    case ImageScanner::Stop::None:
        break;
    }
    return collect(jobs, word);
}

FileSearchResult FileSearch::searchArchive(const ArchiveStore &store, const QString &word,
                                           SearchProgress *progress) const
{
    if (word.isEmpty())
        return emptyWord();
    const StoreResult<std::vector<CdRow>> rows = store.selectWithImage();
    if (!rows.ok())
        return refused(FileSearchOutcome::ArchiveFailed, rows.error.message);
    std::vector<SearchCd> cds;
    cds.reserve(rows.value.size());
    for (const CdRow &row : rows.value)
        cds.push_back({row.number, row.name, row.imageId});
    return searchAllCds(cds, word, progress);
}
