#include "AppTestFolder.h"

#include "app/AutostartEntry.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;
using AutostartEntryTest = AppTestFolder;

TEST_F(AutostartEntryTest, EntryIsWrittenReplacedAndRemoved)
{
    const ScopedEnvironment config("XDG_CONFIG_HOME", path(u"config"_s).toLocal8Bit());
    const QString entry = path(u"config/autostart/silberbuch.desktop"_s);
    EXPECT_EQ(autostart::entryPath(), entry);
    ASSERT_TRUE(autostart::writeEntry(u"/opt/silberbuch/bin/silberbuch"_s));
    ASSERT_TRUE(autostart::writeEntry(u"/usr/bin/silberbuch"_s));
    const QByteArray text = fileBytes(entry);
    EXPECT_TRUE(text.startsWith("[Desktop Entry]\n") && text.contains("\nType=Application\n"))
        << text.toStdString();
    EXPECT_TRUE(text.contains("\nExec=/usr/bin/silberbuch -minimized\n")) << text.toStdString();
    EXPECT_EQ(text.count("Exec="), 1);
    EXPECT_TRUE(autostart::removeEntry());
    EXPECT_FALSE(QFileInfo::exists(entry));
    EXPECT_TRUE(autostart::removeEntry());

    const ScopedEnvironment relative("XDG_CONFIG_HOME", "relative/config");
    const ScopedEnvironment home("HOME", path(u"home"_s).toLocal8Bit());
    EXPECT_EQ(autostart::entryPath(), path(u"home/.config/autostart/silberbuch.desktop"_s));
    writeFile(path(u"home"_s), "a file where the folder should be");
    EXPECT_FALSE(autostart::writeEntry(u"/usr/bin/silberbuch"_s));
}

TEST(AutostartExec, ReservedCharactersAreQuoted)
{
    const std::pair<QString, QString> cases[]
        = { { u"/usr/bin/silberbuch"_s, u"/usr/bin/silberbuch -minimized"_s },
              { u"/home/anna/Meine Programme/x"_s, u"\"/home/anna/Meine Programme/x\" -minimized"_s },
              { u"/opt/a$b/x"_s, u"\"/opt/a\\\\$b/x\" -minimized"_s },
              { u"/opt/say \"hi\"/x"_s, u"\"/opt/say \\\\\"hi\\\\\"/x\" -minimized"_s },
              { u"/opt/back\\slash/x"_s, u"\"/opt/back\\\\\\\\slash/x\" -minimized"_s },
              { u"/opt/100%/x"_s, u"/opt/100%%/x -minimized"_s },
              { u"/opt/Bücher/x"_s, u"/opt/Bücher/x -minimized"_s } };
    for (const auto &[executable, exec] : cases)
        EXPECT_EQ(autostart::execValue(executable), exec);
}

} // namespace
