#include "TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void check(bool ok, const char *what, const QString &relative)
{
    if (!ok)
        throw std::runtime_error(what + (' ' + relative.toStdString()));
}

} // namespace

void TreeBuilder::deepFolders(const char *name, int levels, const char *bottomFile)
{
    int fd = ::open(QFile::encodeName(m_root).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    check(fd >= 0, "cannot open", m_root);
    for (int level = 0; level < levels; ++level) {
        check(::mkdirat(fd, name, 0755) == 0, "cannot make level", QString::number(level));
        const int next = ::openat(fd, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::close(fd);
        fd = next;
        check(fd >= 0, "cannot open level", QString::number(level));
    }
    const int file = ::openat(fd, bottomFile, O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    check(file >= 0, "cannot create", QString::fromUtf8(bottomFile));
    ::close(file);
    ::close(fd);
}

void TreeBuilder::removeDeep(const QString &folder)
{
    QProcess::execute(QStringLiteral("rm"), { QStringLiteral("-rf"), folder });
}

QString TreeBuilder::path(const QString &relative) const
{
    return relative.isEmpty() ? m_root : m_root + QLatin1Char('/') + relative;
}

void TreeBuilder::folder(const QString &relative)
{
    check(QDir().mkpath(path(relative)), "cannot make", relative);
}

void TreeBuilder::file(const QString &relative, int64_t size, int64_t mtime)
{
    folder(QFileInfo(relative).path());
    QFile out(path(relative));
    // resize() leaves a hole past the written part.
    check(out.open(QIODevice::WriteOnly) && out.write(QByteArray(std::min<int64_t>(size, 65536), 'x')) >= 0
            && out.resize(size),
        "cannot write", relative);
    out.close();
    setTime(relative, mtime, false);
}

void TreeBuilder::copy(const QString &source, const QString &relative, int64_t mtime)
{
    folder(QFileInfo(relative).path());
    QFile::remove(path(relative));
    check(QFile::copy(source, path(relative)), "cannot copy to", relative);
    setTime(relative, mtime, false);
}

void TreeBuilder::symlink(const QString &target, const QString &relative, int64_t mtime)
{
    folder(QFileInfo(relative).path());
    check(
        ::symlink(QFile::encodeName(target).constData(), QFile::encodeName(path(relative)).constData()) == 0,
        "cannot link", relative);
    setTime(relative, mtime, true);
}

void TreeBuilder::setTime(const QString &relative, int64_t mtime, bool link) const
{
    const timespec times[2] = { { static_cast<time_t>(mtime), 0 }, { static_cast<time_t>(mtime), 0 } };
    const QByteArray file = QFile::encodeName(path(relative));
    check(::utimensat(AT_FDCWD, file.constData(), times, link ? AT_SYMLINK_NOFOLLOW : 0) == 0, "cannot time",
        relative);
}
