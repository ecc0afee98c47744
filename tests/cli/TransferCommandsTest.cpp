#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "BackupBytes.h"
#include "TestPaths.h"

namespace {

using namespace Qt::StringLiterals;

// backup and restore through the command line: the refusals of an existing file, the names
// of the files written.
TEST(TransferCommands, BackupAndRestoreWithTheirRefusals)
{
    const CliRunner cli;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s).cd(1, u"Eins"_s, u"Sta1|End1"_s, 42);
    cli.write(u"lws/42.dat"_s, ">d:\r\n\r\n");
    const QString target = cli.scratch(u"musik.bup"_s);
    EXPECT_EQ(cli.run({ u"--archive"_s, u"Musik"_s, u"backup"_s, target }).exitCode, 0);
    const QByteArray first = fileBytes(target);
    cli.expectRefused({ { { u"--archive"_s, u"Musik"_s, u"backup"_s, target }, 1,
                            u"Die Datei \""_s + target + u"\" ist bereits vorhanden. Mit --replace wird sie ersetzt."_s },
        { { u"restore"_s, target }, 1,
            u"Das Archiv Musik ist bereits vorhanden. Es wurde nichts wiederhergestellt."_s },
        { args({ "restore" }), 2, u"Aufruf: silberbuch-cli restore"_s } });
    EXPECT_EQ(cli.run({ u"--archive"_s, u"Musik"_s, u"backup"_s, target, u"--replace"_s }).exitCode, 0);
    EXPECT_EQ(fileBytes(target), first);

    const CliRun restored = cli.run({ u"restore"_s, target, u"--replace"_s });
    EXPECT_EQ(restored.exitCode, 0) << restored.error.toStdString();
    EXPECT_EQ(restored.lines,
        QStringList({ cli.dataPath(u"archive/Musik.mdb"_s), cli.dataPath(u"lws/42.dat"_s) }));
}

// A backup killed at any moment leaves the old backup as it was and no temporary file beside
// it or in the data folder.
TEST(TransferCommands, AKilledBackupLeavesTheOldOne)
{
    const CliRunner cli;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s).cd(1, u"Eins"_s, u"Sta1|End1"_s, 42);
    cli.write(u"lws/42.dat"_s, QByteArray(30 << 20, 'i'));
    const QString target = cli.scratch(u"musik.bup"_s);
    writeFile(target, "altes Backup");
    for (const int delayMs : { 0, 20, 60, 150 }) {
        SCOPED_TRACE(delayMs);
        cli.killAfter({ u"--archive"_s, u"Musik"_s, u"backup"_s, target, u"--replace"_s }, delayMs);
        const QByteArray left = fileBytes(target);
        EXPECT_TRUE(left == "altes Backup" || left.size() > (30 << 20)) << left.size();
        if (left != "altes Backup")
            break; // the backup was quicker than the kill
    }
    // Debris of a killed run is cleared by the next backup.
    EXPECT_EQ(cli.run({ u"--archive"_s, u"Musik"_s, u"backup"_s, target, u"--replace"_s }).exitCode, 0);
    QStringList beside = QDir(cli.scratch({})).entryList(QDir::Files | QDir::Hidden);
    beside.removeAll(u"settings.ini"_s);
    EXPECT_EQ(beside, QStringList { u"musik.bup"_s });
    EXPECT_EQ(QDir(cli.dataPath(u"archive"_s)).entryList(QDir::Files | QDir::Hidden), QStringList { u"Musik.mdb"_s });
}

// A backup whose name climbs out of the data folder (cut by a NUL behind ".dat"), or that holds
// no archive, is refused with exit code 1 before anything is written, anywhere.
TEST(TransferCommands, RestoreRefusesABackupThatIsNoneOfOurs)
{
    const CliRunner cli;
    const QByteArray archive = fileBytes(ArchiveBuilder(cli.scratch(u"quelle"_s), u"Neu"_s).path());
    const QString climbing = writeFile(cli.scratch(u"klettert.bup"_s),
        backupFile(2,
            backupRecord("C:\\Silberbuch\\Archive\\Neu.mdb", archive)
                + backupRecord(QByteArray("C:\\Silberbuch\\LWS\\../../.bashrc\0" "0.dat", 37), "rm -rf ~")));
    const QString noArchive = writeFile(cli.scratch(u"ohne.bup"_s),
        backupFile(1, backupRecord("C:\\Silberbuch\\Archive\\Neu.mdb", QByteArray(4096, '\0'))));
    cli.expectRefused({ { { u"restore"_s, climbing }, 1,
                            u"Das Backup enthält den ungültigen Dateinamen \"C:\\Silberbuch\\LWS\\../../.bashrc?0.dat\". "
                            u"Es wurde nichts wiederhergestellt."_s },
        { { u"restore"_s, noArchive }, 1,
            u"Die Datei \"C:\\Silberbuch\\Archive\\Neu.mdb\" im Backup ist kein Archiv. Es wurde nichts "
            u"wiederhergestellt."_s } });
}

// import-ini names the archive after the file unless told otherwise, and refuses a name that
// is taken.
TEST(TransferCommands, ImportIniNamesTheNewArchive)
{
    const CliRunner cli;
    const QString ini = writeFile(cli.scratch(u"alt.ini"_s), "[Urlaub]\r\nSeriennummer=no\r\nFotos\r\n\r\n");
    EXPECT_EQ(cli.run({ u"import-ini"_s, ini }).lines, QStringList { u"alt.ini"_s });
    EXPECT_EQ(cli.run({ u"import-ini"_s, ini, u"--name"_s, u"Alt"_s }).lines, QStringList { u"Alt"_s });
    EXPECT_EQ(cli.run({ u"--archive"_s, u"Alt"_s, u"cd"_s, u"list"_s }).lines, QStringList { u"1 Urlaub"_s });
    cli.expectRefused({ { { u"import-ini"_s, ini }, 1,
        u"Fehler! Es existiert bereits ein Archiv mit dem Namen alt.ini !\nBitte wählen Sie einen anderen Namen"_s } });
}

// The old program's own layout copied into the data folder (Daten/ beside its image folder),
// with one section whose image is named by no number: the archive holds the rest, its images
// stay, and a note on stderr names the section left out; the exit code says the archive was made.
TEST(TransferCommands, ImportIniFromTheOldLayoutNotesTheSectionsLeftOut)
{
    const CliRunner cli;
    cli.write(u"lws/1234.dat"_s, ">d:\r\n\r\n");
    cli.write(u"lws/abc.dat"_s, ">e:\r\n\r\n");
    cli.write(u"Daten/meine.ini"_s,
        "[Urlaub]\r\nSeriennummer=1234\r\nFotos\r\n\r\n[Kaputt]\r\nSeriennummer=abc\r\n\r\n"
        "[Treiber]\r\nSeriennummer=no\r\n\r\n");
    const CliRun imported = cli.run({ u"import-ini"_s, cli.dataPath(u"Daten/meine.ini"_s) });
    EXPECT_EQ(std::tuple(imported.exitCode, imported.lines, imported.error),
        std::tuple(0, QStringList { u"meine.ini"_s },
            u"Diese CDs der alten Datenbank konnten nicht übernommen werden: [Kaputt]."_s));
    EXPECT_EQ(cli.run({ u"--archive"_s, u"meine.ini"_s, u"cd"_s, u"list"_s }).lines,
        QStringList({ u"1 Urlaub"_s, u"3 Treiber"_s }));
    EXPECT_EQ(fileBytes(cli.dataPath(u"lws/1234.dat"_s)), QByteArray(">d:\r\n\r\n"));
}

} // namespace
