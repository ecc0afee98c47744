#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "app/Settings.h"
#include "TestPaths.h"

namespace {

using namespace Qt::StringLiterals;

// What deleting leaves behind is the catalogue's rule; here the default stays after the delete,
// and without --data the program folder holds the archives.
TEST(ArchiveCommands, CreateListDefaultAndDelete)
{
    const CliRunner cli;
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, QStringList());
    for (const char *name : { "Musik", "alle Filme", "Weg" })
        ASSERT_EQ(cli.run(args({ "archive", "create", name })).exitCode, 0) << name;
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, args({ "alle Filme", "Musik", "Weg" }));
    EXPECT_TRUE(ArchiveStore(cli.dataPath(u"archive/Musik.mdb"_s)).selectAll().ok());

    EXPECT_EQ(cli.run(args({ "archive", "default", "Weg" })).lines.value(0),
        u"Archiv Weg wurde als Standard festgelegt. Nun kann dieses bei jedem Start des Silberbuchs "
        u"automatisch gestartet werden. Diese Option können Sie im Hauptfenster unter Optionen einstellen"_s);
    EXPECT_EQ(cli.run(args({ "archive", "delete", "Weg" })).exitCode, 0);
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, args({ "alle Filme", "Musik" }));
    EXPECT_EQ(Settings(cli.settingsFile()).value(SettingKey::Standard), u"Weg"_s);

    EXPECT_EQ(cli.run(args({ "archive", "create", "Daheim" }), false).exitCode, 0);
    EXPECT_EQ(cli.run(args({ "archive", "list" }), false).lines, args({ "Daheim" }));
    EXPECT_TRUE(QFileInfo::exists(cli.scratch(u"home/archive/Daheim.mdb"_s)));
}

TEST(ArchiveCommands, RefusedCallsSayWhyAndChangeNothing)
{
    const CliRunner cli;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s).cd(1, u"Eins"_s);
    cli.expectRefused({ { args({ "archive", "create", "Musik" }), 1,
                            u"Fehler! Es existiert bereits ein Archiv mit dem Namen Musik !\n"
                            u"Bitte wählen Sie einen anderen Namen"_s },
        { args({ "archive", "delete", "Filme" }), 1,
            u"Fehler: Die Datenbankdatei für das ausgewählte Archiv wurde nicht gefunden. "
            u"Das Archiv wird aus der Liste entfernt!"_s },
        { args({ "archive", "default", "musik" }), 1,
            u"Archiv nicht gefunden! Bitte wählen Sie ein anderes aus."_s },
        { args({ "archive", "umbenennen", "x" }), 2, u"Aufruf: silberbuch-cli archive"_s },
        // Names a list, a backup or a file name cannot hold: no file is made, hidden or not.
        { args({ "archive", "create", ".hidden" }), 1,
            u"Der Name \".hidden\" beginnt mit einem Punkt: Das Archiv wäre eine versteckte Datei und erschiene in "
            u"keiner Liste. Bitte wählen Sie einen anderen Namen."_s },
        { args({ "archive", "create", "a\nb" }), 1,
            u"Der Name des Archivs enthält ein Steuerzeichen (etwa einen Zeilenumbruch oder einen Tabulator). Bitte "
            u"wählen Sie einen anderen Namen."_s },
        { args({ "archive", "create", "Ωmega" }), 1,
            u"Der Name \"Ωmega\" enthält das Zeichen \"Ω\", das in Sicherungen und HTML-Seiten nicht gespeichert "
            u"werden kann. Erlaubt sind die Zeichen des westeuropäischen Zeichensatzes (Windows-1252). Bitte wählen "
            u"Sie einen anderen Namen."_s } });
    ASSERT_EQ(cli.run(args({ "archive", "create", "Übersicht" })).exitCode, 0);
    EXPECT_EQ(cli.run(args({ "archive", "list" })).lines, args({ "Musik", "Übersicht" }));

    const QString missing = cli.scratch(u"nirgends"_s);
    const CliRun refused = cli.run({ u"--data"_s, missing, u"archive"_s, u"create"_s, u"X"_s }, false);
    EXPECT_EQ(std::pair(refused.exitCode, refused.error),
        std::pair(1, u"Der Datenordner \""_s + missing + u"\" existiert nicht."_s));
    EXPECT_FALSE(QFileInfo::exists(missing));
}

// The Windows version's Jet file is converted at its first use by any verb; one that cannot
// be converted is refused by every verb alike and stays as it was.
TEST(ArchiveCommands, ConvertCountsTheCdsAndRefusesAnUnreadableJetFile)
{
    const CliRunner cli;
    ArchiveBuilder(cli.dataFolder(), u"Musik"_s).cd(1, u"Eins"_s).cd(2, u"Zwei"_s);
    EXPECT_EQ(cli.run(args({ "archive", "convert", "Musik" })).lines, args({ "2" }));

    cli.write(u"archive/Alt.mdb"_s, fileBytes(fixturePath(u"mdb/DateTestDatabase.mdb"_s)));
    const QString refusal = u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden. "
                            u"Die Jet-Datenbank \""_s
        + QDir::toNativeSeparators(cli.dataPath(u"archive/Alt.mdb"_s))
        + u"\" kann nicht gelesen werden: Sie enthält keine lesbare Tabelle \"cds\"."_s;
    cli.expectRefused({ { args({ "archive", "convert", "Alt" }), 1, refusal },
        { args({ "--archive", "Alt", "cd", "list" }), 1, refusal } });

    // A file on which the Jet library writes hundreds of megabytes of warnings: the terminal
    // sees the German refusal alone.
    cli.write(u"archive/Kaputt.mdb"_s, fileBytes(fixturePath(u"mdb/damaged/bitflip-warnings.mdb"_s)));
    cli.expectRefused({ { args({ "archive", "convert", "Kaputt" }), 1,
        u"Das Archiv Kaputt stammt aus der Windows-Version und konnte nicht umgewandelt werden. Die Jet-Datenbank \""_s
            + QDir::toNativeSeparators(cli.dataPath(u"archive/Kaputt.mdb"_s))
            + u"\" kann nicht gelesen werden: Sie ist so beschädigt, dass das Lesen abgebrochen werden "
              u"musste (Grenzen: 10 Sekunden, 256 MB Speicher)."_s } });
}

} // namespace
