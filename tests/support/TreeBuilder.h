#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// Builds a folder tree on disk for capture tests: files of a given size (large ones sparse,
// so they take no room), copies of fixture files, links, each with a fixed modification
// time in seconds since 1970 UTC. Paths are relative to the root, with "/".
class TreeBuilder
{
public:
    // `root` must exist.
    explicit TreeBuilder(const QString &root)
        : m_root(root)
    {
    }

    const QString &root() const { return m_root; }
    QString path(const QString &relative) const;

    void folder(const QString &relative);
    // A file of `size` bytes: "x" repeated up to 64 KiB, a hole beyond.
    void file(const QString &relative, int64_t size, int64_t mtime);
    void copy(const QString &source, const QString &relative, int64_t mtime);
    void symlink(const QString &target, const QString &relative, int64_t mtime);
    // `levels` folders named `name`, each in the one before, from the root down, and an empty
    // file `bottomFile` in the last. Built by handles, as the path outgrows what one call takes.
    void deepFolders(const char *name, int levels, const char *bottomFile);
    // Removes a tree of any depth (QTemporaryDir stops at the longest path the system takes).
    static void removeDeep(const QString &folder);

private:
    void setTime(const QString &relative, int64_t mtime, bool link) const;

    QString m_root;
};
