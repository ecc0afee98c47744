#include "AppTestFolder.h"

#include "app/AutostartEntry.h"

#include <QFileInfo>

namespace {

class AutostartEntryTest : public AppTestFolder
{
protected:
    void SetUp() override
    {
        AppTestFolder::SetUp();
        m_config = std::make_unique<ScopedEnvironment>("XDG_CONFIG_HOME", path(QStringLiteral("config")).toLocal8Bit());
    }

    QString entryFile() const { return path(QStringLiteral("config/autostart/silberbuch.desktop")); }

private:
    std::unique_ptr<ScopedEnvironment> m_config;
};

TEST_F(AutostartEntryTest, EntryLiesInTheConfiguredFolder)
{
    EXPECT_EQ(autostart::entryPath(), entryFile());

    const ScopedEnvironment relative("XDG_CONFIG_HOME", "relative/config");
    const ScopedEnvironment home("HOME", path(QStringLiteral("home")).toLocal8Bit());
    EXPECT_EQ(autostart::entryPath(), path(QStringLiteral("home/.config/autostart/silberbuch.desktop")));
}

TEST_F(AutostartEntryTest, WriteCreatesTheFolderAndStartsMinimized)
{
    ASSERT_TRUE(autostart::writeEntry(QStringLiteral("/opt/silberbuch/bin/silberbuch")));
    const QByteArray entry = fileBytes(entryFile());
    EXPECT_TRUE(entry.startsWith("[Desktop Entry]\n")) << entry.toStdString();
    EXPECT_TRUE(entry.contains("\nType=Application\n")) << entry.toStdString();
    EXPECT_TRUE(entry.contains("\nExec=/opt/silberbuch/bin/silberbuch -minimized\n")) << entry.toStdString();

    // Writing again replaces the entry rather than adding to it.
    ASSERT_TRUE(autostart::writeEntry(QStringLiteral("/usr/bin/silberbuch")));
    const QByteArray again = fileBytes(entryFile());
    EXPECT_EQ(again.count("Exec="), 1);
    EXPECT_TRUE(again.contains("\nExec=/usr/bin/silberbuch -minimized\n"));
}

TEST_F(AutostartEntryTest, RemoveLeavesNoEntryAndToleratesNone)
{
    ASSERT_TRUE(autostart::writeEntry(QStringLiteral("/usr/bin/silberbuch")));
    EXPECT_TRUE(autostart::removeEntry());
    EXPECT_FALSE(QFileInfo::exists(entryFile()));
    EXPECT_TRUE(autostart::removeEntry());
}

TEST_F(AutostartEntryTest, UnwritableFolderReportsFailure)
{
    writeFile(path(QStringLiteral("config")), "a file where the folder should be");
    EXPECT_FALSE(autostart::writeEntry(QStringLiteral("/usr/bin/silberbuch")));
}

TEST(AutostartExec, ReservedCharactersAreQuoted)
{
    const struct
    {
        const char *executable;
        const char *exec;
    } cases[] = {
        {"/usr/bin/silberbuch", "/usr/bin/silberbuch -minimized"},
        {"/home/anna/Meine Programme/silberbuch", "\"/home/anna/Meine Programme/silberbuch\" -minimized"},
        {"/opt/a$b/silberbuch", "\"/opt/a\\\\$b/silberbuch\" -minimized"},
        {"/opt/say \"hi\"/x", "\"/opt/say \\\\\"hi\\\\\"/x\" -minimized"},
        {"/opt/back\\slash/x", "\"/opt/back\\\\\\\\slash/x\" -minimized"},
        {"/opt/100%/x", "/opt/100%%/x -minimized"},
        {"/opt/Bücher/x", "/opt/Bücher/x -minimized"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(autostart::execValue(QString::fromUtf8(c.executable)), QString::fromUtf8(c.exec)) << c.executable;
}

} // namespace
