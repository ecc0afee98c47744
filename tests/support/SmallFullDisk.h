#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <string>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

// A small file system of its own (tmpfs) on a fresh folder, to be filled until only a few
// pages are free; unmounted when the object goes, a failed test included. Only root may
// mount: where that fails, mounted() is false and skipReason() says why.
//
//     SmallFullDisk disk;
//     if (!disk.mounted())
//         GTEST_SKIP() << disk.skipReason();
class SmallFullDisk
{
public:
    explicit SmallFullDisk(int kilobytes = 512)
        : m_root(m_folder.filePath(QStringLiteral("disk")))
    {
        QDir().mkpath(m_root);
        const QByteArray options = "size=" + QByteArray::number(kilobytes) + 'k';
        if (::geteuid() != 0)
            m_skipReason = QStringLiteral("mounting a small file system needs root");
        else if (::mount("tmpfs", QFile::encodeName(m_root).constData(), "tmpfs", 0, options.constData()) != 0)
            m_skipReason = QStringLiteral("tmpfs cannot be mounted here: ") + QString::fromLocal8Bit(std::strerror(errno));
    }
    ~SmallFullDisk()
    {
        if (mounted())
            ::umount2(QFile::encodeName(m_root).constData(), MNT_DETACH);
    }
    SmallFullDisk(const SmallFullDisk &) = delete;
    SmallFullDisk &operator=(const SmallFullDisk &) = delete;

    bool mounted() const { return m_skipReason.isEmpty(); }
    std::string skipReason() const { return m_skipReason.toStdString(); }
    const QString &path() const { return m_root; }
    QString filePath(const QString &relative) const { return QDir(m_root).filePath(relative); }

    // Fills the disk with one file until exactly `pages` pages are free. False when it could
    // not (then the test has no full disk to work on).
    bool fill(int pages)
    {
        const QByteArray filler = QFile::encodeName(filePath(QStringLiteral(".fueller")));
        const int fd = ::open(filler.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (fd < 0)
            return false;
        const QByteArray block(static_cast<int>(::getpagesize()), 'x');
        off_t size = 0;
        for (ssize_t written = 0; (written = ::write(fd, block.constData(), block.size())) > 0;)
            size += written;
        const bool ok = ::ftruncate(fd, std::max<off_t>(0, size - off_t { pages } * block.size())) == 0;
        ::close(fd);
        return ok && freePages() == pages;
    }

    // Pages that a new file can still take.
    long freePages() const
    {
        struct statvfs state {};
        ::statvfs(QFile::encodeName(m_root).constData(), &state);
        return static_cast<long>(state.f_bavail * state.f_frsize / static_cast<unsigned long>(::getpagesize()));
    }

    // The names in a folder of the disk, hidden ones included, the filler left out: a
    // temporary file left behind shows here.
    QStringList names(const QString &relative = {}) const
    {
        QStringList names = QDir(filePath(relative)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
        names.removeAll(QStringLiteral(".fueller"));
        return names;
    }

    // Every file on the disk with its bytes, the filler left out.
    std::map<QString, QByteArray> snapshot() const
    {
        std::map<QString, QByteArray> files;
        QDirIterator it(m_root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            QFile file(path);
            if (path != filePath(QStringLiteral(".fueller")))
                files[path] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
        }
        return files;
    }

private:
    QTemporaryDir m_folder;
    QString m_root;
    QString m_skipReason;
};
