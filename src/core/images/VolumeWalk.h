#pragma once

#include "FolderEntries.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

class CaptureFilter;
class CaptureProgress;
class ImageWriter;

// The walk of one volume into image lines, depth first, each folder's entries (folders and
// files together) in the order the Windows file system lists them. Each folder is read whole
// and closed before the walk goes down, and the walk keeps its own stack, so neither open
// files nor the call stack grow with the depth of the tree. "." and ".." are skipped, hidden entries taken, symbolic links written as
// files and never followed, and the walk stays on the file system of the root (a folder that
// is a mount point is written but not entered). A folder that cannot be listed yields one
// nameless file with size 0 and the date of a zero file time, which the filter then judges;
// any other failure to read a folder stops the walk with error() set.
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
    ~VolumeWalk();
    VolumeWalk(const VolumeWalk &) = delete;
    VolumeWalk &operator=(const VolumeWalk &) = delete;

    // Walks `rootFolder` (file system bytes) as the drive whose image path is `drive` ("d:").
    // The root line is the caller's. False when the walk stopped: cancelled() or error().
    bool run(const std::string &rootFolder, std::string_view drive);

    bool cancelled() const { return m_cancelled; }
    // The German message of a listing that stopped the capture.
    const QString &error() const { return m_error; }
    uint32_t folders() const { return m_folders; }
    uint32_t files() const { return m_files; }

private:
    struct Frame
    {
        std::vector<FolderEntry> entries;
        size_t next = 0;
        size_t anchorsBefore = 0; // anchors taken while this folder is walked are its own
    };
    struct Level
    {
        size_t imagePathLength = 0; // of the parent's paths, to go back to
        size_t fsPathLength = 0;
    };
    struct Anchor
    {
        int fd = -1;
        size_t fsPathLength = 0;
    };

    void walk();
    void enterFolder(const FolderEntry &entry);
    void openFolder(FolderRead read);
    void leaveFolder();
    int anchorFor(size_t pathLength);
    void closeAnchors(size_t keep);
    void fail(int error);
    void writeArchive(const std::string &name, bool isZip);
    void writePassingFile(std::string_view name, int64_t size, int64_t mtimeSeconds);
    void settle();
    size_t mayStillDrop() const;
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
    std::vector<Frame> m_frames;
    std::vector<Level> m_levels;
    std::vector<Anchor> m_anchors;
    // Folder levels below the root that are entered, and how many levels from the root down
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
