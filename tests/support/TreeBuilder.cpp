#include "TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

#include <dirent.h>
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
    const int fd = ::open(
        QFile::encodeName(path(relative)).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    check(fd >= 0, "cannot create", relative);
    const QByteArray content(static_cast<qsizetype>(std::min<int64_t>(size, 65536)), 'x');
    const bool written
        = ::write(fd, content.constData(), static_cast<size_t>(content.size())) == content.size()
        && ::ftruncate(fd, size) == 0;
    ::close(fd);
    check(written, "cannot write", relative);
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
    check(::utimensat(
              AT_FDCWD, QFile::encodeName(path(relative)).constData(), times, link ? AT_SYMLINK_NOFOLLOW : 0)
            == 0,
        "cannot time", relative);
}

QStringList TreeBuilder::listingOrder(const QString &relativeFolder) const
{
    QStringList names;
    DIR *folder = ::opendir(QFile::encodeName(path(relativeFolder)).constData());
    check(folder, "cannot list", relativeFolder);
    while (const dirent *entry = ::readdir(folder))
        if (const QString name = QFile::decodeName(entry->d_name); name != u"." && name != u"..")
            names.append(name);
    ::closedir(folder);
    return names;
}
