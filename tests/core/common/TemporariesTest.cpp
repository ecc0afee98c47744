#include "common/Temporaries.h"

#include "EndedProcess.h"
#include "QStringPrinting.h"
#include "SmallFullDisk.h"
#include "TestPaths.h"

#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// A full disk fails every way of replacing a file, whether the bytes come whole or in pieces
// and whether the disk is full before the first write or during the last: the old file stays
// as it was and no temporary file is left.
TEST(Temporaries, AFullDiskFailsTheReplacementAndKeepsTheOldFile)
{
    struct Case
    {
        const char *name;
        int freePages;
        std::function<bool(const QString &path)> replace;
    };
    const QByteArray threePages(3 * ::getpagesize(), 'n');
    const Case cases[] = {
        { "whole bytes, one page free", 1,
            [&](const QString &path) { return temporaries::replaceFile(path, threePages); } },
        { "whole bytes, no page free", 0,
            [&](const QString &path) { return temporaries::replaceFile(path, "neu"); } },
        { "streamed in small pieces, the last one too many", 2,
            [&](const QString &path) {
                temporaries::AtomicFile file(path);
                EXPECT_TRUE(file.open());
                for (int i = 0; i < 3 * ::getpagesize() / 100; ++i)
                    file.write(QByteArray(100, 's'));
                return file.commit();
            } },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        SmallFullDisk disk(256);
        if (!disk.mounted())
            GTEST_SKIP() << disk.skipReason();
        const QString path = writeFile(disk.filePath(u"alt.txt"_s), "alter Inhalt");
        ASSERT_TRUE(disk.fill(c.freePages));
        errno = 0;
        EXPECT_FALSE(c.replace(path));
        EXPECT_EQ(errno, ENOSPC);
        EXPECT_EQ(fileBytes(path), QByteArray("alter Inhalt"));
        EXPECT_EQ(disk.names(), QStringList { u"alt.txt"_s });
    }
}

// A streamed file that is dropped or destroyed before its commit leaves the old file and no
// temporary; a commit puts the whole content in place.
TEST(Temporaries, OnlyACommitReplacesTheFile)
{
    QTemporaryDir dir;
    const QString path = writeFile(dir.filePath(u"seite.html"_s), "alt");
    {
        temporaries::AtomicFile dropped(path);
        ASSERT_TRUE(dropped.open());
        dropped.write("halb");
    }
    EXPECT_EQ(fileBytes(path), QByteArray("alt"));
    temporaries::AtomicFile file(path);
    ASSERT_TRUE(file.open());
    file.write("ganz ");
    file.write("neu");
    ASSERT_TRUE(file.commit());
    EXPECT_EQ(fileBytes(path), QByteArray("ganz neu"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList { u"seite.html"_s });
}

// The sweep takes every temporary file of a process that is gone, whatever its prefix, with
// a database's companions; the files of a living process and every other file stay.
TEST(Temporaries, TheSweepTakesTheTemporariesOfEndedProcessesOnly)
{
    QTemporaryDir dir;
    const QString dead = QString::number(endedProcessId());
    const QString alive = QString::number(QCoreApplication::applicationPid());
    const QStringList gone = { u".restore-"_s + dead + u"-3fa9.tmp"_s, u".archive-"_s + dead + u"-c0.tmp"_s,
        u".archive-"_s + dead + u"-c0.tmp-journal"_s, u".archive-"_s + dead + u"-c1.tmp-wal"_s,
        u".archive-"_s + dead + u"-c1.tmp-shm"_s, u".42.dat-"_s + dead + u"-ab.tmp"_s };
    QStringList kept = { u".restore-"_s + alive + u"-3fa9.tmp"_s, u".archive-"_s + alive + u"-c0.tmp-journal"_s,
        u"Musik.mdb"_s, u"restore-"_s + dead + u"-1.tmp"_s, u".restore-"_s + dead + u"-xyz.tmp"_s,
        u".restore-"_s + dead + u"-1.tmp.bak"_s, u"."_s + dead + u"-1.tmp"_s };
    for (const QString &name : gone + kept)
        writeFile(dir.filePath(name), "x");
    temporaries::removeAllStale(dir.path());
    kept.sort();
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name), kept);
}

} // namespace
