#include "AppTestFolder.h"

#include "app/DataFolder.h"

#include <QFileInfo>

namespace {

class DataFolderTest : public AppTestFolder
{
protected:
    void configure(const QString &pfad, const QString &folder)
    {
        settings().setValue(SettingKey::pfad, pfad);
        settings().setValue(SettingKey::path, folder);
    }

    Session session;
    QString message;
};

TEST_F(DataFolderTest, ProgramFolderComesFromTheEnvironmentAndIsCreated)
{
    EXPECT_FALSE(QFileInfo::exists(programPath()));
    EXPECT_EQ(programFolder(), programPath());
    EXPECT_TRUE(QFileInfo(programPath()).isDir());

    const ScopedEnvironment slashed("SILBERBUCH_HOME", (programPath() + QStringLiteral("//")).toLocal8Bit());
    EXPECT_EQ(programFolder(), programPath());
}

TEST_F(DataFolderTest, StandardFolderFollowsTheSettingAtEveryCall)
{
    QDir().mkpath(path(QStringLiteral("net")));
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_TRUE(session.dataFolderCache.isEmpty());

    configure(QStringLiteral("False"), path(QStringLiteral("net")));
    EXPECT_EQ(getDataFolder(session, settings(), &message), path(QStringLiteral("net")));
    EXPECT_TRUE(message.isEmpty());
}

TEST_F(DataFolderTest, ConfiguredFolderLosesOneClosingSeparator)
{
    QDir().mkpath(path(QStringLiteral("net")));
    const struct
    {
        const char *name;
        const char *pfad;
        QString stored;
    } cases[] = {
        {"plain", "False", path(QStringLiteral("net"))},
        {"backslash", "False", path(QStringLiteral("net\\"))},
        {"slash", "false", path(QStringLiteral("net/"))},
        {"germanWord", "Falsch", path(QStringLiteral("net"))},
        {"zero", "0", path(QStringLiteral("net/"))},
    };
    for (const auto &c : cases) {
        Session fresh;
        configure(QString::fromLatin1(c.pfad), c.stored);
        EXPECT_EQ(getDataFolder(fresh, settings(), &message), path(QStringLiteral("net"))) << c.name;
        EXPECT_EQ(fresh.dataFolderCache, path(QStringLiteral("net"))) << c.name;
        EXPECT_TRUE(message.isEmpty()) << c.name;
    }
}

TEST_F(DataFolderTest, FirstCallFixesTheConfiguredFolderForTheRun)
{
    QDir().mkpath(path(QStringLiteral("net")));
    configure(QStringLiteral("False"), path(QStringLiteral("net")));
    EXPECT_EQ(getDataFolder(session, settings()), path(QStringLiteral("net")));

    configure(QStringLiteral("True"), QString());
    EXPECT_EQ(getDataFolder(session, settings()), path(QStringLiteral("net")));
}

TEST_F(DataFolderTest, UnavailableFolderFallsBackWithTheNoticeOnce)
{
    const QString missing = path(QStringLiteral("unplugged/Silberbuch\\"));
    configure(QStringLiteral("False"), missing);

    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_EQ(message, QStringLiteral("Hinweis: Der angegebene Pfad zur Datenbank (")
                           + path(QStringLiteral("unplugged/Silberbuch"))
                           + QStringLiteral(") ist zur Zeit nicht verfügbar. Es wird nun der Standard-Pfad "
                                            "verwendet (SLB-Verzeichniss)!"));

    QString second;
    EXPECT_EQ(getDataFolder(session, settings(), &second), programPath());
    EXPECT_TRUE(second.isEmpty());
}

TEST_F(DataFolderTest, AFileIsNoDataFolder)
{
    writeFile(path(QStringLiteral("plain.txt")), "x");
    configure(QStringLiteral("False"), path(QStringLiteral("plain.txt")));
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_FALSE(message.isEmpty());
}

TEST_F(DataFolderTest, NoTruthValueGivesTheNoticeWithAnEmptyPath)
{
    QDir().mkpath(path(QStringLiteral("net")));
    configure(QStringLiteral("vielleicht"), path(QStringLiteral("net")));
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_EQ(message, dataFolderFallbackMessage(QString()));
    EXPECT_TRUE(message.contains(QStringLiteral("Datenbank () ist")));
    EXPECT_EQ(session.dataFolderCache, programPath());
}

TEST_F(DataFolderTest, MissingPathSettingMeansTheProgramFolder)
{
    settings().setValue(SettingKey::pfad, QStringLiteral("False"));
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_TRUE(message.isEmpty());
    EXPECT_EQ(session.dataFolderCache, programPath());
}

TEST_F(DataFolderTest, FileAndFolderTests)
{
    QDir().mkpath(path(QStringLiteral("folder/inner")));
    writeFile(path(QStringLiteral("folder/file.txt")), "x");
    const QString brokenLink = path(QStringLiteral("folder/broken"));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("nowhere")), brokenLink));

    const struct
    {
        const char *name;
        QString target;
        bool file;
        bool folder;
    } cases[] = {
        {"file", path(QStringLiteral("folder/file.txt")), true, false},
        {"folder", path(QStringLiteral("folder")), false, true},
        {"folderWithSlash", path(QStringLiteral("folder/")), false, true},
        {"missing", path(QStringLiteral("folder/none.txt")), false, false},
        {"brokenLink", brokenLink, false, false},
        {"empty", QString(), false, false},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(fileExists(c.target), c.file) << c.name;
        EXPECT_EQ(folderExists(c.target), c.folder) << c.name;
    }
}

TEST_F(DataFolderTest, LookupCountsAnEmptyFolderAsMissing)
{
    QDir().mkpath(path(QStringLiteral("empty")));
    QDir().mkpath(path(QStringLiteral("onlyFolders/sub")));
    QDir().mkpath(path(QStringLiteral("withFile")));
    writeFile(path(QStringLiteral("withFile/.hidden")), "x");

    EXPECT_FALSE(dirFinds(path(QStringLiteral("empty/"))));
    EXPECT_FALSE(dirFinds(path(QStringLiteral("onlyFolders/"))));
    EXPECT_FALSE(dirFinds(path(QStringLiteral("missing/"))));
    EXPECT_TRUE(dirFinds(path(QStringLiteral("withFile/"))));
    EXPECT_TRUE(dirFinds(path(QStringLiteral("withFile/.hidden"))));
    EXPECT_FALSE(dirFinds(path(QStringLiteral("withFile"))));
}

} // namespace
