#include "Temporaries.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace temporaries {

namespace {

const QString kSuffix = QStringLiteral(".tmp");

bool processIsGone(qint64 pid)
{
    return pid > 0 && ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

} // namespace

QString freshName(const QString &folder, const QString &prefix)
{
    return QDir(folder).filePath(prefix + QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-')
        + QString::number(QRandomGenerator::system()->generate64(), 16) + kSuffix);
}

void removeStale(const QString &folder, const QString &prefix)
{
    const QDir dir(folder);
    const QStringList names
        = dir.entryList({ prefix + QStringLiteral("*") + kSuffix }, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        const QString rest = name.mid(prefix.size());
        bool ok = false;
        const qint64 pid = rest.left(rest.indexOf(QLatin1Char('-'))).toLongLong(&ok);
        if (ok && processIsGone(pid))
            QFile::remove(dir.filePath(name));
    }
}

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    const QString folder = QFileInfo(path).absolutePath();
    const QString prefix = QStringLiteral(".") + QFileInfo(path).fileName() + QStringLiteral("-");
    removeStale(folder, prefix);
    const QByteArray temporary = QFile::encodeName(freshName(folder, prefix));
    const int fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0)
        return false;
    const char *data = bytes.constData();
    auto left = static_cast<size_t>(bytes.size());
    bool ok = true;
    while (ok && left > 0) {
        const ssize_t written = ::write(fd, data, left);
        if (written < 0 && errno == EINTR)
            continue;
        ok = written > 0;
        if (ok) {
            data += written;
            left -= static_cast<size_t>(written);
        }
    }
    ok = ok && ::fsync(fd) == 0;
    ok = ::close(fd) == 0 && ok;
    ok = ok && ::rename(temporary.constData(), QFile::encodeName(path).constData()) == 0;
    if (!ok) {
        const int error = errno;
        ::unlink(temporary.constData());
        errno = error;
    }
    return ok;
}

} // namespace temporaries
