#include "transfer/Backup.h"

#include "ArchiveBuilder.h"
#include "BackupBytes.h"
#include "QStringPrinting.h"
#include "TempCatalog.h"
#include "TestPaths.h"

#include "app/DataPaths.h"
#include "archives/ArchiveConnection.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace Qt::StringLiterals;

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

// The files below a folder with their bytes and the folders, each with a trailing "/".
std::map<QString, QByteArray> treeBelow(const QString &folder)
{
    std::map<QString, QByteArray> tree = filesBelow(folder);
    QDirIterator it(folder, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext())
        tree[QDir(folder).relativeFilePath(it.next()) + u'/'] = {};
    return tree;
}

// The bytes of an empty archive of ours.
QByteArray archiveBytes()
{
    QTemporaryDir dir;
    return fileBytes(ArchiveBuilder(dir.path(), u"Leer"_s).path());
}

// An SQLite file with another table than "cds".
QByteArray sqliteWithoutCds()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"andere.mdb"_s);
    EXPECT_TRUE(ArchiveConnection(path, ArchiveConnection::Mode::Create).run(u"CREATE TABLE andere (x)"_s).ok());
    return fileBytes(path);
}

bool never(const QString &)
{
    return false;
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
    const backup::RestoreResult restored = backup::restore(target, empty.path(), never);
    ASSERT_TRUE(restored.ok()) << restored.error.toStdString();
    EXPECT_EQ(restored.written.size(), 3);
    std::map<QString, QByteArray> expected = filesBelow(data);
    for (const QString &notBackedUp : { u"archive/def.ini"_s, u"archive/def2.ini"_s, u"lws/temp.tm1"_s })
        expected.erase(notBackedUp);
    EXPECT_EQ(filesBelow(empty.path()), expected);
}

// A backup as the Windows version writes it: "\" paths, code page 1252, a count text, a Jet
// database, a name in capitals skipped, another ending skipped.
TEST(Backup, RestoresABackupOfTheWindowsVersion)
{
    const QByteArray jet = fileBytes(fixturePath(u"mdb/DateTestDatabase.mdb"_s));
    const QByteArray inner = backupRecord("C:\\Programme\\Silberbuch\\Archive\\Alt\xE4.mdb", jet)
        + backupRecord("C:\\Programme\\Silberbuch\\LWS\\12.dat", ">d:\r\n\r\n")
        + backupRecord("C:\\Programme\\Silberbuch\\Covers\\5.bmp", "BM")
        + backupRecord("C:\\Programme\\Silberbuch\\Archive\\GROSS.MDB", "x") + backupRecord("C:\\x\\notiz.txt", "y");
    QTemporaryDir dir;
    writeFile(dir.filePath(u"alt.bup"_s), backupFile(5, inner));
    const QString data = dir.filePath(u"data"_s);
    const backup::RestoreResult restored = backup::restore(dir.filePath(u"alt.bup"_s), data, never);
    ASSERT_TRUE(restored.ok()) << restored.error.toStdString();
    // This Jet file has no table cds: it stays as restored, and the user hears why.
    EXPECT_EQ(restored.notices.size(), 1);
    EXPECT_EQ(filesBelow(data),
        (std::map<QString, QByteArray> {
            { u"archive/Altä.mdb"_s, jet }, { u"lws/12.dat"_s, ">d:\r\n\r\n" }, { u"Covers/5.bmp"_s, "BM" } }));
}

// Only the counted records are read: what follows them, in the inner stream or behind the two
// outer records (the Windows version wrote over a longer file without cutting it), is left.
TEST(Backup, RestoresOnlyTheCountedRecords)
{
    const QByteArray archive = archiveBytes();
    const QByteArray inner = backupRecord("C:\\A\\Archive\\Neu.mdb", archive) + backupRecord("C:\\A\\LWS\\1.dat", "img");
    const QByteArray olderBackup = backupFile(3, inner + backupRecord("C:\\A\\LWS\\9.dat", "alt"));
    const std::pair<const char *, QByteArray> cases[] = {
        { "the older file's tail behind the two records", backupFile(2, inner) + olderBackup.mid(40) },
        { "a record behind the counted ones", backupFile(2, inner + backupRecord("C:\\A\\LWS\\9.dat", "alt")) },
    };
    for (const auto &[what, bytes] : cases) {
        SCOPED_TRACE(what);
        QTemporaryDir dir;
        writeFile(dir.filePath(u"b.bup"_s), bytes);
        const backup::RestoreResult restored = backup::restore(dir.filePath(u"b.bup"_s), dir.filePath(u"data"_s), never);
        EXPECT_TRUE(restored.ok()) << restored.error.toStdString();
        EXPECT_EQ(filesBelow(dir.filePath(u"data"_s)),
            (std::map<QString, QByteArray> { { u"archive/Neu.mdb"_s, archive }, { u"lws/1.dat"_s, "img" } }));
    }
}

// Files that are no backup, or not a whole one, or hold no archive, and an archive the user
// will not have replaced: refused quickly with their reason, nothing written.
TEST(Backup, RefusedFilesWriteNothing)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(u"b.bup"_s);
    const QString noBackup = u"Die Datei \""_s + file + u"\" ist kein vollständiges Backup. Es wurde nichts wiederhergestellt."_s;
    const QByteArray image = backupRecord("C:\\A\\LWS\\1.dat", "img");
    const QByteArray inner = backupRecord("C:\\A\\Archive\\Neu.mdb", archiveBytes()) + image;
    const QByteArray whole = backupFile(2, inner);
    const QByteArray emptyRecords(8 << 20, '\0');
    const std::tuple<const char *, QByteArray, bool, QString> cases[] = { // what, bytes, archive there, error
        { "cut short", whole.left(whole.size() - 3), false, noBackup },
        { "foreign", "%PDF-1.4 no backup at all", false, noBackup },
        { "count is no number", backupRecord("C:\\TmpC.txt", "zwei") + backupRecord("C:\\b.bup2", inner), false, noBackup },
        { "inner records run past their stream", backupFile(2, inner.left(12)), false, noBackup },
        { "fewer records than counted", backupFile(3, inner), false, noBackup },
        { "a count of none", backupFile(0, inner), false, noBackup },
        { "8 MB of empty records, all counted", backupFile(static_cast<int>(emptyRecords.size() / 4), emptyRecords),
            false, noBackup },
        { "no archive among the records", backupFile(2, image + backupRecord("C:\\A\\notiz.txt", "x")), false,
            u"Das Backup \""_s + file + u"\" enthält kein Archiv. Es wurde nichts wiederhergestellt."_s },
        { "an archive that is none", backupFile(2, backupRecord("C:\\A\\Archive\\Neu.mdb", "db") + image), false,
            u"Die Datei \"C:\\A\\Archive\\Neu.mdb\" im Backup ist kein Archiv. Es wurde nichts wiederhergestellt."_s },
        { "an SQLite file without the table cds",
            backupFile(2, image + backupRecord("C:\\A\\Archive\\Neu.mdb", sqliteWithoutCds())), false,
            u"Die Datei \"C:\\A\\Archive\\Neu.mdb\" im Backup ist kein Archiv. Es wurde nichts wiederhergestellt."_s },
        { "the archive is there and stays", whole, true,
            u"Das Archiv Neu ist bereits vorhanden. Es wurde nichts wiederhergestellt."_s },
    };
    for (const auto &[what, bytes, archiveThere, error] : cases) {
        SCOPED_TRACE(what);
        QTemporaryDir data;
        if (archiveThere)
            writeFile(data.filePath(u"archive/Neu.mdb"_s), "mine");
        const auto before = treeBelow(data.path());
        writeFile(file, bytes);
        bool asked = false;
        QElapsedTimer timer;
        timer.start();
        const backup::RestoreResult restored = backup::restore(file, data.path(), [&](const QString &name) {
            asked = name == u"Neu"_s;
            return false;
        });
        EXPECT_LT(timer.elapsed(), 2000);
        EXPECT_EQ(restored.error, error);
        EXPECT_EQ(asked, archiveThere);
        EXPECT_EQ(treeBelow(data.path()), before);
    }
}

// A name that is no plain file name refuses the whole backup before anything is written,
// inside the data folder or anywhere else; the message names the entry.
TEST(Backup, RefusesNamesThatAreNoPlainFileNames)
{
    const QByteArray good = backupRecord("C:\\S\\Archive\\Neu.mdb", archiveBytes()) + backupRecord("C:\\S\\LWS\\1.dat", "img");
    QTemporaryDir outside;
    const QByteArray absolute = QFile::encodeName(outside.filePath(u"fremd/2.dat"_s));
    const QByteArray long300 = QByteArray(296, 'a') + ".dat";
    const std::tuple<const char *, QByteArray, QString> cases[] = { // what, stored name, as the message shows it
        { "climbs out with ../", "C:\\S\\LWS\\../../opfer.dat", u"C:\\S\\LWS\\../../opfer.dat"_s },
        { "only ..", "C:\\S\\LWS\\..", u"C:\\S\\LWS\\.."_s },
        { "two dots inside a name", "C:\\S\\LWS\\a..b.dat", u"C:\\S\\LWS\\a..b.dat"_s },
        { "an absolute path behind the last backslash", "C:\\S\\LWS\\" + absolute,
            u"C:\\S\\LWS\\"_s + QString::fromUtf8(absolute) },
        { "a NUL after the name", QByteArray("C:\\S\\LWS\\../opfer\0" "0.dat", 23), u"C:\\S\\LWS\\../opfer?0.dat"_s },
        { "a control character", "C:\\S\\LWS\\3\x1B.dat", u"C:\\S\\LWS\\3?.dat"_s },
        { "a name of 300 bytes", "C:\\S\\LWS\\" + long300,
            QString::fromLatin1("C:\\S\\LWS\\" + long300).left(120) + u"…"_s },
        { "nothing behind the last backslash", "C:\\S\\LWS\\", u"C:\\S\\LWS\\"_s },
    };
    for (const auto &[what, name, shown] : cases) {
        SCOPED_TRACE(what);
        QTemporaryDir root;
        const QString file = writeFile(root.filePath(u"b.bup"_s), backupFile(3, good + backupRecord(name, "x")));
        QDir(root.path()).mkpath(u"data/lws"_s);
        const auto before = treeBelow(root.path());
        const backup::RestoreResult restored = backup::restore(file, root.filePath(u"data"_s), never);
        EXPECT_EQ(restored.error,
            u"Das Backup enthält den ungültigen Dateinamen \""_s + shown + u"\". Es wurde nichts wiederhergestellt."_s);
        EXPECT_EQ(treeBelow(root.path()), before);
        EXPECT_EQ(treeBelow(outside.path()), (std::map<QString, QByteArray> {}));
    }
}

// A file that cannot be put in place midway (a folder where a cover goes, a file where the
// covers' folder goes) leaves the data folder byte for byte as it was: files replaced before
// come back, new files and folders go, no temporary file stays.
TEST(Backup, AFailureMidwayLeavesTheDataFolderAsItWas)
{
    const QByteArray archive = archiveBytes();
    const QByteArray inner = backupRecord("C:\\S\\Archive\\Neu.mdb", archive) + backupRecord("C:\\S\\LWS\\1.dat", "neu 1")
        + backupRecord("C:\\S\\LWS\\2.dat", "neu 2") + backupRecord("C:\\S\\Covers\\5.bmp", "BM neu");
    const std::tuple<const char *, std::function<void(const QString &)>, QString> cases[] = { // what, data, fails
        { "a folder in the place of the cover",
            [](const QString &data) {
                writeFile(data + u"/archive/Neu.mdb"_s, "altes Archiv");
                writeFile(data + u"/lws/1.dat"_s, "altes Abbild");
                writeFile(data + u"/Covers/5.bmp/darin.txt"_s, "im Weg");
            },
            u"Covers/5.bmp"_s },
        { "a file in the place of the covers' folder",
            [](const QString &data) {
                writeFile(data + u"/archive/Neu.mdb"_s, "altes Archiv");
                writeFile(data + u"/Covers"_s, "im Weg");
            },
            u"Covers/5.bmp"_s },
    };
    for (const auto &[what, prepare, failing] : cases) {
        SCOPED_TRACE(what);
        QTemporaryDir dir;
        const QString data = dir.filePath(u"data"_s);
        prepare(data);
        const auto before = treeBelow(data);
        const QString file = writeFile(dir.filePath(u"b.bup"_s), backupFile(4, inner));
        const backup::RestoreResult restored = backup::restore(file, data, [](const QString &) { return true; });
        EXPECT_EQ(restored.error,
            u"Die Datei \""_s + data + u'/' + failing
                + u"\" kann nicht geschrieben werden (Datenträger voll oder schreibgeschützt?). Es wurde nichts "
                  u"wiederhergestellt."_s);
        EXPECT_EQ(treeBelow(data), before);
    }
}

// A name that code page 1252 cannot store, or that would come back as another name, is
// refused by the backup; no file is written.
TEST(Backup, RefusesArchiveNamesABackupCannotStore)
{
    const std::pair<QString, QString> cases[] = { // archive name, error
        { u"Ωmega"_s,
            u"Der Dateiname \"Ωmega.mdb\" enthält Zeichen, die ein Backup nicht speichern kann (\"Ω\"): Backups "
            u"speichern Namen in der Zeichentabelle Windows-1252. Es wurde kein Backup geschrieben."_s },
        { u"Musik\\Alt"_s,
            u"Der Dateiname \"Musik\\Alt.mdb\" enthält einen umgekehrten Schrägstrich oder ein Steuerzeichen und "
            u"kann in einem Backup nicht gespeichert werden. Es wurde kein Backup geschrieben."_s },
    };
    for (const auto &[name, error] : cases) {
        SCOPED_TRACE(name.toStdString());
        QTemporaryDir dir;
        const ArchiveBuilder archive(dir.path(), name);
        const QString target = dir.filePath(u"b.bup"_s);
        EXPECT_EQ(backup::write(archive.path(), dir.path(), target, false), error);
        EXPECT_FALSE(QFileInfo::exists(target));
    }
}

} // namespace
