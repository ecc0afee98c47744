#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "EndedProcess.h"
#include "SmallFullDisk.h"
#include "TreeBuilder.h"

#include "app/Settings.h"

#include <QCoreApplication>
#include <QImage>
#include <QRandomGenerator>
#include <QSet>

namespace {

using namespace Qt::StringLiterals;

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
    CliRunner cli;
    QTemporaryDir elsewhere;
    const QString blocker = elsewhere.filePath(u"datei"_s);
    writeFile(blocker);
    const QString settings = blocker + u"/Silberbuch.ini"_s;
    cli.useSettingsFile(settings);
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s);
    const QString expected = u"Die Einstellungen konnten nicht gespeichert werden: Die Datei \""_s + settings
        + u"\" ist schreibgeschützt, oder auf dem Datenträger ist kein Platz mehr."_s;
    const QStringList calls[] = { { u"archive"_s, u"default"_s, u"Musik"_s },
        { u"drives"_s, u"add"_s, u"q"_s, elsewhere.path() } };
    for (const QStringList &call : calls) {
        SCOPED_TRACE(call.join(u' ').toStdString());
        const CliRun run = cli.run(call);
        EXPECT_EQ(std::tuple(run.exitCode, run.error, run.lines), std::tuple(1, expected, QStringList()));
    }
}

// Temporary files of a killed capture or archive creation go with the next one of their
// kind; those of a process that still runs stay. A settings lock left empty by a process
// killed while making it does not hold the next run up.
TEST(Faults, DebrisOfKilledRunsGoesWithTheNextRun)
{
    const CliRunner cli;
    writeFile(cli.settingsFile() + u".update-lock"_s);
    const QString dead = QString::number(endedProcessId());
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

// Every file the program replaces, on a disk with a page or two left or none: exit code 1
// with the German message, every file on the disk as it was and no temporary file left.
TEST(Faults, AFullDiskIsSaidAndLosesNothing)
{
    struct Case
    {
        const char *name;
        int freePages;
        QStringList words; // "%1" stands for the disk
        QString message; // "%1" stands for the disk
        bool settingsOnDisk = true;
    };
    const QString settingsFailure = u"Die Einstellungen konnten nicht gespeichert werden: Die Datei \"%1/Silberbuch.ini\" "
                                    u"ist schreibgeschützt, oder auf dem Datenträger ist kein Platz mehr."_s;
    QTemporaryDir outside;
    const QString cover = outside.filePath(u"cover.png"_s);
    QImage(300, 150, QImage::Format_RGB32).save(cover);
    TreeBuilder(outside.filePath(u"volume"_s)).file(u"a.txt"_s, 1, 981173106);
    const Case cases[] = {
        { "print into a PDF", 2, { u"print"_s, u"list"_s, u"--pdf"_s, u"%1/alt.pdf"_s },
            u"Fehler! Es konnte nicht gedruckt werden. Stellen Sie sicher, dass ein Drucker angeschlossen und korrekt "
            u"eingestellt ist."_s },
        { "default archive", 1, { u"archive"_s, u"default"_s, u"Musik"_s }, settingsFailure },
        { "drive table", 1, { u"drives"_s, u"add"_s, u"q"_s, outside.path() }, settingsFailure },
        { "results file", 0, { u"search"_s, u"alt"_s, u"--save"_s, u"%1/treffer.txt"_s },
            u"Laufzeitfehler '75':\n\nFehler beim Zugriff auf Pfad/Datei"_s },
        { "HTML pages", 0, { u"export"_s, u"html"_s, u"%1/seite.html"_s },
            u"Die Seite \"%1/seite.html\" kann nicht geschrieben werden (Ordner fehlt, schreibgeschützt oder "
            u"Datenträger voll)."_s },
        { "drive image", 0, { u"capture"_s, outside.filePath(u"volume"_s), u"--cd"_s, u"1"_s },
            u"Das Laufwerksabbild \"%1/data/lws/"_s, false },
        { "new archive", 1, { u"archive"_s, u"create"_s, u"Neu"_s },
            u"Auf dem Datenträger ist kein Platz mehr. Die Änderung wurde nicht gespeichert."_s },
        { "cover", 2,
            { u"cd"_s, u"add"_s, u"--number"_s, u"2"_s, u"--title"_s, u"Zwei"_s, u"--cover"_s, cover },
            u"Das Cover-Bild \"%1/data/Covers/"_s },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        SmallFullDisk disk;
        if (!disk.mounted())
            GTEST_SKIP() << disk.skipReason();
        CliRunner cli;
        if (c.settingsOnDisk)
            cli.useSettingsFile(disk.filePath(u"Silberbuch.ini"_s));
        const QString data = disk.filePath(u"data"_s);
        ArchiveBuilder(data, u"Musik"_s).cd(1, u"Eins"_s, u"Sta1|Kommentar|End1"_s, 42);
        writeFile(data + u"/lws/42.dat"_s, ">d:\r\nd:\\alt.txt|1|01.01.2000\r\n\r\n");
        QDir().mkpath(data + u"/Covers"_s);
        for (const char *old : { "alt.pdf", "treffer.txt", "seite.html" })
            writeFile(disk.filePath(QString::fromLatin1(old)), "alter Inhalt");
        Settings settings(cli.settingsFile());
        settings.setValue(SettingKey::Standard, u"Alt"_s);
        settings.setGroupValue(u"Drives"_s, u"d:"_s, u"/media/cdrom"_s);
        const auto before = disk.snapshot();
        ASSERT_TRUE(disk.fill(c.freePages));

        QStringList words { u"--data"_s, data, u"--archive"_s, u"Musik"_s };
        for (const QString &word : c.words)
            words << QString(word).replace(u"%1"_s, disk.path());
        const CliRun run = cli.run(words, false);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(run.error.startsWith(QString(c.message).replace(u"%1"_s, disk.path()))) << run.error.toStdString();
        EXPECT_TRUE(disk.snapshot() == before);
    }
}

// The temporary files of the data folder: none may stay once a run has ended.
QStringList temporaryFiles(const CliRunner &cli)
{
    QStringList found;
    for (const char *folder : { "archive", "lws", "Covers" })
        for (const QString &name : QDir(cli.dataPath(QString::fromLatin1(folder))).entryList({ u".*"_s }, QDir::Files | QDir::Hidden))
            found << QString::fromLatin1(folder) + u'/' + name;
    return found;
}

// Restores and archive creations killed at random moments leave their temporary files
// behind; the next run, whatever its verb, removes every one of them.
TEST(Faults, TheNextRunRemovesTheDebrisOfKilledRestoresAndCreations)
{
    const CliRunner cli;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s).cd(1, u"Eins"_s, u"Sta1|End1"_s, 42);
    cli.write(u"lws/42.dat"_s, QByteArray(32 << 20, 'i'));
    const QString backup = cli.scratch(u"musik.bup"_s);
    ASSERT_EQ(cli.run({ u"--archive"_s, u"Musik"_s, u"backup"_s, backup }).exitCode, 0);
    // Each run starts by sweeping, so the debris of a kill is looked at before the next run.
    // A restore takes some 50 ms here, half of it the start: kills are spread over it.
    QRandomGenerator random(21);
    int killsWithDebris = 0;
    const auto killAndSweep = [&](const QStringList &arguments, int delayMs) {
        cli.killAfter(arguments, delayMs);
        const QStringList left = temporaryFiles(cli);
        if (left.isEmpty())
            return;
        ++killsWithDebris;
        ASSERT_EQ(cli.run(args({ "archive", "list" })).exitCode, 0);
        EXPECT_EQ(temporaryFiles(cli), QStringList()) << left.join(u' ').toStdString();
    };
    for (int i = 0; i < 30; ++i)
        killAndSweep({ u"restore"_s, backup, u"--replace"_s }, random.bounded(5, 80));
    for (int i = 0; i < 10; ++i)
        killAndSweep({ u"archive"_s, u"create"_s, u"Neu%1"_s.arg(i) }, random.bounded(5, 40));
    EXPECT_GE(killsWithDebris, 3) << "too few kills landed while a file was written";
}

} // namespace
