#include "AppTestFolder.h"

#include "app/AutostartEntry.h"

#include <QFileInfo>

namespace {

using namespace Qt::StringLiterals;
using AutostartEntryTest = AppTestFolder;

// A second write replaces the first; a path with a blank is quoted; removing twice is fine.
TEST_F(AutostartEntryTest, EntryIsWrittenReplacedAndRemoved)
{
    const ScopedEnvironment config("XDG_CONFIG_HOME", path(u"config"_s).toLocal8Bit());
    const QString entry = path(u"config/autostart/silberbuch.desktop"_s);
    ASSERT_TRUE(autostart::writeEntry(u"/opt/silberbuch/bin/silberbuch"_s));
    ASSERT_TRUE(autostart::writeEntry(u"/home/anna/Meine Programme/x"_s));
    EXPECT_EQ(fileBytes(entry),
        "[Desktop Entry]\nType=Application\nName=Silberbuch\nExec=\"/home/anna/Meine Programme/x\" "
        "-minimized\nTerminal=false\n");
    EXPECT_TRUE(autostart::removeEntry());
    EXPECT_FALSE(QFileInfo::exists(entry));
    EXPECT_TRUE(autostart::removeEntry());
}

} // namespace
