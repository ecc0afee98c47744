#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "TreeBuilder.h"

#include <QCoreApplication>
#include <QSet>

#include <sys/mount.h>
#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;

// The pid of a process that has ended.
qint64 deadPid()
{
    QProcess process;
    process.start(u"true"_s);
    process.waitForFinished();
    return process.processId() ? process.processId() : 999999;
}

// The letters the drive table has, c: aside, and their ids.
std::pair<QSet<QString>, QSet<QString>> lettersAndIds(const CliRunner &cli)
{
    QSet<QString> letters;
    QSet<QString> ids;
    for (const QString &line : cli.run({ u"drives"_s }).lines) {
        const QStringList fields = line.split(u'\t');
        if (fields.value(0) != u"c:"_s) {
            letters.insert(fields.value(0));
            ids.insert(fields.value(3));
        }
    }
    return { letters, ids };
}

// Two programs capturing new folders at the same moment each get letters and ids of their
// own: the drive table is read and written under one lock.
TEST(Faults, ConcurrentCapturesOfNewFoldersGetLettersAndIdsOfTheirOwn)
{
    const CliRunner cli;
    const int before = static_cast<int>(lettersAndIds(cli).first.size());
    if (before > 3)
        GTEST_SKIP() << "this machine's volumes leave fewer than 20 free letters";
    QTemporaryDir volumes;
    QStringList scripts[2];
    for (int i = 0; i < 20; ++i) {
        const QString folder = volumes.filePath(u"v%1"_s.arg(i));
        TreeBuilder(volumes.path()).file(u"v%1/a.txt"_s.arg(i), 1, 981173106);
        scripts[i % 2] << u"\"$0\" --data \"$1\" capture "_s + folder + u" || exit 1"_s;
    }
    std::vector<std::unique_ptr<QProcess>> runs;
    for (const QStringList &script : scripts) {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"SILBERBUCH_CONFIG"_s, cli.settingsFile());
        process->setProcessEnvironment(environment);
        process->start(u"sh"_s, { u"-c"_s, script.join(u'\n'), QStringLiteral(SILBERBUCH_CLI), cli.dataFolder() });
        runs.push_back(std::move(process));
    }
    for (const auto &process : runs) {
        ASSERT_TRUE(process->waitForFinished(60000));
        EXPECT_EQ(process->exitCode(), 0) << process->readAllStandardError().toStdString();
    }
    const auto [letters, ids] = lettersAndIds(cli);
    EXPECT_EQ(letters.size(), before + 20);
    EXPECT_EQ(ids.size(), before + 20);
    EXPECT_EQ(QDir(cli.dataPath(u"lws"_s)).entryList(QDir::Files | QDir::Hidden).size(), 20);
}

// A settings file that cannot be written (here its folder cannot be made) is said, with
// exit code 1, instead of a success that is forgotten at once.
TEST(Faults, UnwritableSettingsAreSaidNotForgotten)
{
    const CliRunner cli;
    QTemporaryDir elsewhere;
    const QString blocker = elsewhere.filePath(u"datei"_s);
    writeFile(blocker);
    const QString settings = blocker + u"/Silberbuch.ini"_s;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"SILBERBUCH_CONFIG"_s, settings);
    process.setProcessEnvironment(environment);
    const QString expected = u"Die Einstellungen konnten nicht gespeichert werden: Die Datei \""_s + settings
        + u"\" ist schreibgeschützt, oder auf dem Datenträger ist kein Platz mehr."_s;
    const QStringList calls[] = { { u"archive"_s, u"default"_s, u"Musik"_s },
        { u"drives"_s, u"add"_s, u"q"_s, elsewhere.path() } };
    for (const QStringList &call : calls) {
        SCOPED_TRACE(call.join(u' ').toStdString());
        process.start(QStringLiteral(SILBERBUCH_CLI), QStringList { u"--data"_s, cli.dataFolder() } + call);
        ASSERT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitCode(), 1);
        EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()).trimmed(), expected);
        EXPECT_TRUE(process.readAllStandardOutput().isEmpty());
    }
}

// Temporary files of a killed capture or archive creation go with the next one of their
// kind; those of a process that still runs stay. A settings lock left empty by a process
// killed while making it does not hold the next run up.
TEST(Faults, DebrisOfKilledRunsGoesWithTheNextRun)
{
    const CliRunner cli;
    writeFile(cli.settingsFile() + u".update-lock"_s);
    const QString dead = QString::number(deadPid());
    const QString alive = QString::number(QCoreApplication::applicationPid());
    cli.write(u"lws/.capture-"_s + dead + u"-1f.tmp"_s, QByteArray(100000, 'x'));
    cli.write(u"lws/.capture-"_s + alive + u"-2f.tmp"_s, "busy");
    cli.write(u"archive/.archive-"_s + dead + u"-3f.tmp"_s, "");
    QTemporaryDir volume;
    TreeBuilder(volume.path()).file(u"a.txt"_s, 1, 981173106);
    const CliRun captured = cli.run({ u"capture"_s, volume.path() });
    ASSERT_EQ(captured.exitCode, 0) << captured.error.toStdString();
    ASSERT_EQ(cli.run(args({ "archive", "create", "Neu" })).exitCode, 0);
    QStringList expected({ u".capture-"_s + alive + u"-2f.tmp"_s, captured.lines.value(0) + u".dat"_s });
    expected.sort();
    EXPECT_EQ(QDir(cli.dataPath(u"lws"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name), expected);
    EXPECT_EQ(QDir(cli.dataPath(u"archive"_s)).entryList(QDir::Files | QDir::Hidden), QStringList({ u"Neu.mdb"_s }));
}

// A capture killed at any moment leaves the old image or the new one whole, never a part;
// the next capture leaves no debris.
TEST(Faults, AKilledCaptureLeavesAWholeImage)
{
    const CliRunner cli;
    QTemporaryDir volume;
    TreeBuilder tree(volume.path());
    for (int i = 0; i < 3000; ++i)
        tree.file(u"f%1/d%2.txt"_s.arg(i % 300).arg(i), 1, 981173106);
    const CliRun first = cli.run({ u"capture"_s, volume.path() });
    ASSERT_EQ(first.exitCode, 0);
    const QString image = cli.dataPath(u"lws/%1.dat"_s.arg(first.lines.value(0)));
    const QByteArray whole = fileBytes(image);
    for (const int delayMs : { 0, 5, 15, 30, 60 }) {
        SCOPED_TRACE(delayMs);
        writeFile(image, ">d:\r\n\r\n");
        cli.killAfter({ u"capture"_s, volume.path() }, delayMs);
        const QByteArray left = fileBytes(image);
        EXPECT_TRUE(left == ">d:\r\n\r\n" || left == whole) << left.size();
    }
    ASSERT_EQ(cli.run({ u"capture"_s, volume.path() }).exitCode, 0);
    EXPECT_EQ(fileBytes(image), whole);
    EXPECT_EQ(QDir(cli.dataPath(u"lws"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

// A full disk: each writer says so, and what was there before stays as it was. Needs a
// small file system of its own, which only root may mount here.
TEST(Faults, AFullDiskIsSaidAndLosesNothing)
{
    const CliRunner cli;
    const QString disk = cli.scratch(u"voll"_s);
    QDir().mkpath(disk);
    if (::geteuid() != 0 || ::mount("tmpfs", QFile::encodeName(disk).constData(), "tmpfs", 0, "size=256k") != 0)
        GTEST_SKIP() << "no small file system can be mounted here (needs root)";
    struct Unmount
    {
        QString path;
        ~Unmount() { ::umount2(QFile::encodeName(path).constData(), MNT_DETACH); }
    } unmount { disk };
    const QString data = disk + u"/data"_s;
    {
        ArchiveBuilder(data, u"Musik"_s).cd(1, u"Eins"_s, u"Sta1|Kommentar|End1"_s, 42);
    }
    QTemporaryDir volume;
    TreeBuilder(volume.path()).file(u"a.txt"_s, 1, 981173106);
    const QByteArray oldImage = ">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n";
    writeFile(data + u"/lws/42.dat"_s, oldImage);
    writeFile(disk + u"/treffer.txt"_s, "alte Treffer");
    const QByteArray archive = fileBytes(data + u"/archive/Musik.mdb"_s);
    QFile filler(disk + u"/fueller"_s);
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    while (filler.write(QByteArray(4096, 'x')) > 0 && filler.flush()) {
    }
    filler.close();

    const auto run = [&](const QStringList &words) {
        return cli.run(QStringList { u"--data"_s, data, u"--archive"_s, u"Musik"_s } + words, false);
    };
    const CliRun saved = run({ u"search"_s, u"alt"_s, u"--save"_s, disk + u"/treffer.txt"_s });
    EXPECT_EQ(saved.exitCode, 1);
    EXPECT_FALSE(saved.error.isEmpty());
    const CliRun added = run({ u"cd"_s, u"add"_s, u"--number"_s, u"2"_s, u"--title"_s, QString(50, u'x'), u"--comment"_s,
        QString(4000, u'k') });
    EXPECT_EQ(added.exitCode, 1);
    EXPECT_FALSE(added.error.isEmpty());
    const CliRun captured = run({ u"capture"_s, volume.path(), u"--cd"_s, u"1"_s });
    EXPECT_EQ(captured.exitCode, 1);
    EXPECT_FALSE(captured.error.isEmpty());
    EXPECT_EQ(fileBytes(disk + u"/treffer.txt"_s), QByteArray("alte Treffer"));
    EXPECT_EQ(fileBytes(data + u"/lws/42.dat"_s), oldImage);
    EXPECT_EQ(fileBytes(data + u"/archive/Musik.mdb"_s), archive);
}

} // namespace
