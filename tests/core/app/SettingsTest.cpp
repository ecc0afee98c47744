#include "AppTestFolder.h"

#include "app/Settings.h"

namespace {

using namespace Qt::StringLiterals;
using SettingsTest = AppTestFolder;

// A reader's own default stands in only for a missing key, not for a stored empty text; a
// hand-edited value with a comma stays one text.
TEST_F(SettingsTest, StoredTextsAreReadAsTheyStand)
{
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, u"0"_s), u"0"_s);
    settings().setValue(SettingKey::autoarchiv, u"1"_s);
    settings().setValue(SettingKey::Breite, QString());
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, u"0"_s), u"1"_s);
    EXPECT_EQ(settings().value(SettingKey::Breite, u"12240"_s), QString());

    writeFile(path(u"edited.ini"_s), "[Settings]\r\nStandard=CDs, alt\r\nHoehe=7575,5\r\n");
    const Settings edited(path(u"edited.ini"_s));
    EXPECT_EQ(edited.value(SettingKey::Standard), u"CDs, alt"_s);
    EXPECT_EQ(edited.value(SettingKey::Hoehe), u"7575, 5"_s);
}

// Two instances on one file see each other's writes at once, umlauts included.
TEST_F(SettingsTest, ValuesReachTheFileAtOnceUnderTheirGroup)
{
    Settings second(settings().fileName());
    second.setValue(SettingKey::Standard, u"Hörbücher"_s);
    second.setGroupValue(u"Drives"_s, u"d:"_s, u"/media/cdrom"_s);
    second.setGroupValue(u"Drives"_s, u"e:"_s, u"/media/usb"_s);
    EXPECT_EQ(settings().value(SettingKey::Standard), u"Hörbücher"_s);
    EXPECT_EQ(settings().groupKeys(u"Drives"_s), (QStringList { u"d:"_s, u"e:"_s }));
    EXPECT_EQ(settings().groupValue(u"Drives"_s, u"d:"_s), u"/media/cdrom"_s);
    settings().removeGroupValue(u"Drives"_s, u"d:"_s);
    EXPECT_EQ(second.groupKeys(u"Drives"_s), QStringList { u"e:"_s });
    EXPECT_EQ(second.groupValue(u"Drives"_s, u"d:"_s, u"none"_s), u"none"_s);
    const QByteArray file = fileBytes(settings().fileName());
    EXPECT_TRUE(file.contains("[Settings]") && file.contains("[Drives]")) << file.toStdString();
}

TEST_F(SettingsTest, EnvironmentChoosesTheUserStore)
{
    const QString file = path(u"chosen/silberbuch.ini"_s);
    const ScopedEnvironment chosen("SILBERBUCH_CONFIG", file.toLocal8Bit());
    Settings user;
    EXPECT_EQ(user.fileName(), file);
    user.setValue(SettingKey::Start, u"7"_s);
    EXPECT_EQ(Settings(file).value(SettingKey::Start), u"7"_s);
}

} // namespace
