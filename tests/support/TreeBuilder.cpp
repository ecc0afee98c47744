#include "TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <dirent.h>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace {

[[noreturn]] void fail(const QString &what)
{
    throw std::runtime_error(what.toStdString());
}

} // namespace

TreeBuilder::TreeBuilder(const QString &root)
    : m_root(root)
{
}

QString TreeBuilder::path(const QString &relative) const
{
    return relative.isEmpty() ? m_root : m_root + QLatin1Char('/') + relative;
}

void TreeBuilder::parentsOf(const QString &relative) const
{
    const QString parent = QFileInfo(path(relative)).path();
    if (!QDir().mkpath(parent))
        fail(QStringLiteral("mkpath failed: ") + parent);
}

void TreeBuilder::folder(const QString &relative)
{
    if (!QDir().mkpath(path(relative)))
        fail(QStringLiteral("mkpath failed: ") + relative);
}

void TreeBuilder::file(const QString &relative, int64_t size, int64_t mtime)
{
    parentsOf(relative);
    const QByteArray name = QFile::encodeName(path(relative));
    const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        fail(QStringLiteral("cannot create ") + relative);
    const QByteArray content(static_cast<qsizetype>(std::min<int64_t>(size, 65536)), 'x');
    const bool written
        = ::write(fd, content.constData(), static_cast<size_t>(content.size())) == content.size()
        && ::ftruncate(fd, size) == 0;
    ::close(fd);
    if (!written)
        fail(QStringLiteral("cannot write ") + relative);
    setTime(relative, mtime, false);
}

void TreeBuilder::copy(const QString &source, const QString &relative, int64_t mtime)
{
    parentsOf(relative);
    QFile::remove(path(relative));
    if (!QFile::copy(source, path(relative)))
        fail(QStringLiteral("cannot copy ") + source);
    setTime(relative, mtime, false);
}

void TreeBuilder::symlink(const QString &target, const QString &relative, int64_t mtime)
{
    parentsOf(relative);
    if (::symlink(QFile::encodeName(target).constData(), QFile::encodeName(path(relative)).constData()) != 0)
        fail(QStringLiteral("cannot link ") + relative);
    setTime(relative, mtime, true);
}

void TreeBuilder::setTime(const QString &relative, int64_t mtime, bool link) const
{
    const timespec times[2] = { { static_cast<time_t>(mtime), 0 }, { static_cast<time_t>(mtime), 0 } };
    if (::utimensat(
            AT_FDCWD, QFile::encodeName(path(relative)).constData(), times, link ? AT_SYMLINK_NOFOLLOW : 0)
        != 0)
        fail(QStringLiteral("cannot set the time of ") + relative);
}

QStringList TreeBuilder::listingOrder(const QString &relativeFolder) const
{
    QStringList names;
    DIR *folder = ::opendir(QFile::encodeName(path(relativeFolder)).constData());
    if (!folder)
        fail(QStringLiteral("cannot list ") + relativeFolder);
    while (const dirent *entry = ::readdir(folder)) {
        const QString name = QFile::decodeName(entry->d_name);
        if (name != QLatin1String(".") && name != QLatin1String(".."))
            names.append(name);
    }
    ::closedir(folder);
    return names;
}
