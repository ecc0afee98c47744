#pragma once

#include "ImageScanJob.h"

#include <string_view>
#include <vector>

class ImageLineMatcher;
class SearchProgress;

// Runs a line matcher over images and turns the hit lines into hit entries.
class ImageScanner
{
public:
    enum class Stop { None, Cancelled, Unreadable };

    ImageScanner(const ImageLineMatcher &matcher, SearchProgress *progress);

    // Loads and scans every job on up to `workers` threads, each thread taking the next image
    // in order. Each job gets its status and hits, so the caller merges them in job order.
    // Stops at the first image that cannot be read or when cancelled; later jobs stay untouched.
    Stop run(std::vector<ImageScanJob> &jobs, int workers) const;

    // Scans one loaded image into `job`; false when cancelled on the way.
    bool scanText(std::string_view text, ImageScanJob &job) const;
    static bool isListableHit(std::string_view line);

private:
    const ImageLineMatcher &m_matcher;
    SearchProgress *m_progress;
};
