#include "images/ImageCapture.h"
#include "images/ArchiveListing.h"
#include "images/CaptureProgress.h"

#include "TestPaths.h"
#include "TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Modification times of the fixture volume (UTC).
constexpr int64_t kLiesmich = 1047462067; // 12.03.2003 09:41:07
constexpr int64_t kBilder = 1027879364; // 28.07.2002 18:02:44
constexpr int64_t kNotiz = 981173106; // 03.02.2001 04:05:06
constexpr int64_t kStart = 1042935151; // 19.01.2003 00:12:31
constexpr int64_t kFilm = 1070223300; // 30.11.2003 20:15:00
constexpr int64_t kMidnight = 1044057600; // 01.02.2003 00:00:00

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// A data folder and a volume folder, each in its own temporary folder.
struct Workspace
{
    QTemporaryDir data;
    QTemporaryDir volume;
    TreeBuilder tree { volume.path() };

    CaptureResult capture(
        const char *filter, bool prune, int32_t id = 4711, CaptureProgress *progress = nullptr)
    {
        return ImageCapture(data.path())
            .capture(QStringLiteral("d:"), volume.path(), id, QString::fromUtf8(filter), prune, progress);
    }
    QString imagePath(int32_t id = 4711) const { return data.filePath(QStringLiteral("lws/%1.dat").arg(id)); }
    QByteArray image(int32_t id = 4711) const { return readAll(imagePath(id)); }
    QStringList lwsFiles() const
    {
        return QDir(data.filePath(QStringLiteral("lws"))).entryList(QDir::Files | QDir::Hidden);
    }
    void oldImage(int32_t id = 4711)
    {
        QDir().mkpath(data.filePath(QStringLiteral("lws")));
        QFile file(imagePath(id));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n");
    }
};

// The lines each entry of a volume contributes, by its path below the root; an entry
// without a key contributes nothing. Lines are put together in the order the file system
// lists each folder, which is the order a capture must follow.
using Contributions = QMap<QString, QByteArray>;

QByteArray compose(const TreeBuilder &tree, const Contributions &lines, const QString &folder = {})
{
    QByteArray out;
    for (const QString &name : tree.listingOrder(folder)) {
        const QString relative = folder.isEmpty() ? name : folder + QLatin1Char('/') + name;
        out += lines.value(relative);
        const QFileInfo info(tree.path(relative));
        if (info.isDir() && !info.isSymLink())
            out += compose(tree, lines, relative);
    }
    return out;
}

QByteArray image(const TreeBuilder &tree, const Contributions &lines)
{
    return ">d:\r\n" + compose(tree, lines) + "\r\n";
}

// An archive's folder line and entry lines, the last `lost` of them left out.
QByteArray archive(const QByteArray &path, const QList<QByteArray> &rows, int lost = 0)
{
    QByteArray out = ">" + path + "\r\n";
    for (qsizetype i = 0; i < rows.size() - lost; ++i)
        out += path + "\\" + rows[i] + "\r\n";
    return out;
}

const QList<QByteArray> kZipRows = { "folder/a.txt|7|03.02.2001", "b.txt|12|03.02.2001", "||" };
const QList<QByteArray> kRarRows
    = { "testdir/test.txt|16|18.08.2011", "test.txt|16|18.08.2011", "testshortcut.lnk|441|18.08.2011" };
const QList<QByteArray> kNoZipRows = { "||" };

QString zipFixture(const char *name)
{
    return fixturePath(QStringLiteral("zip/") + QLatin1String(name));
}
QString rarFixture(const char *name)
{
    return fixturePath(QStringLiteral("rar/") + QLatin1String(name));
}

class FixtureVolume : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TreeBuilder &t = w.tree;
        t.file(QStringLiteral("liesmich.txt"), 1834, kLiesmich);
        t.file(QStringLiteral("Bilder/haus.jpg"), 482113, kBilder);
        t.copy(zipFixture("two_files_and_folder.zip"), QStringLiteral("Bilder/alt.zip"), kBilder);
        t.file(QStringLiteral("Bilder/notiz.txt"), 5, kNotiz);
        t.file(QStringLiteral("Nur jpg/a.jpg"), 10, kBilder);
        t.file(QStringLiteral("Nur jpg/b.jpg"), 11, kBilder);
        t.folder(QStringLiteral("Leer/Tiefer"));
        t.copy(zipFixture("two_files_and_folder.zip"), QStringLiteral("Archiv/pack.zip"), kBilder);
        t.copy(rarFixture("rar4_basic_windows.rar"), QStringLiteral("Setup/daten.rar"), kStart);
        t.file(QStringLiteral("Setup/start.exe"), 65536, kStart);
        t.copy(rarFixture("rar4_basic_windows.rar"), QStringLiteral("Rar allein/nur.rar"), kStart);
        t.copy(zipFixture("two_files_and_folder.zip"), QStringLiteral("Nur Archiv tief/Unter/tief.zip"),
            kBilder);
        t.file(QStringLiteral("x.rar/inner.txt"), 3, kNotiz);
        t.copy(zipFixture("not_a_zip.zip"), QStringLiteral("A.ZIP"), kNotiz);
        t.file(QStringLiteral("a.zip.bak"), 3, kNotiz);
        t.file(QStringLiteral("film.avi"), 3000000000LL, kFilm);
        t.file(QStringLiteral("alt.txt"), 17, kMidnight);
        t.file(QStringLiteral(".versteckt"), 1, kNotiz);
        t.symlink(QStringLiteral("Bilder"), QStringLiteral("link-auf-bilder"), kNotiz);
        t.symlink(QStringLiteral("Bilder/alt.zip"), QStringLiteral("link.zip"), kNotiz);
        t.file(QStringLiteral("Grüße/Größe.txt"), 2, kNotiz);
        t.file(QStringLiteral("Grüße/日本.txt"), 4, kNotiz);
    }

    // Every line of the volume: all files, no pruning.
    static Contributions everything()
    {
        return {
            { QStringLiteral("liesmich.txt"), "d:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n" },
            { QStringLiteral("Bilder"), ">d:\\Bilder\r\n" },
            { QStringLiteral("Bilder/haus.jpg"), "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n" },
            { QStringLiteral("Bilder/alt.zip"), archive("d:\\Bilder\\alt.zip", kZipRows) },
            { QStringLiteral("Bilder/notiz.txt"), "d:\\Bilder\\notiz.txt|5|03.02.2001 04:05:06\r\n" },
            { QStringLiteral("Nur jpg"), ">d:\\Nur jpg\r\n" },
            { QStringLiteral("Nur jpg/a.jpg"), "d:\\Nur jpg\\a.jpg|10|28.07.2002 18:02:44\r\n" },
            { QStringLiteral("Nur jpg/b.jpg"), "d:\\Nur jpg\\b.jpg|11|28.07.2002 18:02:44\r\n" },
            { QStringLiteral("Leer"), ">d:\\Leer\r\n" },
            { QStringLiteral("Leer/Tiefer"), ">d:\\Leer\\Tiefer\r\n" },
            { QStringLiteral("Archiv"), ">d:\\Archiv\r\n" },
            { QStringLiteral("Archiv/pack.zip"), archive("d:\\Archiv\\pack.zip", kZipRows) },
            { QStringLiteral("Setup"), ">d:\\Setup\r\n" },
            { QStringLiteral("Setup/daten.rar"), archive("d:\\Setup\\daten.rar", kRarRows) },
            { QStringLiteral("Setup/start.exe"), "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\n" },
            { QStringLiteral("Rar allein"), ">d:\\Rar allein\r\n" },
            { QStringLiteral("Rar allein/nur.rar"), archive("d:\\Rar allein\\nur.rar", kRarRows) },
            { QStringLiteral("Nur Archiv tief"), ">d:\\Nur Archiv tief\r\n" },
            { QStringLiteral("Nur Archiv tief/Unter"), ">d:\\Nur Archiv tief\\Unter\r\n" },
            { QStringLiteral("Nur Archiv tief/Unter/tief.zip"),
                archive("d:\\Nur Archiv tief\\Unter\\tief.zip", kZipRows) },
            { QStringLiteral("x.rar"), ">d:\\x.rar\r\n" },
            { QStringLiteral("x.rar/inner.txt"), "d:\\x.rar\\inner.txt|3|03.02.2001 04:05:06\r\n" },
            { QStringLiteral("A.ZIP"), archive("d:\\A.ZIP", kNoZipRows) },
            { QStringLiteral("a.zip.bak"), "d:\\a.zip.bak|3|03.02.2001 04:05:06\r\n" },
            { QStringLiteral("film.avi"), "d:\\film.avi|-1294967296|30.11.2003 20:15:00\r\n" },
            { QStringLiteral("alt.txt"), "d:\\alt.txt|17|01.02.2003\r\n" },
            { QStringLiteral(".versteckt"), "d:\\.versteckt|1|03.02.2001 04:05:06\r\n" },
            // Links are files with the length of their target, never followed.
            { QStringLiteral("link-auf-bilder"), "d:\\link-auf-bilder|6|03.02.2001 04:05:06\r\n" },
            { QStringLiteral("link.zip"), "d:\\link.zip|14|03.02.2001 04:05:06\r\n" },
            { QStringLiteral("Grüße"),
                ">d:\\Gr\xFC\xDF"
                "e\r\n" },
            { QStringLiteral("Grüße/Größe.txt"),
                "d:\\Gr\xFC\xDF"
                "e\\Gr\xF6\xDF"
                "e.txt|2|03.02.2001 04:05:06\r\n" },
            { QStringLiteral("Grüße/日本.txt"),
                "d:\\Gr\xFC\xDF"
                "e\\??.txt|4|03.02.2001 04:05:06\r\n" },
        };
    }

    static void remove(Contributions &lines, const QStringList &paths)
    {
        for (const QString &path : paths)
            lines.remove(path);
    }

    Workspace w;
};

} // namespace

TEST_F(FixtureVolume, AllFilesKeepingEmptyFoldersGivesEveryLine)
{
    const CaptureResult result = w.capture("*.*", false);
    ASSERT_TRUE(result.ok()) << result.error.toStdString();
    EXPECT_EQ(result.imageId, 4711);
    EXPECT_EQ(w.image(), image(w.tree, everything()));
    EXPECT_EQ(w.lwsFiles(), QStringList { QStringLiteral("4711.dat") });
}

TEST_F(FixtureVolume, AllFilesPrunedDropsEmptyFoldersAndTheLastLineOfArchiveOnlyFolders)
{
    Contributions lines = everything();
    remove(lines, { QStringLiteral("Leer"), QStringLiteral("Leer/Tiefer") });
    lines[QStringLiteral("Archiv/pack.zip")] = archive("d:\\Archiv\\pack.zip", kZipRows, 1);
    lines[QStringLiteral("Rar allein/nur.rar")] = archive("d:\\Rar allein\\nur.rar", kRarRows, 1);
    // Two folder levels without a file: each takes one line back.
    lines[QStringLiteral("Nur Archiv tief/Unter/tief.zip")]
        = archive("d:\\Nur Archiv tief\\Unter\\tief.zip", kZipRows, 2);

    ASSERT_TRUE(w.capture("*.*", true).ok());
    EXPECT_EQ(w.image(), image(w.tree, lines));
    ASSERT_TRUE(w.capture("*", true, 4712).ok());
    EXPECT_EQ(w.image(4712), w.image());
}

TEST_F(FixtureVolume, TextFilterPrunedKeepsFoldersWithTextFilesOrArchives)
{
    Contributions lines = everything();
    remove(lines,
        { QStringLiteral("Bilder/haus.jpg"), QStringLiteral("Nur jpg"), QStringLiteral("Nur jpg/a.jpg"),
            QStringLiteral("Nur jpg/b.jpg"), QStringLiteral("Leer"), QStringLiteral("Leer/Tiefer"),
            QStringLiteral("Setup/start.exe"), QStringLiteral("a.zip.bak"), QStringLiteral("film.avi"),
            QStringLiteral(".versteckt"), QStringLiteral("link-auf-bilder"), QStringLiteral("link.zip") });
    lines[QStringLiteral("Archiv/pack.zip")] = archive("d:\\Archiv\\pack.zip", kZipRows, 1);
    lines[QStringLiteral("Setup/daten.rar")] = archive("d:\\Setup\\daten.rar", kRarRows, 1);
    lines[QStringLiteral("Rar allein/nur.rar")] = archive("d:\\Rar allein\\nur.rar", kRarRows, 1);
    lines[QStringLiteral("Nur Archiv tief/Unter/tief.zip")]
        = archive("d:\\Nur Archiv tief\\Unter\\tief.zip", kZipRows, 2);

    ASSERT_TRUE(w.capture("*.txt", true).ok());
    EXPECT_EQ(w.image(), image(w.tree, lines));
}

TEST_F(FixtureVolume, TextFilterKeepingEmptyFoldersWritesEveryFolderAndArchive)
{
    Contributions lines = everything();
    remove(lines,
        { QStringLiteral("Bilder/haus.jpg"), QStringLiteral("Nur jpg/a.jpg"), QStringLiteral("Nur jpg/b.jpg"),
            QStringLiteral("Setup/start.exe"), QStringLiteral("a.zip.bak"), QStringLiteral("film.avi"),
            QStringLiteral(".versteckt"), QStringLiteral("link-auf-bilder"), QStringLiteral("link.zip") });

    ASSERT_TRUE(w.capture("*.txt", false).ok());
    EXPECT_EQ(w.image(), image(w.tree, lines));
}

TEST(ImageCapture, AnEmptyVolumeGivesTheRootAndTheEndLine)
{
    for (const bool prune : { false, true }) {
        Workspace w;
        ASSERT_TRUE(w.capture("*.*", prune).ok());
        EXPECT_EQ(w.image(), QByteArray(">d:\r\n\r\n")) << prune;
    }
}

TEST(ImageCapture, ADriveWithoutAVolumeGivesTheNamelessLineUnderAllFiles)
{
    const struct
    {
        const char *filter;
        QByteArray image;
    } cases[] = {
        { "*.*", ">d:\r\nd:\\|0|01.01.1601\r\n\r\n" },
        { "*.txt", ">d:\r\n\r\n" },
    };
    for (const auto &c : cases) {
        QTemporaryDir data;
        const CaptureResult result
            = ImageCapture(data.path())
                  .capture(QStringLiteral("d:"), data.filePath(QStringLiteral("nicht da")), 0,
                      QString::fromUtf8(c.filter), true);
        ASSERT_TRUE(result.ok()) << result.error.toStdString();
        EXPECT_EQ(readAll(data.filePath(QStringLiteral("lws/0.dat"))), c.image) << c.filter;
    }
}

TEST(ImageCapture, OnlyEmptyFoldersPrunedGiveTheRootAndTheEndLine)
{
    Workspace w;
    w.tree.folder(QStringLiteral("a/b/c"));
    w.tree.folder(QStringLiteral("d"));
    ASSERT_TRUE(w.capture("*.*", true).ok());
    EXPECT_EQ(w.image(), QByteArray(">d:\r\n\r\n"));
}

TEST(ImageCapture, TheDriveLetterIsWrittenInLowerCase)
{
    Workspace w;
    const CaptureResult result
        = ImageCapture(w.data.path())
              .capture(QStringLiteral("E:"), w.volume.path(), -5, QStringLiteral("*.*"), true);
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(w.image(-5), QByteArray(">e:\r\n\r\n"));
}

TEST(ImageCapture, RefusedInputWritesNothing)
{
    const struct
    {
        const char *drive;
        const char *filter;
        const char *messageStart;
    } cases[] = {
        { "d:", "*.[", "Ungültiges Suchmuster" },
        { "d:", "[a", "Ungültiges Suchmuster" },
        { "d", "*.*", "\"d\" ist kein Laufwerk" },
        { "d:\\", "*.*", "\"d:\\\" ist kein Laufwerk" },
    };
    for (const auto &c : cases) {
        Workspace w;
        w.oldImage();
        const CaptureResult result = ImageCapture(w.data.path())
                                         .capture(QString::fromUtf8(c.drive), w.volume.path(), 4711,
                                             QString::fromUtf8(c.filter), true);
        EXPECT_TRUE(result.error.startsWith(QString::fromUtf8(c.messageStart))) << result.error.toStdString();
        EXPECT_EQ(w.image(), QByteArray(">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n"));
        EXPECT_EQ(w.lwsFiles(), QStringList { QStringLiteral("4711.dat") });
    }
}

namespace {

// Cancels at the first report, which comes as soon as the walk starts.
class CancelAtOnce : public CaptureProgress
{
public:
    void progress(uint32_t, uint32_t, const QString &currentFolder) override { m_folder = currentFolder; }
    bool cancelled() override { return true; }
    QString m_folder;
};

class Counting : public CaptureProgress
{
public:
    void progress(uint32_t folders, uint32_t files, const QString &) override
    {
        m_folders = folders;
        m_files = files;
        ++m_calls;
    }
    bool cancelled() override { return false; }
    uint32_t m_folders = 0;
    uint32_t m_files = 0;
    int m_calls = 0;
};

// A ZIP of `count` stored one-byte entries, local headers only.
QByteArray manyEntries(int count)
{
    const char header[] = "PK\x03\x04\x14\x00\x00\x00\x00\x00\x00\x00\x43\x2A\x00\x00\x00\x00"
                          "\x01\x00\x00\x00\x01\x00\x00\x00\x01\x00\x00\x00";
    const QByteArray entry = QByteArray(header, sizeof header - 1) + "ax";
    return entry.repeated(count);
}

} // namespace

TEST(ImageCapture, ACancelledCaptureLeavesTheOldImageAndNoTemporaryFile)
{
    Workspace w;
    w.tree.file(QStringLiteral("a/b.txt"), 1, kNotiz);
    w.oldImage();
    CancelAtOnce cancel;
    const CaptureResult result = w.capture("*.*", true, 4711, &cancel);
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(result.error, QStringLiteral("Die Erstellung des Laufwerksabbilds wurde abgebrochen."));
    EXPECT_EQ(cancel.m_folder, QStringLiteral("d:"));
    EXPECT_EQ(w.image(), QByteArray(">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n"));
    EXPECT_EQ(w.lwsFiles(), QStringList { QStringLiteral("4711.dat") });
}

TEST(ImageCapture, AZipWithTooManyEntriesStopsTheCaptureWithTheListersMessage)
{
    Workspace w;
    w.oldImage();
    w.tree.file(QStringLiteral("vorher.txt"), 1, kNotiz);
    QFile zip(w.tree.path(QStringLiteral("zuviel.zip")));
    ASSERT_TRUE(zip.open(QIODevice::WriteOnly));
    zip.write(manyEntries(kMaxZipEntries + 1));
    zip.close();

    const CaptureResult result = w.capture("*.*", false);
    const QString expected = listZip(QFile::encodeName(zip.fileName()).toStdString()).error;
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_EQ(result.error, expected);
    EXPECT_FALSE(result.cancelled);
    EXPECT_EQ(w.image(), QByteArray(">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n"));
    EXPECT_EQ(w.lwsFiles(), QStringList { QStringLiteral("4711.dat") });
}

TEST(ImageCapture, ReportsTheFinalCounts)
{
    Workspace w;
    w.tree.file(QStringLiteral("a/1.txt"), 1, kNotiz);
    w.tree.file(QStringLiteral("a/b/2.txt"), 1, kNotiz);
    w.tree.file(QStringLiteral("3.txt"), 1, kNotiz);
    Counting counting;
    const CaptureResult result = w.capture("*.*", true, 4711, &counting);
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(result.folders, 2u);
    EXPECT_EQ(result.files, 3u);
    EXPECT_EQ(counting.m_folders, 2u);
    EXPECT_EQ(counting.m_files, 3u);
    EXPECT_LE(counting.m_calls, 3);
}

TEST(ImageCapture, AnUnreadableFolderLeavesANamelessLineUnderAllFiles)
{
    Workspace w;
    w.tree.file(QStringLiteral("frei.txt"), 1, kNotiz);
    w.tree.folder(QStringLiteral("System Volume Information"));
    ::chmod(QFile::encodeName(w.volume.path()).constData(), 0755);
    ::chmod(QFile::encodeName(w.tree.path(QStringLiteral("System Volume Information"))).constData(), 0);
    QDir().mkpath(w.data.filePath(QStringLiteral("lws")));
    ::chmod(QFile::encodeName(w.data.path()).constData(), 0777);
    ::chmod(QFile::encodeName(w.data.filePath(QStringLiteral("lws"))).constData(), 0777);

    // The superuser may list any folder, so the captures run as "nobody" then.
    const auto captureAs = [&](const char *filter, bool prune, int32_t id) {
        const pid_t child = ::fork();
        if (child == 0) {
            if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
                ::_exit(2);
            ::_exit(w.capture(filter, prune, id).ok() ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    };
    ASSERT_EQ(captureAs("*.*", false, 1), 0);
    ASSERT_EQ(captureAs("*.*", true, 2), 0);
    ASSERT_EQ(captureAs("*.txt", true, 3), 0);
    ASSERT_EQ(captureAs("*.txt", false, 4), 0);

    const Contributions all = {
        { QStringLiteral("frei.txt"), "d:\\frei.txt|1|03.02.2001 04:05:06\r\n" },
        { QStringLiteral("System Volume Information"),
            ">d:\\System Volume Information\r\nd:\\System Volume Information\\|0|01.01.1601\r\n" },
    };
    EXPECT_EQ(w.image(1), image(w.tree, all));
    EXPECT_EQ(w.image(2), image(w.tree, all)); // the nameless line counts as a file and keeps its folder
    EXPECT_EQ(w.image(3), QByteArray(">d:\r\nd:\\frei.txt|1|03.02.2001 04:05:06\r\n\r\n"));
    EXPECT_EQ(w.image(4),
        image(w.tree,
            { { QStringLiteral("frei.txt"), all.value(QStringLiteral("frei.txt")) },
                { QStringLiteral("System Volume Information"), ">d:\\System Volume Information\r\n" } }));
}

TEST(ImageCapture, AFolderOfAnotherFileSystemIsWrittenButNotEntered)
{
    struct stat dev;
    struct stat shm;
    if (::stat("/dev", &dev) != 0 || ::stat("/dev/shm", &shm) != 0 || dev.st_dev == shm.st_dev)
        GTEST_SKIP() << "/dev/shm is no mount point here";
    QTemporaryDir data;
    ASSERT_TRUE(ImageCapture(data.path())
                    .capture(QStringLiteral("z:"), QStringLiteral("/dev"), 9, QStringLiteral("*.*"), false)
                    .ok());
    const QByteArray captured = readAll(data.filePath(QStringLiteral("lws/9.dat")));
    EXPECT_TRUE(captured.contains("\r\n>z:\\shm\r\n"));
    EXPECT_FALSE(captured.contains("z:\\shm\\"));
}
