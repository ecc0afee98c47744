#pragma once

#include <QString>

#include <cstdint>

// What a running capture tells its caller, and how the caller stops it. Both are called from
// the thread that runs the capture, a few times a second at most, never once per file.
class CaptureProgress
{
public:
    virtual ~CaptureProgress() = default;

    // Folders and files seen so far, and the image path of the folder being walked ("d:\Bilder").
    virtual void progress(uint32_t folders, uint32_t files, const QString &currentFolder) = 0;
    // True ends the capture; the old image stays as it was.
    virtual bool cancelled() = 0;
};
