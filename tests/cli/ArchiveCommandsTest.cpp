#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "app/Settings.h"

namespace {

using namespace Qt::StringLiterals;

TEST(ArchiveCommands, CreateListDefaultAndDelete)
{
    const CliRunner cli;
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, QStringList());
    for (const char *name : { "Musik", "alle Filme", "Weg" })
        ASSERT_EQ(cli.run(args({ "archive", "create", name })).exitCode, 0) << name;
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, args({ "alle Filme", "Musik", "Weg" }));
    EXPECT_TRUE(ArchiveStore(cli.dataPath(u"archive/Musik.mdb"_s)).selectAll().ok());

    const CliRun made = cli.run(args({ "archive", "default", "Weg" }));
    EXPECT_EQ(made.lines.value(0),
        u"Archiv Weg wurde als Standard festgelegt. Nun kann dieses bei jedem Start des Silberbuchs "
        u"automatisch "
        u"gestartet werden. Diese Option können Sie im Hauptfenster unter Optionen einstellen"_s);
    EXPECT_EQ(Settings(cli.settingsFile()).value(SettingKey::Standard), u"Weg"_s);

    // Deleting takes the archive file alone; the default stays, and the next start asks.
    EXPECT_TRUE(ArchiveStore(cli.dataPath(u"archive/Weg.mdb"_s))
                    .addRow({ 1, u"x"_s, 5, u"Sta1|End1"_s, false, u"8"_s })
                    .ok());
    cli.write(u"lws/5.dat"_s, "x");
    cli.write(u"Covers/8.bmp"_s, "x");
    EXPECT_EQ(cli.run(args({ "archive", "delete", "Weg" })).exitCode, 0);
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, args({ "alle Filme", "Musik" }));
    EXPECT_TRUE(QFileInfo::exists(cli.dataPath(u"lws/5.dat"_s))
        && QFileInfo::exists(cli.dataPath(u"Covers/8.bmp"_s)));
    EXPECT_EQ(Settings(cli.settingsFile()).value(SettingKey::Standard), u"Weg"_s);
}

TEST(ArchiveCommands, WithoutDataOptionTheProgramFolderIsTheDataFolder)
{
    const CliRunner cli;
    EXPECT_EQ(cli.runPlain(args({ "archive", "create", "Daheim" })).exitCode, 0);
    EXPECT_EQ(cli.runPlain(args({ "archive", "list" })).lines, args({ "Daheim" }));
    EXPECT_TRUE(QFileInfo::exists(cli.scratch(u"home/archive/Daheim.mdb"_s)));
}

TEST(ArchiveCommands, RefusedCallsSayWhyAndChangeNothing)
{
    const CliRunner cli;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s).cd(1, u"Eins"_s);
    cli.expectRefused(
        { { args({ "archive", "create", "Musik" }), 1,
              u"Fehler! Es existiert bereits ein Archiv mit dem Namen Musik !\nBitte wählen Sie einen anderen Namen"_s },
            { args({ "archive", "create", "a/b" }), 1,
                u"Der Name \"a/b\" kann nicht als Dateiname verwendet werden. Bitte wählen Sie einen anderen Namen."_s },
            { args({ "archive", "delete", "Filme" }), 1,
                u"Fehler: Die Datenbankdatei für das ausgewählte Archiv wurde nicht gefunden. Das Archiv "
                u"wird aus der "
                u"Liste entfernt!"_s },
            { args({ "archive", "default", "musik" }), 1,
                u"Archiv nicht gefunden! Bitte wählen Sie ein anderes aus."_s },
            { args({ "archive", "umbenennen", "x" }), 2, u"Aufruf: silberbuch-cli archive"_s } });

    const QString missing = cli.scratch(u"nirgends"_s);
    const CliRun refused = cli.runPlain({ u"--data"_s, missing, u"archive"_s, u"create"_s, u"X"_s });
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.error, u"Der Datenordner \""_s + missing + u"\" existiert nicht."_s);
    EXPECT_FALSE(QFileInfo::exists(missing));
}

} // namespace
