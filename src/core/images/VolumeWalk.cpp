#include "VolumeWalk.h"

#include "ArchiveListing.h"
#include "CaptureFilter.h"
#include "CaptureProgress.h"
#include "ImageWriter.h"

#include "common/Cp1252.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The date of an all-zero file time, 01.01.1601, in seconds since 1970.
constexpr int64_t kZeroFileTime = -11644473600LL;

// Progress goes out at most this often; between two reports the walk looks at the clock
// once per folder and once per this many entries.
constexpr auto kReportInterval = std::chrono::milliseconds(100);
constexpr uint32_t kEntriesPerClockCheck = 512;

// Folders are opened by their path below an anchor folder that is held open; a deeper anchor
// is taken before that path grows past what the system accepts in one call.
constexpr size_t kMaxRelativePath = 2048;

// Compared on the last four characters in lower case, so "A.ZIP" counts, "a.zip.bak" not.
bool endsWithLower(std::string_view name, std::string_view suffix)
{
    if (name.size() < suffix.size())
        return false;
    const std::string_view tail = name.substr(name.size() - suffix.size());
    for (size_t i = 0; i < suffix.size(); ++i) {
        if (cp1252::toLower(tail[i]) != suffix[i])
            return false;
    }
    return true;
}

void appendImageName(std::string &path, std::string_view name)
{
    if (path.empty() || path.back() != '\\')
        path.push_back('\\');
    path.append(name);
}

void appendFsName(std::string &path, std::string_view name)
{
    if (path.empty() || path.back() != '/')
        path.push_back('/');
    path.append(name);
}

QString reasonOf(int error)
{
    switch (error) {
    case EMFILE:
    case ENFILE:
        return QStringLiteral("Es sind zu viele Dateien geöffnet");
    case ENAMETOOLONG:
        return QStringLiteral("Der Pfad ist zu lang");
    case ENOMEM:
        return QStringLiteral("Der Arbeitsspeicher reicht nicht aus");
    case EIO:
        return QStringLiteral("Der Datenträger meldet einen Lesefehler");
    default:
        return QStringLiteral("Fehlernummer ") + QString::number(error);
    }
}

} // namespace

VolumeWalk::VolumeWalk(
    ImageWriter &writer, const CaptureFilter &filter, bool prune, CaptureProgress *progress)
    : m_writer(writer)
    , m_filter(filter)
    , m_prune(prune)
    , m_progress(progress)
{
}

VolumeWalk::~VolumeWalk()
{
    closeAnchors(0);
}

bool VolumeWalk::run(const std::string &rootFolder, std::string_view drive)
{
    m_imagePath.assign(drive);
    m_fsPath = rootFolder;
    m_depth = 0;
    m_passedLevels = 0;
    m_lastReport = std::chrono::steady_clock::now() - kReportInterval; // the first folder reports at once
    closeAnchors(0);
    m_frames.clear();

    // The root may be a link (a mount point's alias); below it nothing is followed.
    const int rootFd = ::open(rootFolder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    struct stat root;
    if (rootFd >= 0 && ::fstat(rootFd, &root) == 0)
        m_device = root.st_dev;
    if (rootFd >= 0) {
        m_anchors.push_back({ rootFd, m_fsPath.size() });
        openFolder(readFolder(rootFd, ".", m_device, m_filter));
    } else {
        FolderRead failed;
        failed.error = errno;
        failed.state = isUnlistable(failed.error) ? FolderRead::State::Unlistable : FolderRead::State::Failed;
        openFolder(std::move(failed));
    }
    walk();
    closeAnchors(0);
    if (m_progress && !stopped())
        m_progress->progress(m_folders, m_files, cp1252::toQString(m_imagePath));
    return !stopped();
}

// Depth first over a stack of read folders, so that no folder stays open while the walk is
// below it and the depth of a tree costs no call stack.
void VolumeWalk::walk()
{
    while (!m_frames.empty() && !stopped()) {
        Frame &top = m_frames.back();
        if (top.next == top.entries.size()) {
            const bool isRoot = m_frames.size() == 1;
            closeAnchors(top.anchorsBefore);
            m_frames.pop_back();
            if (!isRoot)
                leaveFolder();
            continue;
        }
        FolderEntry entry = std::move(top.entries[top.next++]);
        m_name = std::move(entry.name1252);
        if (entry.type == DT_DIR) {
            enterFolder(entry);
            continue;
        }
        ++m_files;
        if (entry.type == DT_REG && endsWithLower(m_name, ".zip"))
            writeArchive(entry.name, true);
        else if (entry.type == DT_REG && endsWithLower(m_name, ".rar"))
            writeArchive(entry.name, false);
        else if (entry.statusKnown && m_filter.passes(m_name))
            writePassingFile(m_name, entry.size, entry.mtimeSeconds);
        settle();
    }
}

void VolumeWalk::enterFolder(const FolderEntry &entry)
{
    ++m_folders;
    m_writer.folderLine(m_imagePath, m_name);
    m_levels.push_back({ m_imagePath.size(), m_fsPath.size() });
    appendImageName(m_imagePath, m_name);
    appendFsName(m_fsPath, entry.name);
    ++m_depth;
    if (entry.onOtherDevice) {
        leaveFolder();
        return;
    }
    const int anchor = anchorFor(m_fsPath.size());
    if (anchor < 0)
        return;
    std::string_view relative = std::string_view(m_fsPath).substr(m_anchors.back().fsPathLength);
    while (!relative.empty() && relative.front() == '/')
        relative.remove_prefix(1);
    openFolder(readFolder(anchor, std::string(relative).c_str(), m_device, m_filter));
}

// Pushes a read folder, or writes the nameless line of one that cannot be listed.
void VolumeWalk::openFolder(FolderRead read)
{
    reportProgress();
    const bool isRoot = m_depth == 0;
    switch (read.state) {
    case FolderRead::State::Read:
        m_frames.push_back({ std::move(read.entries), 0, m_anchors.size() });
        return;
    case FolderRead::State::Unlistable:
        if (m_filter.passes({}))
            writePassingFile({}, 0, kZeroFileTime);
        break;
    case FolderRead::State::Failed:
        fail(read.error);
        return;
    }
    if (!isRoot)
        leaveFolder();
}

// Ends the folder entered last: back to its parent's paths, and in a pruned walk its line
// goes when nothing below it passed.
void VolumeWalk::leaveFolder()
{
    const bool passed = m_passedLevels > m_depth;
    --m_depth;
    m_imagePath.resize(m_levels.back().imagePathLength);
    m_fsPath.resize(m_levels.back().fsPathLength);
    m_levels.pop_back();
    if (passed)
        m_passedLevels = m_depth + 1;
    else if (m_prune)
        m_writer.dropLastLine();
    settle();
}

// The open folder from which the folder whose path is `pathLength` bytes of m_fsPath can be
// reached; the parent becomes an anchor itself when the way down has grown too long.
int VolumeWalk::anchorFor(size_t pathLength)
{
    if (pathLength - m_anchors.back().fsPathLength <= kMaxRelativePath)
        return m_anchors.back().fd;
    const size_t parentLength = m_levels.back().fsPathLength;
    std::string_view parent = std::string_view(m_fsPath).substr(0, parentLength).substr(m_anchors.back().fsPathLength);
    while (!parent.empty() && parent.front() == '/')
        parent.remove_prefix(1);
    const int fd = ::openat(m_anchors.back().fd, std::string(parent).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        fail(errno);
        return -1;
    }
    m_anchors.push_back({ fd, parentLength });
    return fd;
}

void VolumeWalk::closeAnchors(size_t keep)
{
    while (m_anchors.size() > keep) {
        ::close(m_anchors.back().fd);
        m_anchors.pop_back();
    }
}

void VolumeWalk::fail(int error)
{
    m_error = QStringLiteral("Der Ordner \"") + cp1252::toQString(m_imagePath)
        + QStringLiteral("\" kann nicht gelesen werden: ") + reasonOf(error)
        + QStringLiteral(". Die Erstellung des Laufwerksabbilds wurde abgebrochen; das bisherige Abbild "
                         "bleibt erhalten.");
}

void VolumeWalk::writeArchive(const std::string &name, bool isZip)
{
    m_writer.folderLine(m_imagePath, m_name);
    m_scratch = m_fsPath;
    appendFsName(m_scratch, name);
    const ArchiveListing listing = isZip ? listZip(m_scratch) : listRar(m_scratch);
    if (!listing.error.isEmpty()) {
        m_error = listing.error;
        return;
    }
    for (const ArchiveEntry &row : listing.rows)
        m_writer.entryLine(m_imagePath, m_name, row.name, row.size, row.date);
}

void VolumeWalk::writePassingFile(std::string_view name, int64_t size, int64_t mtimeSeconds)
{
    m_writer.fileLine(m_imagePath, name, size, mtimeSeconds);
    m_passedLevels = m_depth + 1;
}

// Lines up to the open levels that can still take one back become final; now and then the
// clock is read for progress and a cancel.
void VolumeWalk::settle()
{
    m_writer.settle(mayStillDrop());
    if (++m_sinceCheck < kEntriesPerClockCheck)
        return;
    m_sinceCheck = 0;
    reportProgress();
}

// Only the open levels that hold no passing file yet can still take a line back, one each,
// and each takes the latest line; the root never does.
size_t VolumeWalk::mayStillDrop() const
{
    if (!m_prune)
        return 0;
    const size_t firstOpen = m_passedLevels > 1 ? m_passedLevels : 1;
    return m_depth >= firstOpen ? m_depth - firstOpen + 1 : 0;
}

void VolumeWalk::reportProgress()
{
    if (!m_progress)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now - m_lastReport < kReportInterval)
        return;
    m_lastReport = now;
    m_progress->progress(m_folders, m_files, cp1252::toQString(m_imagePath));
    if (m_progress->cancelled())
        m_cancelled = true;
}
