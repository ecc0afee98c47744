#pragma once

#include <QString>

// Temporary files that become a real file by renaming, named after the process that writes
// them ("<prefix><pid>-<random>.tmp"), so that the debris of a process that was killed can be
// told from the work of one that still runs.
namespace temporaries {

// A fresh name in `folder` for this process.
QString freshName(const QString &folder, const QString &prefix);

// Removes the files "<prefix><pid>-*.tmp" in `folder` whose process is gone.
void removeStale(const QString &folder, const QString &prefix);

// Writes `bytes` as the whole new content of `path`: into a temporary file beside it, every
// write and the flush to disk checked, then renamed over it. False (errno kept) when anything
// failed; the old file is then untouched and no temporary file is left.
bool replaceFile(const QString &path, const QByteArray &bytes);

} // namespace temporaries
