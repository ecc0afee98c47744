#pragma once

#include <QString>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>

class CaptureFilter;
class CaptureProgress;
class ImageWriter;

// The walk of one volume into image lines, depth first in the order the file system lists
// each folder. "." and ".." are skipped, hidden entries taken, symbolic links written as
// files and never followed, and the walk stays on the file system of the root (a folder that
// is a mount point is written but not entered). A folder that cannot be listed yields one
// nameless file with size 0 and the date of a zero file time, which the filter then judges.
// Files named "*.zip" or "*.rar" (in any case) become archive folders with their entries,
// whatever the filter says.
//
// Pruned, a folder that has no passing plain file in it or below it takes one line back
// when it ends: its own line when it is empty, otherwise the last line written inside it,
// which is how the last entry of an archive listing is lost there.
class VolumeWalk
{
public:
    VolumeWalk(ImageWriter &writer, const CaptureFilter &filter, bool prune, CaptureProgress *progress);

    // Walks `rootFolder` (file system bytes) as the drive whose image path is `drive` ("d:").
    // The root line is the caller's. False when the walk stopped: cancelled() or error().
    bool run(const std::string &rootFolder, std::string_view drive);

    bool cancelled() const { return m_cancelled; }
    // The German message of a listing that stopped the capture.
    const QString &error() const { return m_error; }
    uint32_t folders() const { return m_folders; }
    uint32_t files() const { return m_files; }

private:
    void walkFolder(int folderFd);
    void enterFolder(int parentFd, const char *name);
    void writeArchive(const char *name, bool isZip);
    void writeFile(int parentFd, const char *name);
    void writePassingFile(std::string_view name, int64_t size, int64_t mtimeSeconds);
    size_t mayStillDrop() const;
    void tick();
    void reportProgress();
    bool stopped() const { return m_cancelled || !m_error.isEmpty(); }

    ImageWriter &m_writer;
    const CaptureFilter &m_filter;
    const bool m_prune;
    CaptureProgress *m_progress;

    dev_t m_device = 0;
    std::string m_imagePath; // code page 1252, the current folder: "d:\Bilder"
    std::string m_fsPath; // file system bytes of the current folder
    std::string m_name; // code page 1252 name of the current entry
    std::string m_scratch;
    // Folder levels below the root that are open, and how many levels from the root down
    // already hold a passing file: those levels will not take a line back.
    size_t m_depth = 0;
    size_t m_passedLevels = 0;

    bool m_cancelled = false;
    QString m_error;
    uint32_t m_folders = 0;
    uint32_t m_files = 0;
    uint32_t m_sinceCheck = 0;
    std::chrono::steady_clock::time_point m_lastReport;
};
