#include "images/DriveTable.h"

#include "app/Settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

// A machine of its own under a temporary folder: a mount table, device files, the
// /dev/disk/by-uuid and by-label folders with their links, and the mount points.
class DriveTableTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        for (const char *folder : { "dev", "by-uuid", "by-label", "media" })
            QDir(m_dir.path()).mkpath(QString::fromLatin1(folder));
        m_settings = std::make_unique<Settings>(m_dir.filePath(QStringLiteral("silberbuch.ini")));
        m_mountLines = { line(QStringLiteral("/"), QStringLiteral("ext4"), device(QStringLiteral("vda"))) };
        writeMountInfo();
    }

    VolumeSources sources() const
    {
        return { m_dir.filePath(QStringLiteral("mountinfo")), m_dir.filePath(QStringLiteral("by-uuid")),
            m_dir.filePath(QStringLiteral("by-label")) };
    }
    DriveTable table() { return DriveTable(*m_settings, sources()); }

    QString folder(const QString &relative)
    {
        QDir(m_dir.path()).mkpath(relative);
        return m_dir.filePath(relative);
    }
    QString device(const QString &name, const QByteArray &content = QByteArray(4096, '\0'))
    {
        QFile file(m_dir.filePath(QStringLiteral("dev/") + name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    // udev's links are relative: by-uuid/1234-ABCD -> ../dev/sdb1
    void link(const char *folder, const QString &name, const QString &devicePath)
    {
        const QString at = m_dir.filePath(QString::fromLatin1(folder) + QLatin1Char('/') + name);
        ASSERT_TRUE(QFile::link(QStringLiteral("../dev/") + QFileInfo(devicePath).fileName(), at));
    }

    QString line(const QString &mountPoint, const QString &type, const QString &source,
        const QString &root = QStringLiteral("/"))
    {
        QString escaped = mountPoint;
        escaped.replace(QLatin1Char(' '), QLatin1String("\\040"));
        return QStringLiteral("%1 1 8:%1 %2 %3 rw,relatime shared:1 - %4 %5 rw")
            .arg(++m_mountId)
            .arg(root, escaped, type, source);
    }
    QString mount(const QString &name, const QString &type, const QString &source)
    {
        const QString point = folder(QStringLiteral("media/") + name);
        m_mountLines.append(line(point, type, source));
        writeMountInfo();
        return point;
    }
    void unmount(const QString &mountPoint)
    {
        m_mountLines.erase(std::remove_if(m_mountLines.begin(), m_mountLines.end(),
                               [&](const QString &l) { return l.split(QLatin1Char(' '))[4] == mountPoint; }),
            m_mountLines.end());
        writeMountInfo();
    }
    void writeMountInfo()
    {
        QFile file(sources().mountInfo);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(m_mountLines.join(QLatin1Char('\n')).toUtf8() + '\n');
    }

    QString letterOf(const QString &mountPoint)
    {
        for (const Drive &drive : table().drives()) {
            if (drive.mountPoint == mountPoint)
                return drive.letter;
        }
        return {};
    }

    QTemporaryDir m_dir;
    std::unique_ptr<Settings> m_settings;
    QStringList m_mountLines;
    int m_mountId = 20;
};

// An ISO 9660 image whose primary volume descriptor names the volume "MEINE_CD"; the last
// four bytes make each byte-wide sum overflow.
QByteArray isoImage()
{
    QByteArray image(17 * 2048, '\0');
    char *descriptor = image.data() + 16 * 2048;
    descriptor[0] = 1;
    std::memcpy(descriptor + 1, "CD001", 5);
    descriptor[6] = 1;
    std::memcpy(descriptor + 40, "MEINE_CD                        ", 32);
    std::memset(descriptor + 2044, 0xFF, 4);
    return image;
}

} // namespace

TEST_F(DriveTableTest, GivesLettersToTheUsersFileSystemsInTheOrderOfTheMountTable)
{
    const QString usb = mount(QStringLiteral("usb"), QStringLiteral("ext4"), device(QStringLiteral("sdb1")));
    mount(QStringLiteral("tmp"), QStringLiteral("tmpfs"), QStringLiteral("tmpfs"));
    mount(QStringLiteral("cgroup"), QStringLiteral("cgroup2"), QStringLiteral("cgroup2"));
    mount(QStringLiteral("merged"), QStringLiteral("overlay"), QStringLiteral("overlay"));
    mount(QStringLiteral("snapcore"), QStringLiteral("squashfs"), device(QStringLiteral("loop3")));
    const QString stick
        = mount(QStringLiteral("stick"), QStringLiteral("vfat"), device(QStringLiteral("sdc1")));
    const QString share
        = mount(QStringLiteral("netz"), QStringLiteral("nfs4"), QStringLiteral("server:/export"));
    // A file mounted over a file, and a mount point that does not exist.
    const QString hosts = m_dir.filePath(QStringLiteral("hosts"));
    QFile(hosts).open(QIODevice::WriteOnly);
    m_mountLines << line(hosts, QStringLiteral("ext4"), device(QStringLiteral("sdb1")))
                 << line(m_dir.filePath(QStringLiteral("weg")), QStringLiteral("ext4"),
                        device(QStringLiteral("sdd1")))
                 << line(QStringLiteral("/proc"), QStringLiteral("proc"), QStringLiteral("proc"));
    writeMountInfo();

    const std::vector<Drive> drives = table().drives();
    ASSERT_EQ(drives.size(), 4u);
    const std::vector<std::pair<QString, QString>> expected = { { QStringLiteral("c:"), QStringLiteral("/") },
        { QStringLiteral("d:"), usb }, { QStringLiteral("e:"), stick }, { QStringLiteral("f:"), share } };
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(drives[i].letter, expected[i].first);
        EXPECT_EQ(drives[i].mountPoint, expected[i].second);
    }
    EXPECT_EQ(m_settings->groupValue(QStringLiteral("Drives"), QStringLiteral("e")), stick);
}

TEST_F(DriveTableTest, ALetterStaysWithItsMountPointWhileMediaComeAndGo)
{
    const QString usb = mount(QStringLiteral("usb"), QStringLiteral("ext4"), device(QStringLiteral("sdb1")));
    link("by-uuid", QStringLiteral("0badcafe-0000-4000-8000-000000000001"),
        m_dir.filePath(QStringLiteral("dev/sdb1")));
    const QString stick
        = mount(QStringLiteral("stick"), QStringLiteral("vfat"), device(QStringLiteral("sdc1")));
    EXPECT_EQ(letterOf(usb), QStringLiteral("d:"));

    unmount(usb);
    const QString disc = mount(
        QStringLiteral("cdrom"), QStringLiteral("iso9660"), device(QStringLiteral("sr0"), isoImage()));
    const std::optional<Drive> gone = table().find(QStringLiteral("d"));
    ASSERT_TRUE(gone);
    EXPECT_EQ(gone->mountPoint, usb);
    EXPECT_EQ(gone->serial, 0);
    EXPECT_EQ(gone->label, QStringLiteral("usb"));
    EXPECT_EQ(letterOf(stick), QStringLiteral("e:"));
    EXPECT_EQ(letterOf(disc), QStringLiteral("f:"));

    m_mountLines.append(line(usb, QStringLiteral("ext4"), m_dir.filePath(QStringLiteral("dev/sdb1"))));
    writeMountInfo();
    EXPECT_EQ(table().find(QStringLiteral("d:"))->serial, 0x0BADCAFE);
}

TEST_F(DriveTableTest, SerialIsTheVolumeIdWhereTheFileSystemHasOne)
{
    struct Case
    {
        const char *name;
        const char *type;
        QByteArray content;
        const char *uuid;
        int32_t serial;
    };
    const std::vector<Case> cases = {
        { "fat", "vfat", QByteArray(64, '\0'), "1234-ABCD", 0x1234ABCD },
        { "exfat", "exfat", QByteArray(64, '\0'), "0A1B-2C3D", 0x0A1B2C3D },
        // The low half of the 64-bit NTFS serial.
        { "ntfs", "ntfs3", QByteArray(64, '\0'), "0123456789ABCDEF", static_cast<int32_t>(0x89ABCDEFu) },
        { "ext4", "ext4", QByteArray(64, '\0'), "deadbeef-1234-5678-9abc-def012345678",
            static_cast<int32_t>(0xDEADBEEFu) },
        // A readable disc gives the checksum of its descriptor, not its UUID.
        { "cd", "iso9660", isoImage(), "2011-02-03-04-05-06-00", static_cast<int32_t>(0x82D79081u) },
        { "kaputt", "iso9660", QByteArray(64, '\0'), "2012-03-04-05-06-07-00", 0x20120304 },
    };
    for (const Case &c : cases) {
        const QString dev = device(QString::fromLatin1(c.name), c.content);
        link("by-uuid", QString::fromLatin1(c.uuid), dev);
        mount(QString::fromLatin1(c.name), QString::fromLatin1(c.type), dev);
    }
    DriveTable drives = table();
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const std::optional<Drive> drive
            = drives.find(letterOf(m_dir.filePath(QStringLiteral("media/") + QString::fromLatin1(c.name))));
        ASSERT_TRUE(drive);
        EXPECT_EQ(drive->serial, c.serial);
        EXPECT_EQ(drives.getSerial(*drive), c.serial);
    }
}

TEST_F(DriveTableTest, AVolumeWithoutSerialKeepsTheIdItWasGiven)
{
    const QString share
        = mount(QStringLiteral("netz"), QStringLiteral("cifs"), QStringLiteral("//server/musik"));
    // A folder of a disk mounted on its own must not share the disk's id.
    const QString disk = device(QStringLiteral("sdb1"));
    link("by-uuid", QStringLiteral("1234-ABCD"), disk);
    m_mountLines.append(
        line(folder(QStringLiteral("media/teil")), QStringLiteral("vfat"), disk, QStringLiteral("/bilder")));
    writeMountInfo();

    for (const QString &point : { share, m_dir.filePath(QStringLiteral("media/teil")) }) {
        SCOPED_TRACE(point.toStdString());
        const QString letter = letterOf(point);
        const int32_t first = table().find(letter)->serial;
        EXPECT_NE(first, 0);
        EXPECT_NE(first, 0x1234ABCD);
        EXPECT_EQ(table().find(letter)->serial, first);
        const QStringList mounted = m_mountLines;
        unmount(point);
        EXPECT_EQ(table().find(letter)->serial, 0);
        m_mountLines = mounted;
        writeMountInfo();
        EXPECT_EQ(table().find(letter)->serial, first);
    }
}

TEST_F(DriveTableTest, LabelIsTheFileSystemsLabelElseTheFolderName)
{
    const QString platte = device(QStringLiteral("sdb1"));
    link("by-label", QStringLiteral("MEINE\\x20PLATTE"), platte);
    mount(QStringLiteral("platte"), QStringLiteral("ext4"), platte);
    mount(QStringLiteral("Mein Stick"), QStringLiteral("vfat"), device(QStringLiteral("sdc1")));
    mount(QStringLiteral("cdrom"), QStringLiteral("iso9660"), device(QStringLiteral("sr0"), isoImage()));

    QStringList texts;
    for (const Drive &drive : table().drives())
        texts << drive.listText();
    EXPECT_EQ(texts,
        (QStringList { QStringLiteral("c:"), QStringLiteral("d: [MEINE PLATTE]"),
            QStringLiteral("e: [Mein Stick]"), QStringLiteral("f: [MEINE_CD]") }));
}

TEST_F(DriveTableTest, VolumeNameIsTheLabelOfAMountedDriveOnly)
{
    const QString disc = mount(
        QStringLiteral("cdrom"), QStringLiteral("iso9660"), device(QStringLiteral("sr0"), isoImage()));
    DriveTable drives = table();
    EXPECT_EQ(drives.volumeName(QStringLiteral("d")), QStringLiteral("MEINE_CD"));
    EXPECT_EQ(drives.volumeName(QStringLiteral("D:")), QStringLiteral("MEINE_CD"));
    unmount(disc);
    EXPECT_EQ(drives.volumeName(QStringLiteral("d")), QString());
    EXPECT_EQ(drives.volumeName(QStringLiteral("q")), QString());
    EXPECT_EQ(drives.volumeName(QString()), QString());
}

TEST_F(DriveTableTest, AddFolderRefusesWithAGermanMessage)
{
    mount(QStringLiteral("usb"), QStringLiteral("ext4"), device(QStringLiteral("sdb1")));
    const QString musik = folder(QStringLiteral("home/Musik"));
    ASSERT_TRUE(table().addFolder(QStringLiteral("m"), musik).ok());
    const QString missing = m_dir.filePath(QStringLiteral("home/fehlt"));
    const QString other = folder(QStringLiteral("home/Filme"));

    struct Case
    {
        QString letter;
        QString folder;
        QString error;
    };
    const std::vector<Case> cases = {
        { QStringLiteral("1"), other,
            QStringLiteral("„1“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.") },
        { QStringLiteral("gh"), other,
            QStringLiteral("„gh“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.") },
        { QStringLiteral("ä:"), other,
            QStringLiteral("„ä:“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.") },
        { QString(), other,
            QStringLiteral("„“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.") },
        { QStringLiteral("c:"), other,
            QStringLiteral("Der Laufwerksbuchstabe c: ist bereits vergeben (/).") },
        { QStringLiteral("D"), other,
            QStringLiteral("Der Laufwerksbuchstabe d: ist bereits vergeben (%1).")
                .arg(m_dir.filePath(QStringLiteral("media/usb"))) },
        { QStringLiteral("m:"), other,
            QStringLiteral("Der Laufwerksbuchstabe m: ist bereits vergeben (%1).").arg(musik) },
        { QStringLiteral("x"), missing, QStringLiteral("Der Ordner „%1“ existiert nicht.").arg(missing) },
        { QStringLiteral("x"), musik + QStringLiteral("/"),
            QStringLiteral("Der Ordner „%1/“ ist bereits das Laufwerk m:.").arg(musik) },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.error.toStdString());
        EXPECT_EQ(table().addFolder(c.letter, c.folder).error, c.error);
    }
    EXPECT_EQ(table().drives().size(), 3u);
}

TEST_F(DriveTableTest, AFolderDriveIsPresentWhileItsFolderExists)
{
    const QString musik = folder(QStringLiteral("home/Musik"));
    const AddDriveResult added = table().addFolder(QStringLiteral("M"), musik + QStringLiteral("/"));
    ASSERT_TRUE(added.ok()) << added.error.toStdString();
    EXPECT_EQ(added.drive.letter, QStringLiteral("m:"));
    EXPECT_EQ(added.drive.mountPoint, musik);
    EXPECT_EQ(added.drive.listText(), QStringLiteral("m: [Musik]"));
    EXPECT_NE(added.drive.serial, 0);
    EXPECT_EQ(table().find(QStringLiteral("m"))->serial, added.drive.serial);

    QDir(musik).removeRecursively();
    EXPECT_EQ(table().getSerial(added.drive), 0);
    EXPECT_EQ(table().volumeName(QStringLiteral("m")), QString());
}

TEST_F(DriveTableTest, DriveForFolderFindsOrAddsTheFolder)
{
    const QString usb = mount(QStringLiteral("usb"), QStringLiteral("ext4"), device(QStringLiteral("sdb1")));
    const QString fotos = folder(QStringLiteral("home/Fotos"));
    EXPECT_EQ(table().driveForFolder(usb).letter, QStringLiteral("d:"));
    EXPECT_EQ(table().driveForFolder(QStringLiteral("/")).letter, QStringLiteral("c:"));
    EXPECT_EQ(table().driveForFolder(fotos).letter, QStringLiteral("e:"));
    EXPECT_EQ(table().driveForFolder(fotos + QStringLiteral("/../Fotos")).letter, QStringLiteral("e:"));
    EXPECT_EQ(table().driveForFolder(m_dir.filePath(QStringLiteral("fehlt"))).letter, QString());
    // A new mount takes the next letter after the folder.
    const QString stick
        = mount(QStringLiteral("stick"), QStringLiteral("vfat"), device(QStringLiteral("sdc1")));
    EXPECT_EQ(letterOf(stick), QStringLiteral("f:"));
}

TEST_F(DriveTableTest, MountsBeyondTheLastLetterGetNone)
{
    for (int i = 0; i < 24; ++i)
        mount(QStringLiteral("disk%1").arg(i), QStringLiteral("ext4"), device(QStringLiteral("sd%1").arg(i)));
    const std::vector<Drive> drives = table().drives();
    ASSERT_EQ(drives.size(), 24u);
    EXPECT_EQ(drives.back().letter, QStringLiteral("z:"));
    EXPECT_EQ(drives.back().mountPoint, m_dir.filePath(QStringLiteral("media/disk22")));
    EXPECT_EQ(table().driveForFolder(folder(QStringLiteral("home"))).letter, QString());
}

TEST(DriveLetter, NormalFormIsLowerCaseWithColon)
{
    const std::vector<std::pair<QString, QString>> cases = {
        { QStringLiteral("d"), QStringLiteral("d:") },
        { QStringLiteral("D"), QStringLiteral("d:") },
        { QStringLiteral("Z:"), QStringLiteral("z:") },
        { QStringLiteral("a:"), QStringLiteral("a:") },
        { QStringLiteral("d:\\"), QString() },
        { QStringLiteral("d: [CD]"), QString() },
        { QStringLiteral(":"), QString() },
        { QStringLiteral("dd"), QString() },
        { QStringLiteral("é"), QString() },
        { QString(), QString() },
    };
    for (const auto &[text, letter] : cases)
        EXPECT_EQ(DriveTable::normalLetter(text), letter) << text.toStdString();
}
