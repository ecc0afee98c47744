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

TEST_F(StartupFoldersTest, CounterIsPlainDecimalTextAndAMissingFolderMarksAFirstStart)
{
    const std::pair<const char *, const char *> cases[]
        = { { "32767", "32768" }, { " 7 ", "8" }, { "5,0", "6" }, { "viele", "1" } };
    for (const auto &[stored, expected] : cases) {
        settings().setValue(SettingKey::Start, QString::fromLatin1(stored));
        prepareDataFolder(data, settings());
        EXPECT_EQ(start(), QString::fromLatin1(expected)) << '"' << stored << '"';
    }
    // A missing data folder is not made: the start-up fails and marks a first start.
    const QString gone = path(u"gone/data"_s);
    settings().setValue(SettingKey::Start, u"5"_s);
    EXPECT_FALSE(prepareDataFolder(gone, settings()));
    EXPECT_EQ(std::pair(QFileInfo::exists(gone), start()), std::pair(false, u"1"_s));
}

// A folder counts as present only when it holds a file. What is missing is made with the
// placeholder text, what is there stays. A failed step ends the start-up, leaves the later
// steps undone and marks a first start.
TEST_F(StartupFoldersTest, EachStepRunsOnlyWhenTheOnesBeforeWorked)
{
    // folder and file made before the start, whether it works, what is there afterwards
    const std::tuple<const char *, const char *, bool, const char *> cases[] = {
        { nullptr, nullptr, true, "archive archive/def2.ini archive/def.ini lws lws/temp.tm1" },
        { nullptr, "archive/def2.ini", true, "archive archive/def2.ini archive/def.ini lws lws/temp.tm1" },
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
        for (const char *made : { "archive/def2.ini", "archive/def.ini", "lws/temp.tm1" }) {
            const bool before = file && std::string_view(file) == made;
            EXPECT_TRUE(!QFileInfo(in(made)).isFile() || fileBytes(in(made)) == (before ? "x" : placeholder))
                << made;
        }
        EXPECT_EQ(start(), ok ? u"6"_s : u"1"_s);
    }
}

} // namespace
