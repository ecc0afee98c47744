#include "search/MediumPath.h"

#include "app/Settings.h"
#include "images/DriveTable.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(MediumPath, ImagePathsLeadIntoTheFolderOfTheirDrive)
{
    QTemporaryDir dir;
    Settings settings(dir.filePath(QStringLiteral("settings.ini")));
    DriveTable drives(settings);
    const QString medium = dir.filePath(QStringLiteral("stick"));
    QDir().mkpath(medium);
    ASSERT_TRUE(drives.addFolder(QStringLiteral("q:"), medium + QLatin1Char('/')).ok());

    const struct
    {
        const char *name;
        QString imagePath;
        QString expected;
    } cases[] = {
        {"fileBelowTheDrive", QStringLiteral("q:\\Setup\\start.exe"), medium + QStringLiteral("/Setup/start.exe")},
        {"capitalLetter", QStringLiteral("Q:\\a.txt"), medium + QStringLiteral("/a.txt")},
        {"archiveEntryKeepsItsSlash", QStringLiteral("q:\\x.zip\\2001/haus.jpg"), medium + QStringLiteral("/x.zip/2001/haus.jpg")},
        {"theRootDrive", QStringLiteral("c:\\etc\\hosts"), QStringLiteral("/etc/hosts")},
        {"unknownLetter", QStringLiteral("y:\\a.txt"), QString()},
        {"folderLine", QStringLiteral(">q:\\Setup"), QString()},
        {"empty", QString(), QString()},
    };
    for (const auto &c : cases)
        EXPECT_EQ(mediumPath(c.imagePath, drives), c.expected) << c.name;
}

} // namespace
