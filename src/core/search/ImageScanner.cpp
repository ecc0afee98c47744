#include "ImageScanner.h"

#include "ImageLineMatcher.h"
#include "SearchProgress.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>

namespace {

// Large enough to keep the per-block work negligible, small enough to answer a cancel quickly.
constexpr size_t kBlockSize = size_t{8} << 20;

} // namespace

ImageScanner::ImageScanner(const ImageLineMatcher &matcher, SearchProgress *progress)
    : m_matcher(matcher)
    , m_progress(progress)
{
}

// A hit must be a folder line or a file line with its "|": the result list takes nothing else
// apart, and "*" alone would otherwise bring in the image's empty end line.
bool ImageScanner::isListableHit(std::string_view line)
{
    return !line.empty() && (line.front() == '>' || line.find('|') != std::string_view::npos);
}

bool ImageScanner::scanText(std::string_view text, ImageScanJob &job) const
{
    std::vector<std::string_view> lines;
    size_t from = 0;
    while (from < text.size()) {
        if (m_progress && m_progress->cancelRequested())
            return false;
        const size_t to = ImageLineMatcher::blockEnd(text, from, kBlockSize);
        lines.clear();
        m_matcher.scan(text.substr(from, to - from), lines);
        for (const std::string_view line : lines)
            if (isListableHit(line))
                job.hits.append(job.entryPrefix, line);
        from = to;
    }
    return true;
}

ImageScanner::Stop ImageScanner::run(std::vector<ImageScanJob> &jobs, int workers) const
{
    const int total = static_cast<int>(jobs.size());
    std::atomic<int> next{0};
    std::atomic<int> done{0};
    std::atomic<Stop> stop{Stop::None};
    std::mutex reporting;

    auto work = [&] {
        ImageFileBuffer buffer;
        for (;;) {
            if (stop.load() != Stop::None)
                return;
            const int i = next.fetch_add(1);
            if (i >= total)
                return;
            ImageScanJob &job = jobs[static_cast<size_t>(i)];
            if (m_progress) {
                if (m_progress->cancelRequested()) {
                    stop = Stop::Cancelled;
                    return;
                }
                const std::lock_guard<std::mutex> lock(reporting);
                m_progress->imageStarted(done.load(), total, job.cdNumber);
            }
            job.status = buffer.load(job.path);
            if (job.status == ImageFileBuffer::Status::Unreadable) {
                stop = Stop::Unreadable;
                return;
            }
            if (job.status == ImageFileBuffer::Status::Loaded && !scanText(buffer.text(), job)) {
                stop = Stop::Cancelled;
                return;
            }
            ++done;
        }
    };

    const int threads = std::max(1, std::min(workers, total));
    std::vector<std::jthread> helpers;
    for (int t = 1; t < threads; ++t)
        helpers.emplace_back(work);
    work();
    helpers.clear();
    return stop.load();
}
