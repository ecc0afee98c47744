#pragma once

#include <cstdint>

// What a running file search reports and how it is stopped. The search calls imageStarted()
// from its worker threads, one call at a time (never two at once), so an implementation needs
// no lock for its own state but must not touch widgets directly.
class SearchProgress
{
public:
    virtual ~SearchProgress() = default;

    // The image of CD `cdNumber` is about to be read; `done` of `total` images are finished.
    virtual void imageStarted(int done, int total, int32_t cdNumber) = 0;

    // Polled between images and between blocks of a large image, from any thread.
    virtual bool cancelRequested() const = 0;
};
