#pragma once

#include <QIODevice>
#include <QString>

// Temporary files that become a real file by renaming, named after the process that writes
// them ("." + prefix + "<pid>-<random>.tmp"), so that the debris of a process that was killed
// can be told from the work of one that still runs.
namespace temporaries {

// A fresh name in `folder` for this process.
QString freshName(const QString &folder, const QString &prefix);

// Removes the files "<prefix><pid>-*.tmp" in `folder` whose process is gone.
void removeStale(const QString &folder, const QString &prefix);

// Removes every temporary file of ours in `folder` whose process is gone, whatever its
// prefix, with the companions a database leaves beside it ("-journal", "-wal", "-shm").
void removeAllStale(const QString &folder);

// Removes a temporary file together with its database companions.
void removeWithCompanions(const QString &temporary);

// Writes `bytes` as the whole new content of `path`: into a temporary file beside it, every
// write and the flush to disk checked, then renamed over it. False (errno kept) when anything
// failed; the old file is then untouched and no temporary file is left.
bool replaceFile(const QString &path, const QByteArray &bytes);

// The streaming form of replaceFile: what is written goes to a temporary file beside `path`,
// each write checked; commit() flushes it to disk and renames it over `path`. A file closed or
// destroyed without a successful commit() removes its temporary file and leaves `path` as it
// was. Unbuffered, so no failure can hide in a buffer that is written out later.
class AtomicFile : public QIODevice
{
public:
    explicit AtomicFile(const QString &path);
    ~AtomicFile() override;

    // Only write-only opens: makes the temporary file (errno in error()).
    bool open(OpenMode mode = WriteOnly) override;
    // False when a write, the flush to disk or the rename failed; error() says why.
    bool commit();
    // Drops what was written.
    void close() override;

    // errno of the first failure, 0 when none.
    int error() const { return m_error; }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    void discard();

    QString m_path;
    QByteArray m_temporary;
    int m_fd = -1;
    int m_error = 0;
};

} // namespace temporaries
