#include "VolumeIdentity.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace volumeid {

namespace {

constexpr off_t kDescriptorOffset = 16 * 2048;
constexpr size_t kDescriptorSize = 2048;
using Descriptor = std::array<unsigned char, kDescriptorSize>;

bool isOpticalFileSystem(const QString &fsType)
{
    return fsType == QLatin1String("iso9660") || fsType == QLatin1String("udf");
}

// The primary volume descriptor of an ISO 9660 volume, read straight from its device.
std::optional<Descriptor> primaryDescriptor(const Mount &mount)
{
    if (!isOpticalFileSystem(mount.fsType) || !mount.source.startsWith(QLatin1Char('/')))
        return std::nullopt;
    const int fd = ::open(QFile::encodeName(mount.source).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return std::nullopt;
    Descriptor descriptor;
    const ssize_t got = ::pread(fd, descriptor.data(), descriptor.size(), kDescriptorOffset);
    ::close(fd);
    if (got != static_cast<ssize_t>(descriptor.size()) || descriptor[0] != 1
        || std::memcmp(descriptor.data() + 1, "CD001", 5) != 0)
        return std::nullopt;
    return descriptor;
}

// Four byte-wide sums over the columns of the descriptor, the first column the highest byte.
uint32_t descriptorChecksum(const Descriptor &descriptor)
{
    std::array<uint8_t, 4> sums {};
    for (size_t i = 0; i < descriptor.size(); ++i)
        sums[i % 4] = static_cast<uint8_t>(sums[i % 4] + descriptor[i]);
    return (static_cast<uint32_t>(sums[0]) << 24) | (static_cast<uint32_t>(sums[1]) << 16)
        | (static_cast<uint32_t>(sums[2]) << 8) | static_cast<uint32_t>(sums[3]);
}

QString descriptorVolumeName(const Descriptor &descriptor)
{
    return QString::fromLatin1(reinterpret_cast<const char *>(descriptor.data()) + 40, 32).trimmed();
}

// udev writes a byte that is unsafe in a file name as "\xHH".
QString decodedLinkName(const QString &name)
{
    const QByteArray bytes = QFile::encodeName(name);
    QByteArray decoded;
    decoded.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        bool ok = false;
        const bool escape = bytes[i] == '\\' && i + 3 < bytes.size() && bytes[i + 1] == 'x';
        const int value = escape ? bytes.mid(i + 2, 2).toInt(&ok, 16) : 0;
        if (ok) {
            decoded.append(static_cast<char>(value));
            i += 3;
        } else {
            decoded.append(bytes[i]);
        }
    }
    return QString::fromUtf8(decoded);
}

// The name of the link in a /dev/disk/by-* folder that leads to the mount's device.
QString linkNameFor(const QString &folder, const Mount &mount)
{
    const QString device = QFileInfo(mount.source).canonicalFilePath();
    const QFileInfoList links
        = QDir(folder).entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &link : links) {
        if (!device.isEmpty() && link.canonicalFilePath() == device)
            return link.fileName();
        struct stat target
        {
        };
        if (::stat(QFile::encodeName(link.filePath()).constData(), &target) == 0 && S_ISBLK(target.st_mode)
            && target.st_rdev == mount.device)
            return link.fileName();
    }
    return {};
}

// NTFS shows its 64-bit serial as 16 hex digits and Windows reports its low half;
// FAT's "XXXX-XXXX" and every longer UUID give their first 32 bits.
std::optional<uint32_t> serialFromUuid(const QString &uuid)
{
    QString digits = uuid;
    digits.remove(QLatin1Char('-'));
    if (digits.size() < 8)
        return std::nullopt;
    const bool ntfs = digits.size() == 16 && !uuid.contains(QLatin1Char('-'));
    bool ok = false;
    const uint32_t value = (ntfs ? digits.right(8) : digits.left(8)).toUInt(&ok, 16);
    if (!ok)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<uint32_t> serial(const Mount &mount, const VolumeSources &sources)
{
    if (mount.root != QLatin1String("/"))
        return std::nullopt;
    if (const auto descriptor = primaryDescriptor(mount))
        return descriptorChecksum(*descriptor);
    const QString uuid = linkNameFor(sources.byUuid, mount);
    if (uuid.isEmpty())
        return std::nullopt;
    return serialFromUuid(uuid);
}

QString label(const Mount &mount, const VolumeSources &sources)
{
    if (mount.root != QLatin1String("/"))
        return {};
    const QString link = linkNameFor(sources.byLabel, mount);
    if (!link.isEmpty())
        return decodedLinkName(link);
    if (const auto descriptor = primaryDescriptor(mount))
        return descriptorVolumeName(*descriptor);
    return {};
}

} // namespace volumeid
