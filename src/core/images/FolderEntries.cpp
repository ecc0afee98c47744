#include "FolderEntries.h"

#include "CaptureFilter.h"
#include "ImageNames.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <numeric>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isDotOrDotDot(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

// The sort key: UTF-16 code units, each upper-cased on its own as NTFS's table does.
std::u16string ntfsKey(std::string_view name)
{
    std::u16string key;
    key.reserve(name.size());
    const bool ascii = std::all_of(name.begin(), name.end(), [](char c) { return (c & 0x80) == 0; });
    if (ascii) {
        for (const char c : name)
            key.push_back(static_cast<char16_t>(c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c));
        return key;
    }
    const QString text = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    for (const QChar unit : text)
        key.push_back(unit.toUpper().unicode());
    return key;
}

} // namespace

bool isUnlistable(int error)
{
    return error == EACCES || error == EPERM || error == ENOENT || error == ENOTDIR || error == ELOOP;
}

bool ntfsLess(std::string_view left, std::string_view right)
{
    const std::u16string leftKey = ntfsKey(left);
    const std::u16string rightKey = ntfsKey(right);
    return leftKey != rightKey ? leftKey < rightKey : left < right;
}

void sortAsNtfs(std::vector<FolderEntry> &entries)
{
    std::vector<std::u16string> keys;
    keys.reserve(entries.size());
    for (const FolderEntry &entry : entries)
        keys.push_back(ntfsKey(entry.name));
    std::vector<size_t> order(entries.size());
    std::iota(order.begin(), order.end(), size_t { 0 });
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        return keys[a] != keys[b] ? keys[a] < keys[b] : entries[a].name < entries[b].name;
    });
    std::vector<FolderEntry> sorted;
    sorted.reserve(entries.size());
    for (const size_t index : order)
        sorted.push_back(std::move(entries[index]));
    entries = std::move(sorted);
}

FolderRead readFolder(int anchorFd, const char *relativePath, dev_t device, const CaptureFilter &filter)
{
    FolderRead read;
    const int fd = ::openat(anchorFd, relativePath, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR *folder = fd >= 0 ? ::fdopendir(fd) : nullptr;
    if (!folder) {
        read.error = errno;
        if (fd >= 0)
            ::close(fd);
        read.state = isUnlistable(read.error) ? FolderRead::State::Unlistable : FolderRead::State::Failed;
        return read;
    }
    while (true) {
        errno = 0;
        const dirent *entry = ::readdir(folder);
        if (!entry) {
            if (errno != 0) {
                read.error = errno;
                read.state = FolderRead::State::Failed;
            }
            break;
        }
        if (isDotOrDotDot(entry->d_name))
            continue;
        FolderEntry item;
        item.name = entry->d_name;
        imagenames::appendVolumeName(item.name, item.name1252);
        item.type = entry->d_type;
        const bool isFolder = item.type == DT_DIR;
        const bool needsStatus = item.type == DT_UNKNOWN || isFolder || filter.passes(item.name1252);
        if (needsStatus) {
            struct stat status;
            // Gone since the folder was read: as if it had not been there.
            if (::fstatat(fd, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
                continue;
            item.type = static_cast<unsigned char>(IFTODT(status.st_mode));
            item.onOtherDevice = item.type == DT_DIR && status.st_dev != device;
            item.statusKnown = true;
            item.size = status.st_size;
            item.mtimeSeconds = status.st_mtim.tv_sec;
        }
        read.entries.push_back(std::move(item));
    }
    ::closedir(folder);
    sortAsNtfs(read.entries);
    return read;
}
