#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

// Files that take their places all together or not at all. Each is written whole under a
// temporary name beside its target and flushed to disk; only when every one is complete are
// they renamed into place. A file that a target held is kept under a second name (a hard
// link where the file system has them) until all are in place, so that a failure on the way
// puts back every target as it was. Whatever is not committed is removed again, the folders
// made for it too.
class StagedFiles
{
public:
    // `prefix` starts the temporary names, which are "<prefix><pid>-<random>.tmp".
    explicit StagedFiles(QString prefix);
    ~StagedFiles();
    StagedFiles(const StagedFiles &) = delete;
    StagedFiles &operator=(const StagedFiles &) = delete;

    // Makes the folder of `target` where missing and writes the new file with `fill` under
    // a temporary name. False when anything failed.
    bool stage(const QString &target, const std::function<bool(QFile &out)> &fill);
    // The temporary file of the last staged target.
    QString lastStaged() const;
    // Renames every staged file over its target, in order. False when one could not be put
    // in place: every target then holds what it held before.
    bool commit();
    // The target that failed in stage or commit.
    const QString &failedTarget() const { return m_failed; }

private:
    struct File
    {
        QString target;
        QString temporary;
        QString aside; // the target's former file, while the commit runs
        bool placed = false;
    };

    bool makeFolder(const QString &folder);
    bool placeFile(File &file);
    void putBack(File &file);
    void discard();

    QString m_prefix;
    std::vector<File> m_files;
    QStringList m_madeFolders; // in the order they were made
    QString m_failed;
    bool m_committed = false;
};
