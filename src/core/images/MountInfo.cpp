#include "MountInfo.h"

#include <QFile>
#include <QSet>

#include <sys/sysmacros.h>

namespace {

// Blanks, tabs, line breaks and backslashes stand in the table as "\ooo".
QString unescaped(QByteArrayView field)
{
    QByteArray bytes;
    bytes.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        const auto isOctal
            = [&](qsizetype at) { return at < field.size() && field[at] >= '0' && field[at] <= '7'; };
        if (field[i] == '\\' && isOctal(i + 1) && isOctal(i + 2) && isOctal(i + 3)) {
            bytes.append(static_cast<char>(
                ((field[i + 1] - '0') << 6) | ((field[i + 2] - '0') << 3) | (field[i + 3] - '0')));
            i += 3;
        } else {
            bytes.append(field[i]);
        }
    }
    return QFile::decodeName(bytes);
}

bool parseLine(const QByteArray &line, Mount &mount)
{
    const QList<QByteArray> fields = line.split(' ');
    // id, parent, major:minor, root, mount point, options, optional fields, "-", type, source
    const qsizetype dash = fields.indexOf(QByteArray("-"), 6);
    if (fields.size() < 10 || dash < 0 || dash + 2 >= fields.size())
        return false;
    const QList<QByteArray> numbers = fields[2].split(':');
    if (numbers.size() != 2)
        return false;
    mount.device = makedev(numbers[0].toUInt(), numbers[1].toUInt());
    mount.root = unescaped(fields[3]);
    mount.mountPoint = unescaped(fields[4]);
    mount.fsType = QString::fromLatin1(fields[dash + 1]);
    mount.source = unescaped(fields[dash + 2]);
    return true;
}

bool isUnder(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(folder + QLatin1Char('/'));
}

} // namespace

std::vector<Mount> readMountInfo(const QString &path)
{
    std::vector<Mount> mounts;
    QFile file(path);
    // The kernel's file reports no size, so it is read as a stream to its end.
    if (!file.open(QIODevice::ReadOnly))
        return mounts;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        Mount mount;
        if (parseLine(line, mount))
            mounts.push_back(std::move(mount));
    }
    return mounts;
}

bool isUserFileSystem(const Mount &mount)
{
    static const QSet<QString> kernelTypes = {
        QStringLiteral("proc"),
        QStringLiteral("sysfs"),
        QStringLiteral("tmpfs"),
        QStringLiteral("devtmpfs"),
        QStringLiteral("devpts"),
        QStringLiteral("cgroup"),
        QStringLiteral("cgroup2"),
        QStringLiteral("securityfs"),
        QStringLiteral("debugfs"),
        QStringLiteral("tracefs"),
        QStringLiteral("pstore"),
        QStringLiteral("bpf"),
        QStringLiteral("configfs"),
        QStringLiteral("fusectl"),
        QStringLiteral("mqueue"),
        QStringLiteral("hugetlbfs"),
        QStringLiteral("autofs"),
        QStringLiteral("binfmt_misc"),
        QStringLiteral("efivarfs"),
        QStringLiteral("rpc_pipefs"),
        QStringLiteral("nsfs"),
        QStringLiteral("ramfs"),
        QStringLiteral("overlay"),
        QStringLiteral("squashfs"),
        QStringLiteral("selinuxfs"),
        QStringLiteral("nfsd"),
        QStringLiteral("fuse.gvfsd-fuse"),
        QStringLiteral("fuse.portal"),
        QStringLiteral("fuse.lxcfs"),
        QStringLiteral("fuse.snapfuse"),
    };
    // Shares that have no device of their own.
    static const QSet<QString> networkTypes = {
        QStringLiteral("nfs"),
        QStringLiteral("nfs4"),
        QStringLiteral("cifs"),
        QStringLiteral("smb3"),
        QStringLiteral("smbfs"),
        QStringLiteral("9p"),
        QStringLiteral("virtiofs"),
        QStringLiteral("fuse.sshfs"),
        QStringLiteral("fuse.rclone"),
        QStringLiteral("davfs"),
        QStringLiteral("zfs"),
    };
    if (kernelTypes.contains(mount.fsType))
        return false;
    // A disk's source is the path of its device; the kernel's own have a bare word there.
    if (!mount.source.startsWith(QLatin1Char('/')) && !networkTypes.contains(mount.fsType))
        return false;
    for (const char *system : { "/proc", "/sys", "/dev", "/snap" }) {
        if (isUnder(mount.mountPoint, QString::fromLatin1(system)))
            return false;
    }
    return true;
}
