#include "VolumeWalk.h"

#include "ArchiveListing.h"
#include "CaptureFilter.h"
#include "CaptureProgress.h"
#include "ImageWriter.h"

#include "common/Cp1252.h"

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

bool isDotOrDotDot(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

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

void appendFsName(std::string &path, const char *name)
{
    if (path.empty() || path.back() != '/')
        path.push_back('/');
    path.append(name);
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

bool VolumeWalk::run(const std::string &rootFolder, std::string_view drive)
{
    m_imagePath.assign(drive);
    m_fsPath = rootFolder;
    m_depth = 0;
    m_passedLevels = 0;
    m_lastReport = std::chrono::steady_clock::now() - kReportInterval; // the first folder reports at once
    const int fd = ::open(rootFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    struct stat root;
    if (fd >= 0 && ::fstat(fd, &root) == 0)
        m_device = root.st_dev;
    walkFolder(fd);
    if (m_progress && !stopped())
        m_progress->progress(m_folders, m_files, cp1252::toQString(m_imagePath));
    return !stopped();
}

void VolumeWalk::walkFolder(int folderFd)
{
    reportProgress();
    DIR *folder = folderFd >= 0 ? ::fdopendir(folderFd) : nullptr;
    if (!folder) {
        if (folderFd >= 0)
            ::close(folderFd);
        if (m_filter.passes({}))
            writePassingFile({}, 0, kZeroFileTime);
        return;
    }
    const int fd = ::dirfd(folder);
    while (!stopped()) {
        const dirent *entry = ::readdir(folder);
        if (!entry)
            break;
        const char *name = entry->d_name;
        if (isDotOrDotDot(name))
            continue;
        m_name.clear();
        cp1252::appendFromUtf8(name, m_name);
        unsigned char type = entry->d_type;
        if (type == DT_UNKNOWN) {
            struct stat status;
            if (::fstatat(fd, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
                continue;
            type = static_cast<unsigned char>(IFTODT(status.st_mode));
        }
        if (type == DT_DIR) {
            enterFolder(fd, name);
        } else {
            ++m_files;
            if (type == DT_REG && endsWithLower(m_name, ".zip"))
                writeArchive(name, true);
            else if (type == DT_REG && endsWithLower(m_name, ".rar"))
                writeArchive(name, false);
            else
                writeFile(fd, name);
        }
        m_writer.settle(mayStillDrop());
        tick();
    }
    ::closedir(folder);
}

void VolumeWalk::enterFolder(int parentFd, const char *name)
{
    ++m_folders;
    m_writer.folderLine(m_imagePath, m_name);
    int fd = ::openat(parentFd, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat status;
    const bool known
        = fd >= 0 ? ::fstat(fd, &status) == 0 : ::fstatat(parentFd, name, &status, AT_SYMLINK_NOFOLLOW) == 0;
    const bool otherFileSystem = known && status.st_dev != m_device;
    if (otherFileSystem && fd >= 0) {
        ::close(fd);
        fd = -1;
    }

    const size_t imagePathLength = m_imagePath.size();
    const size_t fsPathLength = m_fsPath.size();
    appendImageName(m_imagePath, m_name);
    appendFsName(m_fsPath, name);
    ++m_depth;
    if (!otherFileSystem)
        walkFolder(fd);
    const bool passed = m_passedLevels > m_depth;
    --m_depth;
    m_imagePath.resize(imagePathLength);
    m_fsPath.resize(fsPathLength);

    if (passed)
        m_passedLevels = m_depth + 1;
    else if (m_prune)
        m_writer.dropLastLine();
}

void VolumeWalk::writeArchive(const char *name, bool isZip)
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

void VolumeWalk::writeFile(int parentFd, const char *name)
{
    if (!m_filter.passes(m_name))
        return;
    struct stat status;
    if (::fstatat(parentFd, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return; // gone since the folder was read
    writePassingFile(m_name, status.st_size, status.st_mtim.tv_sec);
}

void VolumeWalk::writePassingFile(std::string_view name, int64_t size, int64_t mtimeSeconds)
{
    m_writer.fileLine(m_imagePath, name, size, mtimeSeconds);
    m_passedLevels = m_depth + 1;
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

void VolumeWalk::tick()
{
    if (++m_sinceCheck < kEntriesPerClockCheck)
        return;
    m_sinceCheck = 0;
    reportProgress();
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
