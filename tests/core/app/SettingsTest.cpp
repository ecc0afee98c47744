#include "AppTestFolder.h"

#include "app/Settings.h"

namespace {

using namespace Qt::StringLiterals;
using SettingsTest = AppTestFolder;

// A reader's own default stands in only for a missing key, not for a stored empty text; a
// hand-edited value with a comma stays one text. Two instances on one file see each other's
// writes at once, other groups included.
TEST_F(SettingsTest, StoredTextsAreReadAsTheyStandAndReachTheFileAtOnce)
{
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, u"0"_s), u"0"_s);
    settings().setValue(SettingKey::Breite, QString());
    EXPECT_EQ(settings().value(SettingKey::Breite, u"12240"_s), QString());
    writeFile(path(u"edited.ini"_s), "[Settings]\r\nStandard=CDs, alt\r\n");
    EXPECT_EQ(Settings(path(u"edited.ini"_s)).value(SettingKey::Standard), u"CDs, alt"_s);
    Settings second(settings().fileName());
    second.setValue(SettingKey::Standard, u"Hörbücher"_s);
    second.setGroupValue(u"Drives"_s, u"d:"_s, u"/media/cdrom"_s);
    second.setGroupValue(u"Drives"_s, u"e:"_s, u"/media/usb"_s);
    EXPECT_EQ(settings().value(SettingKey::Standard), u"Hörbücher"_s);
    EXPECT_EQ(settings().groupValue(u"Drives"_s, u"d:"_s), u"/media/cdrom"_s);
    settings().removeGroupValue(u"Drives"_s, u"d:"_s);
    EXPECT_EQ(second.groupKeys(u"Drives"_s), QStringList { u"e:"_s });
}

} // namespace
