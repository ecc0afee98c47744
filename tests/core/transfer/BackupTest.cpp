#include "transfer/Backup.h"

#include "ArchiveBuilder.h"
#include "TempCatalog.h"
#include "TestPaths.h"

#include "app/DataPaths.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// A record as the format stores it: lengths little-endian, the short form below 65535 bytes,
// else the long one.
QByteArray record(const QByteArray &name, const QByteArray &content)
{
    const auto le = [](quint32 value, int bytes) {
        value = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&value), bytes);
    };
    const auto length = [&le](qsizetype size) {
        const auto n = static_cast<quint32>(size);
        return size < 0xFFFF ? le(n, 2) : QByteArray(le(0xFFFF, 2) + le(n, 4));
    };
    return length(name.size()) + name + length(content.size()) + content;
}

// Every file below a folder with its bytes.
std::map<QString, QByteArray> filesBelow(const QString &folder)
{
    std::map<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files[QDir(folder).relativeFilePath(path)] = fileBytes(path);
    }
    return files;
}

// An archive with two CDs, an image, a cover, a row whose image is missing: written and
// restored into an empty data folder, every file comes back byte for byte.
TEST(Backup, RestoresByteIdenticallyIntoAnEmptyDataFolder)
{
    TempCatalog catalog;
    const QString data = catalog.dataFolder();
    catalog.archive().cd(1, u"Urlaub"_s, u"Sta1|Fotos|End1"_s, 4711, u"123"_s).cd(2, u"Ohne"_s, u"Sta1|End1"_s, 99);
    writeFile(datapaths::imageFile(data, 4711), QByteArray(200000, 'i'));
    writeFile(datapaths::coverFile(data, u"123"_s), "BMbitmap");
    QTemporaryDir out;
    const QString target = out.filePath(u"Test.bup"_s);
    ASSERT_EQ(backup::write(catalog.session().archivePath, data, target, false), QString());

    QTemporaryDir empty;
    const backup::RestoreResult restored = backup::restore(target, empty.path(), [](const QString &) { return false; });
    ASSERT_TRUE(restored.ok()) << restored.error.toStdString();
    EXPECT_EQ(restored.written.size(), 3);
    std::map<QString, QByteArray> expected = filesBelow(data);
    for (const QString &notBackedUp : { u"archive/def.ini"_s, u"archive/def2.ini"_s, u"lws/temp.tm1"_s })
        expected.erase(notBackedUp);
    EXPECT_EQ(filesBelow(empty.path()), expected);
}

// A backup as the Windows version writes it: "\" paths, code page 1252, a count text, a name
// in capitals skipped, another ending skipped.
TEST(Backup, RestoresABackupOfTheWindowsVersion)
{
    const QByteArray inner = record("C:\\Programme\\Silberbuch\\Archive\\Alt\xE4.mdb", QByteArray(70000, 'm'))
        + record("C:\\Programme\\Silberbuch\\LWS\\12.dat", ">d:\r\n\r\n")
        + record("C:\\Programme\\Silberbuch\\Covers\\5.bmp", "BM")
        + record("C:\\Programme\\Silberbuch\\Archive\\GROSS.MDB", "x") + record("C:\\x\\notiz.txt", "y");
    QTemporaryDir dir;
    writeFile(dir.filePath(u"alt.bup"_s),
        record("C:\\Programme\\Silberbuch\\TmpC.txt", " 5 \r\n") + record("C:\\Backups\\alt.bup2", inner));
    const QString data = dir.filePath(u"data"_s);
    const backup::RestoreResult restored
        = backup::restore(dir.filePath(u"alt.bup"_s), data, [](const QString &) { return false; });
    ASSERT_TRUE(restored.ok()) << restored.error.toStdString();
    EXPECT_EQ(filesBelow(data),
        (std::map<QString, QByteArray> { { u"archive/Altä.mdb"_s, QByteArray(70000, 'm') },
            { u"lws/12.dat"_s, ">d:\r\n\r\n" }, { u"Covers/5.bmp"_s, "BM" } }));
}

// Truncated, foreign and empty files, and an archive the user will not have replaced: nothing
// is written.
TEST(Backup, RefusedFilesWriteNothing)
{
    QTemporaryDir dir;
    const QByteArray inner = record("C:\\A\\Archive\\Neu.mdb", "db") + record("C:\\A\\LWS\\1.dat", "img");
    const QByteArray whole = record("C:\\TmpC.txt", " 2 \r\n") + record("C:\\b.bup2", inner);
    const std::tuple<const char *, QByteArray, bool> cases[] = { // what, bytes, archive there
        { "cut short", whole.left(whole.size() - 3), false },
        { "empty", {}, false },
        { "foreign", "%PDF-1.4 no backup at all", false },
        { "a third outer record", whole + record("x", "y"), false },
        { "count is no number", record("C:\\TmpC.txt", "zwei") + record("C:\\b.bup2", inner), false },
        { "inner records run past their stream", record("C:\\TmpC.txt", " 2 \r\n") + record("C:\\b.bup2", inner.left(12)), false },
        { "the archive is there and stays", whole, true },
    };
    for (const auto &[what, bytes, archiveThere] : cases) {
        SCOPED_TRACE(what);
        QTemporaryDir data;
        if (archiveThere)
            writeFile(data.filePath(u"archive/Neu.mdb"_s), "mine");
        const auto before = filesBelow(data.path());
        writeFile(dir.filePath(u"b.bup"_s), bytes);
        bool asked = false;
        const backup::RestoreResult restored = backup::restore(dir.filePath(u"b.bup"_s), data.path(), [&](const QString &name) {
            asked = name == u"Neu"_s;
            return false;
        });
        EXPECT_FALSE(restored.ok());
        EXPECT_EQ(asked, archiveThere);
        EXPECT_EQ(filesBelow(data.path()), before);
    }
}

} // namespace
