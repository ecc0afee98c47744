#include "AppTestFolder.h"

#include "app/DataFolder.h"
#include "app/Settings.h"

namespace {

using SettingsTest = AppTestFolder;

TEST_F(SettingsTest, MissingKeysGiveTheirDeclaredDefaults)
{
    const struct
    {
        SettingKey key;
        QString expected;
    } cases[] = {
        {SettingKey::Start, QStringLiteral("0")},
        {SettingKey::Standard, QString()},
        {SettingKey::autoarchiv, QStringLiteral("1")},
        {SettingKey::autostart, QStringLiteral("0")},
        {SettingKey::pfad, QStringLiteral("True")},
        {SettingKey::path, programPath()},
        {SettingKey::Breite, QStringLiteral("12240")},
        {SettingKey::Hoehe, QStringLiteral("7575")},
        {SettingKey::StartupMaximized, QStringLiteral("0")},
        {SettingKey::TabStrip, QStringLiteral("1")},
        {SettingKey::Sort, QStringLiteral("0")},
        {SettingKey::DefDrive, QStringLiteral("C:")},
    };
    for (const auto &c : cases) {
        EXPECT_FALSE(settings().contains(c.key)) << Settings::keyName(c.key).toStdString();
        EXPECT_EQ(settings().value(c.key), c.expected) << Settings::keyName(c.key).toStdString();
    }
}

TEST_F(SettingsTest, ReaderDefaultOnlyReplacesAMissingValue)
{
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, QStringLiteral("0")), QStringLiteral("0"));
    settings().setValue(SettingKey::autoarchiv, QStringLiteral("1"));
    EXPECT_EQ(settings().value(SettingKey::autoarchiv, QStringLiteral("0")), QStringLiteral("1"));
}

TEST_F(SettingsTest, StoredEmptyTextIsNotReplacedByTheDefault)
{
    settings().setValue(SettingKey::Breite, QString());
    EXPECT_TRUE(settings().contains(SettingKey::Breite));
    EXPECT_EQ(settings().value(SettingKey::Breite), QString());
}

TEST_F(SettingsTest, ValuesReachTheFileAtOnceAndUnderTheirGroup)
{
    settings().setValue(SettingKey::Standard, QStringLiteral("Spiele, alt"));
    settings().setValue(SettingKey::path, QStringLiteral("/mnt/Daten/Silberbuch"));
    settings().setGroupValue(QStringLiteral("Printer"), QStringLiteral("Device"), QStringLiteral("PDF"));

    const QByteArray file = fileBytes(settings().fileName());
    EXPECT_TRUE(file.contains("[Settings]")) << file.toStdString();
    EXPECT_TRUE(file.contains("[Printer]")) << file.toStdString();

    const Settings reopened(settings().fileName());
    EXPECT_EQ(reopened.value(SettingKey::Standard), QStringLiteral("Spiele, alt"));
    EXPECT_EQ(reopened.value(SettingKey::path), QStringLiteral("/mnt/Daten/Silberbuch"));
    EXPECT_EQ(reopened.groupValue(QStringLiteral("Printer"), QStringLiteral("Device")), QStringLiteral("PDF"));
}

TEST_F(SettingsTest, HandEditedValueWithCommaStaysOneText)
{
    writeFile(path(QStringLiteral("edited.ini")), "[Settings]\r\nStandard=CDs, alt\r\nHoehe=7575,5\r\n");
    const Settings edited(path(QStringLiteral("edited.ini")));
    EXPECT_EQ(edited.value(SettingKey::Standard), QStringLiteral("CDs, alt"));
    EXPECT_EQ(edited.value(SettingKey::Hoehe), QStringLiteral("7575, 5"));
}

TEST_F(SettingsTest, UmlautsSurviveTheFile)
{
    settings().setValue(SettingKey::Standard, QStringLiteral("Hörbücher"));
    EXPECT_EQ(Settings(settings().fileName()).value(SettingKey::Standard), QStringLiteral("Hörbücher"));
}

TEST_F(SettingsTest, OtherGroupsListAndRemoveTheirKeys)
{
    const QString drives = QStringLiteral("Drives");
    EXPECT_TRUE(settings().groupKeys(drives).isEmpty());
    EXPECT_EQ(settings().groupValue(drives, QStringLiteral("d:"), QStringLiteral("none")), QStringLiteral("none"));

    settings().setGroupValue(drives, QStringLiteral("d:"), QStringLiteral("/media/cdrom"));
    settings().setGroupValue(drives, QStringLiteral("e:"), QStringLiteral("/media/usb"));
    EXPECT_EQ(settings().groupKeys(drives), QStringList({QStringLiteral("d:"), QStringLiteral("e:")}));
    EXPECT_EQ(settings().groupValue(drives, QStringLiteral("d:")), QStringLiteral("/media/cdrom"));

    settings().removeGroupValue(drives, QStringLiteral("d:"));
    EXPECT_EQ(Settings(settings().fileName()).groupKeys(drives), QStringList({QStringLiteral("e:")}));
    // The keys of the group "Settings" are not part of another group's listing.
    settings().setValue(SettingKey::Start, QStringLiteral("3"));
    EXPECT_EQ(settings().groupKeys(drives).size(), 1);
}

TEST_F(SettingsTest, EnvironmentChoosesTheUserStore)
{
    const QString file = path(QStringLiteral("chosen/silberbuch.ini"));
    const ScopedEnvironment chosen("SILBERBUCH_CONFIG", file.toLocal8Bit());
    Settings user;
    EXPECT_EQ(user.fileName(), file);
    user.setValue(SettingKey::Start, QStringLiteral("7"));
    EXPECT_EQ(Settings(file).value(SettingKey::Start), QStringLiteral("7"));
}

TEST_F(SettingsTest, TwoInstancesSeeEachOthersWrites)
{
    Settings second(settings().fileName());
    second.setValue(SettingKey::Sort, QStringLiteral("1"));
    EXPECT_EQ(settings().value(SettingKey::Sort), QStringLiteral("1"));
}

} // namespace
