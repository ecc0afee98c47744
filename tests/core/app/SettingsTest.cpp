#include "AppTestFolder.h"

#include "app/Settings.h"

namespace {

using namespace Qt::StringLiterals;
using SettingsTest = AppTestFolder;

TEST_F(SettingsTest, ReaderDefaultStandsInOnlyForAMissingKey)
{
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, u"0"_s), u"0"_s);
    settings().setValue(SettingKey::autoarchiv, u"1"_s);
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, u"0"_s), u"1"_s);
    settings().setValue(SettingKey::Breite, QString());
    EXPECT_TRUE(settings().contains(SettingKey::Breite));
    EXPECT_EQ(settings().value(SettingKey::Breite), QString());
}

// Two instances on one file see each other's writes at once; texts keep commas and umlauts.
TEST_F(SettingsTest, ValuesReachTheFileAtOnceUnderTheirGroup)
{
    Settings second(settings().fileName());
    second.setValue(SettingKey::Standard, u"Hörbücher, alt"_s);
    second.setValue(SettingKey::path, u"/mnt/Daten/Silberbuch"_s);
    second.setGroupValue(u"Printer"_s, u"Device"_s, u"PDF"_s);
    EXPECT_EQ(settings().value(SettingKey::Standard), u"Hörbücher, alt"_s);
    EXPECT_EQ(settings().value(SettingKey::path), u"/mnt/Daten/Silberbuch"_s);
    EXPECT_EQ(settings().groupValue(u"Printer"_s, u"Device"_s), u"PDF"_s);
    const QByteArray file = fileBytes(settings().fileName());
    EXPECT_TRUE(file.contains("[Settings]") && file.contains("[Printer]")) << file.toStdString();
}

TEST_F(SettingsTest, HandEditedValueWithCommaStaysOneText)
{
    writeFile(path(u"edited.ini"_s), "[Settings]\r\nStandard=CDs, alt\r\nHoehe=7575,5\r\n");
    const Settings edited(path(u"edited.ini"_s));
    EXPECT_EQ(edited.value(SettingKey::Standard), u"CDs, alt"_s);
    EXPECT_EQ(edited.value(SettingKey::Hoehe), u"7575, 5"_s);
}

TEST_F(SettingsTest, OtherGroupsListAndRemoveTheirKeys)
{
    const QString drives = u"Drives"_s;
    EXPECT_EQ(settings().groupValue(drives, u"d:"_s, u"none"_s), u"none"_s);
    settings().setGroupValue(drives, u"d:"_s, u"/media/cdrom"_s);
    settings().setGroupValue(drives, u"e:"_s, u"/media/usb"_s);
    settings().setValue(SettingKey::Start, u"3"_s); // not part of another group's listing
    EXPECT_EQ(settings().groupKeys(drives), (QStringList { u"d:"_s, u"e:"_s }));
    EXPECT_EQ(settings().groupValue(drives, u"d:"_s), u"/media/cdrom"_s);
    settings().removeGroupValue(drives, u"d:"_s);
    EXPECT_EQ(Settings(settings().fileName()).groupKeys(drives), QStringList { u"e:"_s });
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
