#include "AppTestFolder.h"

#include "app/AutostartEntry.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;

class AutostartEntryTest : public AppTestFolder
{
protected:
    void SetUp() override
    {
        AppTestFolder::SetUp();
        m_config = std::make_unique<ScopedEnvironment>("XDG_CONFIG_HOME", path(u"config"_s).toLocal8Bit());
    }

    QString entryFile() const { return path(u"config/autostart/silberbuch.desktop"_s); }

private:
    std::unique_ptr<ScopedEnvironment> m_config;
};

TEST_F(AutostartEntryTest, EntryLiesInTheConfiguredFolderElseBelowHome)
{
    EXPECT_EQ(autostart::entryPath(), entryFile());
    const ScopedEnvironment relative("XDG_CONFIG_HOME", "relative/config");
    const ScopedEnvironment home("HOME", path(u"home"_s).toLocal8Bit());
    EXPECT_EQ(autostart::entryPath(), path(u"home/.config/autostart/silberbuch.desktop"_s));
}

TEST_F(AutostartEntryTest, WriteReplacesTheEntryAndRemoveLeavesNone)
{
    ASSERT_TRUE(autostart::writeEntry(u"/opt/silberbuch/bin/silberbuch"_s));
    ASSERT_TRUE(autostart::writeEntry(u"/usr/bin/silberbuch"_s));
    const QByteArray entry = fileBytes(entryFile());
    EXPECT_TRUE(entry.startsWith("[Desktop Entry]\n")) << entry.toStdString();
    EXPECT_TRUE(entry.contains("\nType=Application\n")) << entry.toStdString();
    EXPECT_TRUE(entry.contains("\nExec=/usr/bin/silberbuch -minimized\n")) << entry.toStdString();
    EXPECT_EQ(entry.count("Exec="), 1);

    EXPECT_TRUE(autostart::removeEntry());
    EXPECT_FALSE(QFileInfo::exists(entryFile()));
    EXPECT_TRUE(autostart::removeEntry());

    const ScopedEnvironment blocked("XDG_CONFIG_HOME", path(u"blocked"_s).toLocal8Bit());
    writeFile(path(u"blocked"_s), "a file where the folder should be");
    EXPECT_FALSE(autostart::writeEntry(u"/usr/bin/silberbuch"_s));
}

TEST(AutostartExec, ReservedCharactersAreQuoted)
{
    const struct
    {
        QString executable;
        QString exec;
    } cases[] = { { u"/usr/bin/silberbuch"_s, u"/usr/bin/silberbuch -minimized"_s },
        { u"/home/anna/Meine Programme/silberbuch"_s,
            u"\"/home/anna/Meine Programme/silberbuch\" -minimized"_s },
        { u"/opt/a$b/silberbuch"_s, u"\"/opt/a\\\\$b/silberbuch\" -minimized"_s },
        { u"/opt/say \"hi\"/x"_s, u"\"/opt/say \\\\\"hi\\\\\"/x\" -minimized"_s },
        { u"/opt/back\\slash/x"_s, u"\"/opt/back\\\\\\\\slash/x\" -minimized"_s },
        { u"/opt/100%/x"_s, u"/opt/100%%/x -minimized"_s },
        { u"/opt/Bücher/x"_s, u"/opt/Bücher/x -minimized"_s } };
    for (const auto &c : cases)
        EXPECT_EQ(autostart::execValue(c.executable), c.exec);
}

} // namespace
