#include "Temporaries.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace temporaries {

namespace {

const QString kSuffix = QStringLiteral(".tmp");
// What a database opened on a temporary file leaves beside it.
const QString kCompanions[] = { QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm") };

bool processIsGone(qint64 pid)
{
    return pid > 0 && ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

bool isHex(QStringView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.isDigit() || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    });
}

// The pid in a name "." + prefix + "<pid>-<hex>.tmp" (a companion's ending aside) that
// starts with `prefix`, or 0 when the name is none of ours.
qint64 writerOf(const QString &name, const QString &prefix)
{
    if (!name.startsWith(QLatin1Char('.')) || !name.startsWith(prefix))
        return 0;
    QStringView rest(name);
    for (const QString &companion : kCompanions)
        if (rest.endsWith(companion))
            rest.chop(companion.size());
    if (!rest.endsWith(kSuffix))
        return 0;
    rest.chop(kSuffix.size());
    const qsizetype hexDash = rest.lastIndexOf(QLatin1Char('-'));
    if (hexDash < 0 || !isHex(rest.mid(hexDash + 1)))
        return 0;
    rest.truncate(hexDash);
    const qsizetype pidDash = rest.lastIndexOf(QLatin1Char('-'));
    if (pidDash < 1 || pidDash + 1 < prefix.size())
        return 0;
    bool ok = false;
    const qint64 pid = rest.mid(pidDash + 1).toLongLong(&ok);
    return ok ? pid : 0;
}

void removeStaleMatching(const QString &folder, const QString &prefix)
{
    const QDir dir(folder);
    const QStringList names
        = dir.entryList({ prefix + QStringLiteral("*") }, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names)
        if (processIsGone(writerOf(name, prefix)))
            QFile::remove(dir.filePath(name));
}

} // namespace

QString freshName(const QString &folder, const QString &prefix)
{
    return QDir(folder).filePath(prefix + QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-')
        + QString::number(QRandomGenerator::system()->generate64(), 16) + kSuffix);
}

void removeStale(const QString &folder, const QString &prefix)
{
    removeStaleMatching(folder, prefix);
}

void removeAllStale(const QString &folder)
{
    removeStaleMatching(folder, QStringLiteral("."));
}

void removeWithCompanions(const QString &temporary)
{
    QFile::remove(temporary);
    for (const QString &companion : kCompanions)
        QFile::remove(temporary + companion);
}

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    AtomicFile file(path);
    const bool ok = file.open() && file.write(bytes) == bytes.size() && file.commit();
    if (!ok)
        errno = file.error();
    return ok;
}

AtomicFile::AtomicFile(const QString &path)
    : m_path(path)
{
}

AtomicFile::~AtomicFile()
{
    discard();
}

bool AtomicFile::open(OpenMode mode)
{
    if (isOpen() || (mode & ReadOnly) || !(mode & WriteOnly)) {
        m_error = EINVAL;
        return false;
    }
    const QString folder = QFileInfo(m_path).absolutePath();
    const QString prefix = QStringLiteral(".") + QFileInfo(m_path).fileName() + QStringLiteral("-");
    removeStale(folder, prefix);
    m_temporary = QFile::encodeName(freshName(folder, prefix));
    m_fd = ::open(m_temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (m_fd < 0) {
        m_error = errno;
        m_temporary.clear();
        return false;
    }
    m_error = 0;
    return QIODevice::open(WriteOnly | Unbuffered);
}

qint64 AtomicFile::writeData(const char *data, qint64 size)
{
    if (m_fd < 0 || m_error != 0)
        return -1;
    for (qint64 left = size; left > 0;) {
        const ssize_t written = ::write(m_fd, data, static_cast<size_t>(left));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            m_error = written < 0 ? errno : ENOSPC;
            setErrorString(QString::fromLocal8Bit(std::strerror(m_error)));
            return -1;
        }
        data += written;
        left -= written;
    }
    return size;
}

qint64 AtomicFile::readData(char *, qint64)
{
    return -1;
}

bool AtomicFile::commit()
{
    if (m_fd < 0)
        return false;
    if (m_error == 0 && ::fsync(m_fd) != 0)
        m_error = errno;
    if (::close(m_fd) != 0 && m_error == 0)
        m_error = errno;
    m_fd = -1;
    if (m_error == 0 && ::rename(m_temporary.constData(), QFile::encodeName(m_path).constData()) != 0)
        m_error = errno;
    if (m_error == 0)
        m_temporary.clear();
    const int error = m_error;
    discard();
    m_error = error;
    return error == 0;
}

void AtomicFile::close()
{
    discard();
}

void AtomicFile::discard()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    if (!m_temporary.isEmpty())
        ::unlink(m_temporary.constData());
    m_temporary.clear();
    if (isOpen())
        QIODevice::close();
}

} // namespace temporaries
