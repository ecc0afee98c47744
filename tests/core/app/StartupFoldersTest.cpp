#include "AppTestFolder.h"

#include "app/DataFolder.h"
#include "app/StartupFolders.h"

#include <QFileInfo>

namespace {

class StartupFoldersTest : public AppTestFolder
{
protected:
    void SetUp() override
    {
        AppTestFolder::SetUp();
        data = path(QStringLiteral("data"));
        QDir().mkpath(data);
    }

    QString in(const char *relative) const { return data + QLatin1Char('/') + QString::fromLatin1(relative); }
    QString start() { return settings().value(SettingKey::Start, QStringLiteral("<none>")); }
    QStringList entries() const
    {
        QStringList found;
        for (const char *name : {"archive", "archive/def2.ini", "archive/def.ini", "lws", "lws/temp.tm1"}) {
            if (QFileInfo::exists(in(name)))
                found << QString::fromLatin1(name);
        }
        return found;
    }

    QString data;
    const QByteArray placeholder = QByteArrayLiteral("Do not delete this file! Temporary used!\r\n");
};

TEST_F(StartupFoldersTest, FirstStartCreatesFoldersAndPlaceholdersAndCountsOne)
{
    EXPECT_TRUE(prepareDataFolder(data, settings()));

    EXPECT_TRUE(QFileInfo(in("archive")).isDir());
    EXPECT_TRUE(QFileInfo(in("lws")).isDir());
    for (const char *file : {"archive/def2.ini", "archive/def.ini", "lws/temp.tm1"})
        EXPECT_EQ(fileBytes(in(file)), placeholder) << file;
    EXPECT_EQ(start(), QStringLiteral("1"));
}

TEST_F(StartupFoldersTest, SecondStartLeavesTheFoldersAndCountsTwo)
{
    ASSERT_TRUE(prepareDataFolder(data, settings()));
    writeFile(in("archive/def2.ini"), "changed");

    EXPECT_TRUE(prepareDataFolder(data, settings()));
    EXPECT_EQ(fileBytes(in("archive/def2.ini")), QByteArray("changed"));
    EXPECT_EQ(start(), QStringLiteral("2"));
}

TEST_F(StartupFoldersTest, CounterIsPlainDecimalText)
{
    const struct
    {
        const char *stored;
        const char *expected;
    } cases[] = {
        {"41", "42"},       {"999", "1000"},   {"32767", "32768"}, {" 7 ", "8"},
        {"-3", "-2"},       {"5,0", "6"},      {"viele", "1"},     {"2.5", "1"},
        {"", "1"},
    };
    for (const auto &c : cases) {
        settings().setValue(SettingKey::Start, QString::fromLatin1(c.stored));
        prepareDataFolder(data, settings());
        EXPECT_EQ(start(), QString::fromLatin1(c.expected)) << '"' << c.stored << '"';
    }
}

TEST_F(StartupFoldersTest, MissingDefIniIsHealedSilently)
{
    ASSERT_TRUE(prepareDataFolder(data, settings()));
    ASSERT_TRUE(QFile::remove(in("archive/def.ini")));

    EXPECT_TRUE(prepareDataFolder(data, settings()));
    EXPECT_EQ(fileBytes(in("archive/def.ini")), placeholder);
    EXPECT_EQ(start(), QStringLiteral("2"));
}

TEST_F(StartupFoldersTest, ArchiveFolderWithOnlyAnArchiveNeedsNoPlaceholder)
{
    QDir().mkpath(in("archive"));
    writeFile(in("archive/Spiele.mdb"), "db");

    EXPECT_TRUE(prepareDataFolder(data, settings()));
    EXPECT_FALSE(QFileInfo::exists(in("archive/def2.ini")));
    EXPECT_TRUE(QFileInfo::exists(in("archive/def.ini")));
    EXPECT_TRUE(QFileInfo::exists(in("lws/temp.tm1")));
}

// Each row blocks one step; the steps before it are done, the ones after it stay undone,
// and the start is counted as the first.
TEST_F(StartupFoldersTest, FailedStepStopsTheRestAndMarksAFirstStart)
{
    const struct
    {
        const char *name;
        const char *folder; // created before the start
        const char *file;   // created before the start
        QStringList expected;
    } cases[] = {
        {"emptyArchiveFolder", "archive", nullptr, {QStringLiteral("archive")}},
        {"archiveFolderHoldsOnlyAFolder", "archive/old", nullptr, {QStringLiteral("archive")}},
        {"lwsIsAFile", nullptr, "lws",
         {QStringLiteral("archive"), QStringLiteral("archive/def2.ini"), QStringLiteral("lws")}},
        {"emptyLwsFolder", "lws", nullptr,
         {QStringLiteral("archive"), QStringLiteral("archive/def2.ini"), QStringLiteral("lws")}},
        {"defIniIsAFolder", "archive/def.ini", "archive/CDs.mdb",
         {QStringLiteral("archive"), QStringLiteral("archive/def.ini"), QStringLiteral("lws"),
          QStringLiteral("lws/temp.tm1")}},
    };
    for (const auto &c : cases) {
        QDir(data).removeRecursively();
        QDir().mkpath(data);
        settings().setValue(SettingKey::Start, QStringLiteral("5"));
        if (c.folder)
            QDir().mkpath(in(c.folder));
        if (c.file)
            writeFile(in(c.file), "x");

        EXPECT_FALSE(prepareDataFolder(data, settings())) << c.name;
        EXPECT_EQ(entries(), c.expected) << c.name;
        EXPECT_EQ(start(), QStringLiteral("1")) << c.name;
    }
}

TEST_F(StartupFoldersTest, MissingDataFolderFailsWithoutCreatingIt)
{
    const QString gone = path(QStringLiteral("gone/data"));
    EXPECT_FALSE(prepareDataFolder(gone, settings()));
    EXPECT_FALSE(QFileInfo::exists(gone));
    EXPECT_EQ(start(), QStringLiteral("1"));
}

// The configured folder is unavailable: one notice, and the start-up works in the program
// folder.
TEST_F(StartupFoldersTest, UnavailableConfiguredFolderPreparesTheProgramFolder)
{
    settings().setValue(SettingKey::pfad, QStringLiteral("False"));
    settings().setValue(SettingKey::path, QStringLiteral("/nonexistent-drive/Silberbuch\\"));
    Session session;
    QString message;

    const QString folder = getDataFolder(session, settings(), &message);
    EXPECT_TRUE(prepareDataFolder(folder, settings()));
    EXPECT_TRUE(QFileInfo(programPath() + QStringLiteral("/archive/def2.ini")).isFile());
    EXPECT_TRUE(message.contains(QStringLiteral("(/nonexistent-drive/Silberbuch)")));

    message.clear();
    EXPECT_EQ(getDataFolder(session, settings(), &message), programPath());
    EXPECT_TRUE(message.isEmpty());
}

} // namespace
