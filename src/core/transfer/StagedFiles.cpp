#include "StagedFiles.h"

#include "common/Temporaries.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray native(const QString &path)
{
    return QFile::encodeName(path);
}

} // namespace

StagedFiles::StagedFiles(QString prefix)
    : m_prefix(std::move(prefix))
{
}

StagedFiles::~StagedFiles()
{
    if (!m_committed)
        discard();
}

bool StagedFiles::makeFolder(const QString &folder)
{
    if (QFileInfo(folder).isDir())
        return true;
    const QString parent = QFileInfo(folder).absolutePath();
    if (parent == folder || !makeFolder(parent))
        return false;
    if (::mkdir(native(folder).constData(), 0777) != 0)
        return errno == EEXIST && QFileInfo(folder).isDir();
    m_madeFolders << folder;
    return true;
}

bool StagedFiles::stage(const QString &target, const std::function<bool(QFile &out)> &fill)
{
    const QString folder = QFileInfo(target).absolutePath();
    File file { target, {}, {}, false };
    bool ok = makeFolder(folder);
    if (ok) {
        file.temporary = temporaries::freshName(folder, m_prefix);
        m_files.push_back(file);
        QFile out(file.temporary);
        ok = out.open(QIODevice::WriteOnly | QIODevice::NewOnly) && fill(out) && out.flush()
            && ::fsync(out.handle()) == 0;
        out.close();
        ok = ok && out.error() == QFileDevice::NoError;
    }
    if (!ok)
        m_failed = target;
    return ok;
}

QString StagedFiles::lastStaged() const
{
    return m_files.empty() ? QString() : m_files.back().temporary;
}

// Keeps the target's present file aside (a link to it, or, where the file system has no
// links, the file itself moved), then renames the new one over the target. A folder or
// another odd thing in the target's place makes the rename fail.
bool StagedFiles::placeFile(File &file)
{
    const QByteArray target = native(file.target);
    struct stat status { };
    if (::lstat(target.constData(), &status) == 0 && (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode))) {
        const QString aside = temporaries::freshName(QFileInfo(file.target).absolutePath(), m_prefix);
        if (::link(target.constData(), native(aside).constData()) != 0
            && ::rename(target.constData(), native(aside).constData()) != 0)
            return false;
        file.aside = aside;
    }
    file.placed = ::rename(native(file.temporary).constData(), target.constData()) == 0;
    return file.placed;
}

// Gives the target back what it held before the commit.
void StagedFiles::putBack(File &file)
{
    if (!file.aside.isEmpty()) {
        // When aside and target are links of the same file, the rename does nothing and the
        // unlink drops the spare link; otherwise the rename moves the old file back.
        ::rename(native(file.aside).constData(), native(file.target).constData());
        ::unlink(native(file.aside).constData());
    } else if (file.placed) {
        ::unlink(native(file.target).constData());
    }
    file.aside.clear();
    file.placed = false;
}

bool StagedFiles::commit()
{
    for (auto file = m_files.begin(); file != m_files.end(); ++file) {
        if (placeFile(*file))
            continue;
        m_failed = file->target;
        for (auto done = std::make_reverse_iterator(file + 1); done != m_files.rend(); ++done)
            putBack(*done);
        discard();
        return false;
    }
    for (File &file : m_files)
        if (!file.aside.isEmpty())
            ::unlink(native(file.aside).constData());
    m_committed = true;
    return true;
}

void StagedFiles::discard()
{
    for (const File &file : m_files)
        if (!file.placed)
            ::unlink(native(file.temporary).constData());
    m_files.clear();
    for (auto folder = m_madeFolders.crbegin(); folder != m_madeFolders.crend(); ++folder)
        ::rmdir(native(*folder).constData());
    m_madeFolders.clear();
}
