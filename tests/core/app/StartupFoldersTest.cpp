#include "AppTestFolder.h"

#include "app/StartupFolders.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;

class StartupFoldersTest : public AppTestFolder
{
protected:
    void SetUp() override { QDir().mkpath(data); }

    QString in(const char *relative) const { return data + u'/' + QString::fromLatin1(relative); }
    QString start() { return settings().value(SettingKey::Start, u"<none>"_s); }
    // What the start-up may create, in the order it creates it.
    QStringList entries() const
    {
        QStringList found;
        for (const char *name : { "archive", "archive/def2.ini", "archive/def.ini", "lws", "lws/temp.tm1" })
            if (QFileInfo::exists(in(name)))
                found << QString::fromLatin1(name);
        return found;
    }

    const QString data = path(u"data"_s);
    const QByteArray placeholder = "Do not delete this file! Temporary used!\r\n";
};

TEST_F(StartupFoldersTest, FirstStartCreatesEverythingLaterStartsHealDefIniAlone)
{
    EXPECT_TRUE(prepareDataFolder(data, settings()));
    EXPECT_EQ(entries().size(), 5);
    for (const char *file : { "archive/def2.ini", "archive/def.ini", "lws/temp.tm1" })
        EXPECT_EQ(fileBytes(in(file)), placeholder) << file;
    EXPECT_EQ(start(), u"1"_s);

    writeFile(in("archive/def2.ini"), "changed");
    ASSERT_TRUE(QFile::remove(in("archive/def.ini")));
    EXPECT_TRUE(prepareDataFolder(data, settings()));
    EXPECT_EQ(fileBytes(in("archive/def2.ini")), QByteArray("changed"));
    EXPECT_EQ(fileBytes(in("archive/def.ini")), placeholder);
    EXPECT_EQ(start(), u"2"_s);

    // A missing data folder fails without being created.
    const QString gone = path(u"gone/data"_s);
    EXPECT_FALSE(prepareDataFolder(gone, settings()));
    EXPECT_FALSE(QFileInfo::exists(gone));
    EXPECT_EQ(start(), u"1"_s);
}

TEST_F(StartupFoldersTest, CounterIsPlainDecimalText)
{
    const std::pair<const char *, const char *> cases[]
        = { { "32767", "32768" }, { " 7 ", "8" }, { "5,0", "6" }, { "viele", "1" } };
    for (const auto &[stored, expected] : cases) {
        settings().setValue(SettingKey::Start, QString::fromLatin1(stored));
        prepareDataFolder(data, settings());
        EXPECT_EQ(start(), QString::fromLatin1(expected)) << '"' << stored << '"';
    }
}

// A folder counts as present only when it holds a file. A failed step ends the start-up,
// leaves the later steps undone and marks a first start.
TEST_F(StartupFoldersTest, EachStepRunsOnlyWhenTheOnesBeforeWorked)
{
    // folder and file made before the start, whether it works, what is there afterwards
    const std::tuple<const char *, const char *, bool, const char *> cases[] = {
        { nullptr, "archive/Spiele.mdb", true, "archive archive/def.ini lws lws/temp.tm1" },
        { "archive/old", nullptr, false, "archive" },
        { nullptr, "lws", false, "archive archive/def2.ini lws" },
        { "lws", nullptr, false, "archive archive/def2.ini lws" },
        { "archive/def.ini", "archive/CDs.mdb", false, "archive archive/def.ini lws lws/temp.tm1" },
    };
    for (const auto &[folder, file, ok, expected] : cases) {
        SCOPED_TRACE(std::string(folder ? folder : "-") + ' ' + (file ? file : "-"));
        QDir(data).removeRecursively();
        QDir().mkpath(data);
        settings().setValue(SettingKey::Start, u"5"_s);
        if (folder)
            QDir().mkpath(in(folder));
        if (file) {
            QDir().mkpath(QFileInfo(in(file)).path());
            writeFile(in(file), "x");
        }
        EXPECT_EQ(prepareDataFolder(data, settings()), ok);
        EXPECT_EQ(entries().join(u' '), QLatin1String(expected));
        EXPECT_EQ(start(), ok ? u"6"_s : u"1"_s);
    }
}

} // namespace
