#pragma once

#include <QString>

#include <cstdint>

class CaptureProgress;

// How a capture ended. On failure or cancellation `error` holds the German message and the
// old image of that id, if any, is untouched.
struct CaptureResult
{
    int32_t imageId = 0;
    QString error;
    bool cancelled = false;
    uint32_t folders = 0;
    uint32_t files = 0;

    bool ok() const { return error.isEmpty(); }
};

// Captures a volume into <data>/lws/<id>.dat: the root line, the walk, the end line. The
// file is written under a temporary name in the same folder and renamed at the end.
class ImageCapture
{
public:
    explicit ImageCapture(const QString &dataFolder);

    // `drive`: the two-character drive of the image lines ("d:"); `rootFolder`: where the
    // volume is mounted; `imageId`: the volume's serial, which names the file; `filter`: as
    // typed ("*.*" for all files); `prune`: leave out folders without a passing file.
    CaptureResult capture(const QString &drive, const QString &rootFolder, int32_t imageId,
        const QString &filter, bool prune, CaptureProgress *progress = nullptr) const;

private:
    QString m_dataFolder;
};
