#include "images/ImageCapture.h"
#include "images/ArchiveListing.h"
#include "images/CaptureFilter.h"
#include "images/CaptureProgress.h"
#include "images/FolderEntries.h"
#include "images/ImageLine.h"

#include "TestPaths.h"
#include "TreeBuilder.h"
#include "ZipBytes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <map>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QByteArray kOldImage = ">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n";

// Notes the last report; cancels at the first one when asked to.
struct Reports : CaptureProgress
{
    void progress(uint32_t dirs, uint32_t files, const QString &) override { m_counts = { dirs, files }; }
    bool cancelled() override { return m_cancel; }
    bool m_cancel = false;
    std::pair<uint32_t, uint32_t> m_counts;
};

// A data folder and a volume folder, each in its own temporary folder.
struct Workspace
{
    QTemporaryDir data;
    QTemporaryDir volume;
    TreeBuilder tree { volume.path() };

    CaptureResult capture(
        const char *filter, bool prune, CaptureProgress *progress = nullptr, const char *drive = "d:")
    {
        return ImageCapture(data.path())
            .capture(QLatin1String(drive), volume.path(), 4711, QString::fromUtf8(filter), prune, progress);
    }
    QString imagePath() const { return data.filePath(QStringLiteral("lws/4711.dat")); }
    QByteArray image() const { return fileBytes(imagePath()); }
    QStringList lwsFiles() const
    {
        return QDir(data.filePath(QStringLiteral("lws"))).entryList(QDir::Files | QDir::Hidden);
    }
};

// Modification times (UTC).
constexpr int64_t kLiesmich = 1047462067; // 12.03.2003 09:41:07
constexpr int64_t kBilder = 1027879364; // 28.07.2002 18:02:44
constexpr int64_t kNotiz = 981173106; // 03.02.2001 04:05:06
constexpr int64_t kStart = 1042935151; // 19.01.2003 00:12:31

// An archive's folder line and the entry lines of the ZIP or RAR fixture it is a copy of.
QByteArray archive(const QByteArray &path, bool rar = false)
{
    QByteArray rows = rar
        ? "testdir/test.txt|16|18.08.2011;test.txt|16|18.08.2011;testshortcut.lnk|441|18.08.2011"
        : "folder/a.txt|7|03.02.2001;b.txt|12|03.02.2001;||";
    return ">" + path + "\r\n" + path + "\\" + rows.replace(";", "\r\n" + path + "\\");
}

// One entry of the fixture volume and the lines it gives when all files are captured and
// nothing is pruned. The entries stand in the order a capture writes them: depth first, each
// folder sorted as the Windows file system lists it (upper-cased UTF-16 units, so "." before
// letters, "A.ZIP" before "Archiv", "Leer" before "liesmich.txt", "ß" after "Z"). `made`: empty for a file of
// `size` bytes, "/" for a folder, "->x" for a link to x, else the fixture it is a copy of.
struct Entry
{
    const char *path, *made;
    int64_t size, mtime;
    QByteArray lines;
};

std::vector<Entry> fixtureVolume()
{
    const char *twoFiles = "zip/two_files_and_folder.zip";
    const char *basicRar = "rar/rar4_basic_windows.rar";
    return {
        { ".versteckt", "", 1, kNotiz, "d:\\.versteckt|1|03.02.2001 04:05:06" },
        { "A.ZIP", "zip/not_a_zip.zip", 0, kNotiz, ">d:\\A.ZIP\r\nd:\\A.ZIP\\||" },
        { "a.zip.bak", "", 3, kNotiz, "d:\\a.zip.bak|3|03.02.2001 04:05:06" },
        { "Archiv", "/", 0, 0, ">d:\\Archiv" },
        { "Archiv/pack.zip", twoFiles, 0, kBilder, archive("d:\\Archiv\\pack.zip") },
        { "Bilder", "/", 0, 0, ">d:\\Bilder" },
        { "Bilder/alt.zip", twoFiles, 0, kBilder, archive("d:\\Bilder\\alt.zip") },
        { "Bilder/haus.jpg", "", 482113, kBilder, "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44" },
        { "Bilder/notiz.txt", "", 5, kNotiz, "d:\\Bilder\\notiz.txt|5|03.02.2001 04:05:06" },
        { "Grüße", "/", 0, 0, ">d:\\Gr\374\337e" }, // code page 1252, in octal
        { "Grüße/Größe.txt", "", 2, kNotiz, "d:\\Gr\374\337e\\Gr\366\337e.txt|2|03.02.2001 04:05:06" },
        { "Grüße/日本.txt", "", 4, kNotiz, "d:\\Gr\374\337e\\??.txt|4|03.02.2001 04:05:06" },
        { "Leer", "/", 0, 0, ">d:\\Leer" },
        { "Leer/Tiefer", "/", 0, 0, ">d:\\Leer\\Tiefer" },
        { "liesmich.txt", "", 1834, kLiesmich, "d:\\liesmich.txt|1834|12.03.2003 09:41:07" },
        // Links are files with the length of their target, never followed.
        { "link-auf-bilder", "->Bilder", 0, kNotiz, "d:\\link-auf-bilder|6|03.02.2001 04:05:06" },
        { "link.zip", "->Bilder/alt.zip", 0, kNotiz, "d:\\link.zip|14|03.02.2001 04:05:06" },
        { "Nur Archiv tief", "/", 0, 0, ">d:\\Nur Archiv tief" },
        { "Nur Archiv tief/Unter", "/", 0, 0, ">d:\\Nur Archiv tief\\Unter" },
        { "Nur Archiv tief/Unter/tief.zip", twoFiles, 0, kBilder,
            archive("d:\\Nur Archiv tief\\Unter\\tief.zip") },
        { "Nur jpg", "/", 0, 0, ">d:\\Nur jpg" },
        { "Nur jpg/a.jpg", "", 10, kBilder, "d:\\Nur jpg\\a.jpg|10|28.07.2002 18:02:44" },
        { "Setup", "/", 0, 0, ">d:\\Setup" },
        { "Setup/daten.rar", basicRar, 0, kStart, archive("d:\\Setup\\daten.rar", true) },
        { "Setup/start.exe", "", 65536, kStart, "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31" },
        { "x.rar", "/", 0, 0, ">d:\\x.rar" },
        { "x.rar/inner.txt", "", 3, kNotiz, "d:\\x.rar\\inner.txt|3|03.02.2001 04:05:06" },
    };
}

// The image from the lines of the entries, in the order of the fixture table.
QByteArray compose(const std::map<QString, QByteArray> &lines)
{
    QByteArray out = ">d:\r\n";
    for (const Entry &e : fixtureVolume())
        if (const auto found = lines.find(QString::fromUtf8(e.path));
            found != lines.end() && !found->second.isEmpty())
            out += found->second + "\r\n";
    return out + "\r\n";
}

} // namespace

TEST(ImageCapture, EachFilterAndPruneGivesItsImageOfTheFixtureVolume)
{
    Workspace w;
    std::map<QString, QByteArray> everything;
    for (const Entry &e : fixtureVolume()) {
        const QString path = QString::fromUtf8(e.path);
        const QString made = QString::fromUtf8(e.made);
        if (made == u'/')
            w.tree.folder(path);
        else if (made.startsWith(QLatin1String("->")))
            w.tree.symlink(made.mid(2), path, e.mtime);
        else if (made.isEmpty())
            w.tree.file(path, e.size, e.mtime);
        else
            w.tree.copy(fixturePath(made), path, e.mtime);
        everything[path] = e.lines;
    }
    using Paths = std::vector<const char *>;
    const Paths emptyFolders = { "Leer", "Leer/Tiefer" };
    const Paths noText = { "Bilder/haus.jpg", "Nur jpg/a.jpg", "Setup/start.exe", "a.zip.bak", ".versteckt",
        "link-auf-bilder", "link.zip" };
    // Pruned, a folder without a passing file takes the last line back, one per folder
    // level: here the last entry of an archive.
    const Paths archivesOnly
        = { "Archiv/pack.zip", "Nur Archiv tief/Unter/tief.zip", "Nur Archiv tief/Unter/tief.zip" };
    // filter, prune, entries left out, entries whose last line is taken back
    const std::tuple<const char *, bool, std::vector<Paths>, std::vector<Paths>> cases[] = {
        { "*.*", false, {}, {} },
        { "*.*", true, { emptyFolders }, { archivesOnly } },
        { "*.txt", false, { noText }, {} },
        { "*.txt", true, { noText, emptyFolders, { "Nur jpg" } }, { archivesOnly, { "Setup/daten.rar" } } },
    };
    for (const auto &[filter, prune, left, takenBack] : cases) {
        SCOPED_TRACE(std::string(filter) + (prune ? " pruned" : ""));
        std::map<QString, QByteArray> lines = everything;
        for (const Paths &paths : left)
            for (const char *path : paths)
                lines.erase(QString::fromUtf8(path));
        for (const Paths &paths : takenBack)
            for (const char *path : paths) {
                QByteArray &text = lines[QString::fromUtf8(path)];
                text.truncate(text.lastIndexOf("\r\n"));
            }
        const CaptureResult result = w.capture(filter, prune);
        ASSERT_TRUE(result.ok() && result.imageId == 4711) << result.error.toStdString();
        EXPECT_EQ(w.image(), compose(lines));
        EXPECT_EQ(w.lwsFiles(), QStringList { QStringLiteral("4711.dat") });
    }
}

TEST(ImageCapture, MissingVolumeDriveLetterCaseAndFinalCounts)
{
    // Without a volume the listing of the root fails: the nameless line of an unreadable folder.
    Workspace gone;
    gone.volume.remove();
    ASSERT_TRUE(gone.capture("*.*", true).ok());
    EXPECT_EQ(gone.image(), ">d:\r\nd:\\|0|01.01.1601\r\n\r\n");
    Workspace w;
    for (const char *file : { "a/1.txt", "a/b/2.txt", "3.txt" })
        w.tree.file(QLatin1String(file), 1, kNotiz);
    Reports reports;
    const CaptureResult result = w.capture("*.*", true, &reports, "E:");
    EXPECT_TRUE(w.image().startsWith(">e:\r\n")) << "the drive letter is written in lower case";
    EXPECT_EQ(std::make_tuple(result.folders, result.files, reports.m_counts),
        std::make_tuple(2u, 3u, std::make_pair(2u, 3u)));
}

TEST(ImageCapture, RefusedFailedOrCancelledCapturesKeepTheOldImage)
{
    Workspace w;
    writeFile(w.imagePath(), kOldImage);
    w.tree.file(QStringLiteral("a/b.txt"), 1, kNotiz);
    writeZip(w.tree.path(QStringLiteral("zuviel.zip")), zipEntries(kMaxZipEntries + 1));
    Reports cancel;
    cancel.m_cancel = true;
    const std::tuple<const char *, const char *, CaptureProgress *, const char *> cases[] = {
        { "d:", "*.[", nullptr, "Ungültiges Suchmuster" },
        { "d:\\", "*.*", nullptr, "\"d:\\\" ist kein Laufwerk" },
        { "d:", "*.*", &cancel, "Die Erstellung des Laufwerksabbilds wurde abgebrochen." },
        { "d:", "*.*", nullptr, "Überlauf: Die ZIP-Datei" }, // the lister's message stops the capture
    };
    for (const auto &[drive, filter, progress, message] : cases) {
        SCOPED_TRACE(message);
        const CaptureResult result = w.capture(filter, false, progress, drive);
        EXPECT_TRUE(result.error.startsWith(QString::fromUtf8(message))) << result.error.toStdString();
        EXPECT_EQ(std::tuple(result.cancelled, w.image(), w.lwsFiles()),
            std::tuple(progress != nullptr, kOldImage, QStringList { QStringLiteral("4711.dat") }));
    }
    // A capture that succeeds replaces the longer old image whole.
    QFile::remove(w.tree.path(QStringLiteral("zuviel.zip")));
    ASSERT_TRUE(w.capture("*.*", false).ok());
    EXPECT_EQ(w.image(), ">d:\r\n>d:\\a\r\nd:\\a\\b.txt|1|03.02.2001 04:05:06\r\n\r\n");
}

// A folder that cannot be read for a reason other than its permissions (here: no file handle
// left) must not leave a silently short image: with too few handles the capture fails with a
// message and the old image stays; with enough it is complete.
TEST(ImageCapture, RunningOutOfFileHandlesNeverGivesAShortImage)
{
    Workspace w;
    w.tree.file(QStringLiteral("a/b/c.txt"), 1, kNotiz);
    const QByteArray complete = ">d:\r\n>d:\\a\r\n>d:\\a\\b\r\nd:\\a\\b\\c.txt|1|03.02.2001 04:05:06\r\n\r\n";
    rlimit saved {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &saved), 0);
    bool walkStopped = false;
    for (int spare = 1; spare <= 8; ++spare) {
        SCOPED_TRACE(spare);
        writeFile(w.imagePath(), kOldImage);
        rlimit low = saved;
        low.rlim_cur = 128;
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
        std::vector<int> held;
        for (int fd; (fd = ::open("/dev/null", O_RDONLY | O_CLOEXEC)) >= 0;)
            held.push_back(fd);
        for (int i = 0; i < spare && !held.empty(); ++i) {
            ::close(held.back());
            held.pop_back();
        }
        const CaptureResult result = w.capture("*.*", false);
        for (const int fd : held)
            ::close(fd);
        ::setrlimit(RLIMIT_NOFILE, &saved);
        EXPECT_EQ(w.image(), result.ok() ? complete : kOldImage) << result.error.toStdString();
        walkStopped
            = walkStopped || result.error.contains(QStringLiteral("Es sind zu viele Dateien geöffnet"));
    }
    EXPECT_TRUE(walkStopped);
}

// Deep trees cost neither call stack nor open handles: a capture in a thread with a small
// stack walks 3000 levels whole.
TEST(ImageCapture, ADeepTreeIsWalkedWholeOnASmallStack)
{
    Workspace w;
    w.tree.deepFolders("d", 3000, "unten.txt");
    CaptureResult result;
    const std::unique_ptr<QThread> thread(QThread::create([&] { result = w.capture("*.*", false); }));
    thread->setStackSize(128 * 1024);
    thread->start();
    thread->wait();
    TreeBuilder::removeDeep(w.tree.path(QStringLiteral("d")));
    ASSERT_TRUE(result.ok()) << result.error.toStdString();
    EXPECT_EQ(result.folders, 3000u);
    const QByteArray image = w.image();
    EXPECT_EQ(image.count("\r\n>d:\\d"), 3000);
    EXPECT_TRUE(image.contains("\r\nd:" + QByteArray("\\d").repeated(3000) + "\\unten.txt|0|"));
}

// The nameless line counts as a file: pruned, it keeps its folder.
TEST(ImageCapture, AnUnreadableFolderLeavesANamelessLine)
{
    Workspace w;
    const QString folder = w.tree.path(QStringLiteral("System Volume Information"));
    w.tree.folder(QStringLiteral("System Volume Information"));
    QDir().mkpath(w.data.filePath(QStringLiteral("lws")));
    const std::pair<QString, mode_t> modes[] = { { w.volume.path(), 0755 }, { folder, 0 },
        { w.data.path(), 0777 }, { w.data.filePath(QStringLiteral("lws")), 0777 } };
    for (const auto &[path, mode] : modes)
        ::chmod(QFile::encodeName(path).constData(), mode);
    // The superuser may list any folder, so the capture runs as "nobody" then.
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit((::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            || !w.capture("*.*", true).ok());
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(w.image(),
        ">d:\r\n>d:\\System Volume Information\r\nd:\\System Volume Information\\|0|01.01.1601\r\n\r\n");
}

// Names that a line cannot hold, from the volume and from a ZIP alike, get "?" for the field
// separator, for control characters, and for a backslash inside a volume name (a ZIP's
// backslash is its packer's folder separator and stays one). Every file line then reads back
// with its own name and size.
TEST(ImageCapture, NamesALineCannotHoldGetQuestionMarksAndReadBackWhole)
{
    Workspace w;
    const std::tuple<const char *, const char *, int64_t, const char *, const char *> volume[] = {
        // why, file made, size, lines written, name read back
        { "field separator", "a|b|c.txt", 10, "d:\\a?b?c.txt|10|03.02.2001 04:05:06", "a?b?c.txt" },
        { "backslash", "back\\slash.txt", 11, "d:\\back?slash.txt|11|03.02.2001 04:05:06", "back?slash.txt" },
        { "escape", "esc\x1b.txt", 12, "d:\\esc?.txt|12|03.02.2001 04:05:06", "esc?.txt" },
        { "folder with a backslash", "ord\\ner/x.txt", 1, ">d:\\ord?ner\r\nd:\\ord?ner\\x.txt|1|03.02.2001 04:05:06",
            "x.txt" },
        { "tab", "tab\t.txt", 13, "d:\\tab?.txt|13|03.02.2001 04:05:06", "tab?.txt" },
    };
    const std::tuple<const char *, std::string, const char *, const char *> zip[] = {
        // why, stored name, line written, name read back
        { "field separator", "a|b.txt", "d:\\namen.zip\\a?b.txt|2|03.02.2001", "a?b.txt" },
        { "the packer's separator", "dir\\sub.txt", "d:\\namen.zip\\dir\\sub.txt|2|03.02.2001", "sub.txt" },
        { "delete", "del\x7f.txt", "d:\\namen.zip\\del?.txt|2|03.02.2001", "del?.txt" },
        { "line break and a folder line", "x\r\n>d:\\weg\r\ny.txt", "d:\\namen.zip\\x?\?>d:\\weg?\?y.txt|2|03.02.2001",
            "weg?\?y.txt" },
    };
    std::string entries;
    QByteArray zipLines = ">d:\\namen.zip\r\n";
    for (const auto &[why, name, line, readBack] : zip) {
        entries += zipEntry(name, "xy");
        zipLines += QByteArray(line) + "\r\n";
    }
    writeZip(w.tree.path(QStringLiteral("namen.zip")), entries);
    // Listed in the order of the Windows file system: the ZIP after "esc".
    QByteArray expected = ">d:\r\n";
    for (const auto &[why, made, size, lines, readBack] : volume) {
        w.tree.file(QString::fromUtf8(made), size, kNotiz);
        if (std::string_view(why) == "folder with a backslash")
            expected += zipLines + "d:\\namen.zip\\||\r\n";
        expected += QByteArray(lines) + "\r\n";
    }
    ASSERT_TRUE(w.capture("*.*", false).ok());
    EXPECT_EQ(w.image(), expected + "\r\n");

    std::vector<std::pair<std::string, std::string>> readBack;
    for (const QByteArray &bytes : w.image().split('\n')) {
        const std::string line = bytes.chopped(bytes.endsWith('\r') ? 1 : 0).toStdString();
        imageline::FileFields fields;
        if (!imageline::isFolder(line) && imageline::cutFileLine(line, fields))
            readBack.emplace_back(fields.name, fields.size);
    }
    std::vector<std::pair<std::string, std::string>> names;
    for (const auto &[why, made, size, lines, name] : volume) {
        if (std::string_view(why) == "folder with a backslash") {
            for (const auto &[zipWhy, stored, line, zipName] : zip)
                names.emplace_back(zipName, "2");
            names.emplace_back("", "");
        }
        names.emplace_back(name, std::to_string(size));
    }
    EXPECT_EQ(readBack, names);
}

// Folders list as the Windows file system sorts them, so images match the Windows
// version's: upper-cased UTF-16 code units, compared one by one; equal keys by their bytes.
TEST(FolderEntries, NamesSortAsTheWindowsFileSystemListsThem)
{
    // why, the name listed first, the name after it
    const std::tuple<const char *, const char *, const char *> cases[] = {
        { "letter case does not count", "apfel", "Birne" },
        { "a prefix comes first", "A.ZIP", "a.zip.bak" },
        { "punctuation by its code", "A.ZIP", "Archiv" },
        { "letters before the underscore", "zebra", "_intern" },
        { "hidden names by their dot", ".versteckt", "Archiv" },
        { "equal when upper-cased: by bytes", "README", "Readme" },
        { "umlauts after every ASCII letter", "Zebra", "Äpfel" },
        { "sharp s stays itself, not SS", "Grüsse2", "Grüße" },
        { "dotless i is I", "i", "ı" },
        { "code units, not code points", "😀", "ﬁ" },
        { "digits before letters", "9", "A" },
    };
    for (const auto &[why, before, after] : cases)
        EXPECT_EQ(std::pair(ntfsLess(before, after), ntfsLess(after, before)), std::pair(true, false)) << why;
}

TEST(CaptureFilter, MatchesTheUpperCasedFilterAnywhereInTheUpperCasedName)
{
    // Only "txt" is left of "*.txt"; without a leading star the dot stays; the nameless line
    // of an unreadable folder passes "*.*"; "" is "**". Code page 1252: \344 ä, \304 Ä.
    const std::tuple<const char *, const char *, bool> cases[] = { { "*.TXT", "notiz.txt", true },
        { "*.txt", "bild.jpg", false }, { "*.txt", "txtliste.doc", true }, { "a*.txt", "Daten.txt", true },
        { "a*.txt", "Daten_txt", false }, { "*.[jt]*", "haus.jpg", true }, { "*.*", "", true },
        { "*.txt", "", false }, { "", "beliebig.bin", true }, { "*\344rger*", "\304RGER.doc", true } };
    for (const auto &[typed, name, passes] : cases) {
        const CaptureFilter filter(typed);
        ASSERT_TRUE(filter.errorMessage().isEmpty()) << typed;
        EXPECT_EQ(filter.passes(name), passes) << typed << " ~ " << name;
    }
    // "[_-z]" upper-cased runs backwards: both sides are upper-cased, never lower-cased.
    for (const char *typed : { "*.[", "*.[_-z]" }) {
        const CaptureFilter filter(typed);
        EXPECT_TRUE(filter.errorMessage().startsWith(QStringLiteral("Ungültiges Suchmuster"))) << typed;
        EXPECT_FALSE(filter.passes("a")) << typed;
    }
}
