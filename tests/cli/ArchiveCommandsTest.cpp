#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "app/Settings.h"

#include <gtest/gtest.h>

namespace {

class ArchiveCommandsTest : public ::testing::Test
{
protected:
    CliRunner m_cli;
};

TEST_F(ArchiveCommandsTest, ListShowsTheArchivesByName)
{
    EXPECT_EQ(m_cli.run(args({ "archive", "list" })).lines, QStringList());
    for (const char *name : { "Musik", "alle Filme", "Zeitschriften" })
        ASSERT_EQ(m_cli.run(args({ "archive", "create", name })).exitCode, 0) << name;
    const CliRun listed = m_cli.run(args({ "archive", "list" }));
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_EQ(listed.lines, args({ "alle Filme", "Musik", "Zeitschriften" }));
}

TEST_F(ArchiveCommandsTest, CreateMakesAnEmptyArchiveFile)
{
    const CliRun created = m_cli.run(args({ "archive", "create", "Alle Meine CDs" }));
    EXPECT_EQ(created.exitCode, 0) << created.error.toStdString();
    const auto rows = ArchiveStore(m_cli.dataPath(QStringLiteral("archive/Alle Meine CDs.mdb"))).selectAll();
    EXPECT_TRUE(rows.ok());
    EXPECT_TRUE(rows.value.empty());
}

TEST_F(ArchiveCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    ArchiveBuilder(m_cli.dataFolder(), QStringLiteral("Musik")).cd(1, QStringLiteral("Eins"));
    struct Case
    {
        const char *name;
        QStringList arguments;
        QString message;
    };
    const Case cases[] = {
        { "duplicate", args({ "archive", "create", "Musik" }),
            QStringLiteral("Fehler! Es existiert bereits ein Archiv mit dem Namen Musik !\nBitte wählen Sie "
                           "einen anderen "
                           "Namen") },
        { "slash", args({ "archive", "create", "a/b" }),
            QStringLiteral(
                "Der Name \"a/b\" kann nicht als Dateiname verwendet werden. Bitte wählen Sie einen anderen "
                "Namen.") },
        { "empty", args({ "archive", "create", "" }),
            QStringLiteral("Der Name des Archivs darf nicht leer sein.") },
        { "deleteMissing", args({ "archive", "delete", "Filme" }),
            QStringLiteral(
                "Fehler: Die Datenbankdatei für das ausgewählte Archiv wurde nicht gefunden. Das Archiv wird "
                "aus der Liste entfernt!") },
        { "defaultMissing", args({ "archive", "default", "musik" }),
            QStringLiteral("Archiv nicht gefunden! Bitte wählen Sie ein anderes aus.") },
    };
    for (const Case &c : cases) {
        const auto before = m_cli.snapshot();
        const CliRun refused = m_cli.run(c.arguments);
        EXPECT_EQ(refused.exitCode, 1) << c.name;
        EXPECT_EQ(refused.error, c.message) << c.name;
        EXPECT_TRUE(refused.lines.isEmpty()) << c.name;
        EXPECT_EQ(m_cli.snapshot(), before) << c.name;
    }
}

TEST_F(ArchiveCommandsTest, MissingDataFolderIsRefused)
{
    const QString missing = m_cli.scratch(QStringLiteral("nirgends"));
    const CliRun refused = m_cli.runPlain({ QStringLiteral("--data"), missing, QStringLiteral("archive"),
        QStringLiteral("create"), QStringLiteral("X") });
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.error,
        QStringLiteral("Der Datenordner \"") + missing + QStringLiteral("\" existiert nicht."));
    EXPECT_FALSE(QFileInfo::exists(missing));
}

TEST_F(ArchiveCommandsTest, WithoutDataOptionTheProgramFolderIsTheDataFolder)
{
    const CliRun created = m_cli.runPlain(args({ "archive", "create", "Daheim" }));
    EXPECT_EQ(created.exitCode, 0) << created.error.toStdString();
    EXPECT_TRUE(QFileInfo::exists(m_cli.scratch(QStringLiteral("home/archive/Daheim.mdb"))));
    EXPECT_EQ(m_cli.runPlain(args({ "archive", "list" })).lines, args({ "Daheim" }));
}

TEST_F(ArchiveCommandsTest, DeleteRemovesTheArchiveFileOnly)
{
    ArchiveBuilder(m_cli.dataFolder(), QStringLiteral("Weg"))
        .cd(1, QStringLiteral("x"), QStringLiteral("Sta1|End1"), 5, QStringLiteral("8"));
    QDir(m_cli.dataFolder()).mkpath(QStringLiteral("lws"));
    QDir(m_cli.dataFolder()).mkpath(QStringLiteral("Covers"));
    for (const char *file : { "lws/5.dat", "Covers/8.bmp" }) {
        QFile out(m_cli.dataPath(QString::fromUtf8(file)));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    }
    Settings(m_cli.settingsFile()).setValue(SettingKey::Standard, QStringLiteral("Weg"));

    const CliRun deleted = m_cli.run(args({ "archive", "delete", "Weg" }));
    EXPECT_EQ(deleted.exitCode, 0) << deleted.error.toStdString();
    EXPECT_FALSE(QFileInfo::exists(m_cli.dataPath(QStringLiteral("archive/Weg.mdb"))));
    EXPECT_TRUE(QFileInfo::exists(m_cli.dataPath(QStringLiteral("lws/5.dat"))));
    EXPECT_TRUE(QFileInfo::exists(m_cli.dataPath(QStringLiteral("Covers/8.bmp"))));
    // The default is left as it was; the next start asks for an archive.
    EXPECT_EQ(Settings(m_cli.settingsFile()).value(SettingKey::Standard), QStringLiteral("Weg"));
}

TEST_F(ArchiveCommandsTest, DefaultIsStoredAndConfirmed)
{
    ArchiveBuilder(m_cli.dataFolder(), QStringLiteral("Musik"));
    const CliRun made = m_cli.run(args({ "archive", "default", "Musik" }));
    EXPECT_EQ(made.exitCode, 0);
    EXPECT_EQ(made.lines,
        QStringList { QStringLiteral(
            "Archiv Musik wurde als Standard festgelegt. Nun kann dieses bei jedem Start des "
            "Silberbuchs automatisch gestartet werden. Diese Option können Sie im Hauptfenster unter "
            "Optionen einstellen") });
    EXPECT_EQ(Settings(m_cli.settingsFile()).value(SettingKey::Standard), QStringLiteral("Musik"));
}

TEST_F(ArchiveCommandsTest, WrongWordsAreAUsageError)
{
    for (const QStringList &arguments :
        { args({ "archive" }), args({ "archive", "create" }), args({ "archive", "list", "x" }),
            args({ "archive", "umbenennen", "x" }), args({ "archive", "delete", "a", "b" }) }) {
        const auto before = m_cli.snapshot();
        const CliRun wrong = m_cli.run(arguments);
        EXPECT_EQ(wrong.exitCode, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(wrong.error.startsWith(QStringLiteral("Aufruf: silberbuch-cli archive")));
        EXPECT_EQ(m_cli.snapshot(), before);
    }
}

} // namespace
