#include "images/DriveTable.h"

#include "app/Settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>

namespace {

// An ISO 9660 image whose primary volume descriptor names the volume "MEINE_CD"; the last
// four bytes make each byte-wide sum overflow.
QByteArray isoImage()
{
    QByteArray image(17 * 2048, '\0');
    char *descriptor = image.data() + 16 * 2048;
    std::memcpy(descriptor,
        "\x01"
        "CD001\x01",
        7);
    std::memcpy(descriptor + 40, "MEINE_CD                        ", 32);
    std::memset(descriptor + 2044, 0xFF, 4);
    return image;
}

// A machine of its own under a temporary folder: a mount table, device files, the udev
// folders by-uuid and by-label with their links, and the mount points. The root file
// system is mounted from the start.
class DriveTableTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (const char *folder : { "dev", "by-uuid", "by-label" })
            QDir(m_dir.path()).mkpath(QLatin1String(folder));
        mount("/", "ext4", device("vda"));
    }

    // Writes the mount table as it stands now and reads it afresh.
    DriveTable table()
    {
        QFile file(path("mountinfo"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(m_lines.join(u'\n').toUtf8() + '\n');
        return DriveTable(m_settings, { path("mountinfo"), path("by-uuid"), path("by-label") });
    }
    QString path(QAnyStringView relative) const { return m_dir.filePath(relative.toString()); }
    QString folder(QAnyStringView relative)
    {
        QDir().mkpath(path(relative));
        return path(relative);
    }
    QString device(QAnyStringView name, const QByteArray &content = QByteArray(4096, '\0'))
    {
        QFile file(path(QStringLiteral("dev/") + name.toString()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    // udev's links are relative: by-uuid/1234-ABCD -> ../dev/sdb1
    void link(const char *folder, const char *name, const QString &device)
    {
        ASSERT_TRUE(QFile::link(QStringLiteral("../dev/") + QFileInfo(device).fileName(),
            path(QLatin1String(folder) + u'/' + QLatin1String(name))));
    }
    // Blanks in a field of the mount table are written as "\040".
    static QString escaped(QString field) { return field.replace(u' ', QStringLiteral("\\040")); }
    // Mounts `source` on `name` when it is a path, else on media/<name>, made here.
    QString mount(QAnyStringView name, const char *type, QAnyStringView source, const char *root = "/")
    {
        const QString given = name.toString();
        const QString point = given.startsWith(u'/') ? given : folder(QStringLiteral("media/") + given);
        m_lines.append(QStringLiteral("%1 1 8:%1 %2 %3 rw,relatime shared:1 - %4 %5 rw")
                           .arg(QString::number(++m_mountId), QLatin1String(root), escaped(point),
                               QLatin1String(type), escaped(source.toString())));
        return point;
    }
    void unmount(const QString &point)
    {
        m_lines.removeIf([&](const QString &line) { return line.split(u' ')[4] == escaped(point); });
    }
    QString letterOf(const QString &point)
    {
        for (const Drive &drive : table().drives())
            if (drive.mountPoint == point)
                return drive.letter;
        return {};
    }

    QTemporaryDir m_dir;
    Settings m_settings { m_dir.filePath(QStringLiteral("silberbuch.ini")) };
    QStringList m_lines;
    int m_mountId = 20;
};

} // namespace

TEST_F(DriveTableTest, GivesLettersToTheUsersFileSystemsInTheOrderOfTheMountTable)
{
    const QString usb = mount("usb", "ext4", device("sdb1"));
    // Neither system file systems, nor a file mounted over a file, nor a missing mount point.
    QFile(path("hosts")).open(QIODevice::WriteOnly);
    const std::tuple<QString, const char *, QString> others[]
        = { { QStringLiteral("tmp"), "tmpfs", QStringLiteral("tmpfs") },
              { QStringLiteral("cgroup"), "cgroup2", QStringLiteral("cgroup2") },
              { QStringLiteral("merged"), "overlay", QStringLiteral("overlay") },
              { QStringLiteral("snapcore"), "squashfs", device("loop3") },
              { path("hosts"), "ext4", device("sdb1") }, { path("weg"), "ext4", device("sdd1") },
              { QStringLiteral("/proc"), "proc", QStringLiteral("proc") } };
    for (const auto &[name, type, source] : others)
        mount(name, type, source);
    const QString stick = mount("stick", "vfat", device("sdc1"));
    const QString share = mount("netz", "nfs4", "server:/export");

    QStringList letters;
    for (const Drive &drive : table().drives())
        letters << drive.letter + u'=' + drive.mountPoint;
    EXPECT_EQ(letters,
        (QStringList { QStringLiteral("c:=/"), QStringLiteral("d:=") + usb, QStringLiteral("e:=") + stick,
            QStringLiteral("f:=") + share }));
    EXPECT_EQ(m_settings.groupValue(QStringLiteral("Drives"), QStringLiteral("e")), stick);
}

TEST_F(DriveTableTest, SerialsAndLabels)
{
    const struct
    {
        const char *name; // of the mount point and the device
        const char *type;
        QByteArray content;
        const char *uuid;
        const char *label; // the by-label link
        int32_t serial;
        const char *listText;
    } cases[] = {
        { "Mein Stick", "vfat", {}, "1234-ABCD", nullptr, 0x1234ABCD, "d: [Mein Stick]" },
        { "exfat", "exfat", {}, "0A1B-2C3D", nullptr, 0x0A1B2C3D, "e: [exfat]" },
        // The low half of the 64-bit NTFS serial.
        { "ntfs", "ntfs3", {}, "0123456789ABCDEF", nullptr, static_cast<int32_t>(0x89ABCDEFu), "f: [ntfs]" },
        { "platte", "ext4", {}, "deadbeef-1234-5678-9abc-def012345678", "MEINE\\x20PLATTE",
            static_cast<int32_t>(0xDEADBEEFu), "g: [MEINE PLATTE]" },
        // A readable disc gives the checksum of its descriptor, not its UUID, and its label.
        { "cd", "iso9660", isoImage(), "2011-02-03-04-05-06-00", nullptr, static_cast<int32_t>(0x82D79081u),
            "h: [MEINE_CD]" },
        { "kaputt", "iso9660", {}, "2012-03-04-05-06-07-00", nullptr, 0x20120304, "i: [kaputt]" },
    };
    for (const auto &c : cases) {
        const QString dev = device(c.name, c.content.isEmpty() ? QByteArray(64, '\0') : c.content);
        link("by-uuid", c.uuid, dev);
        if (c.label)
            link("by-label", c.label, dev);
        mount(c.name, c.type, dev);
    }
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        DriveTable drives = table();
        const std::optional<Drive> drive
            = drives.find(letterOf(path(QStringLiteral("media/") + QLatin1String(c.name))));
        ASSERT_TRUE(drive);
        EXPECT_EQ(drive->serial, c.serial);
        EXPECT_EQ(drives.getSerial(*drive), c.serial);
        EXPECT_EQ(drive->listText(), QLatin1String(c.listText));
    }
    EXPECT_EQ(table().volumeName(QStringLiteral("H:")), QStringLiteral("MEINE_CD"));
    unmount(path("media/cd"));
    for (const char *letter : { "h", "q", "" })
        EXPECT_EQ(table().volumeName(QLatin1String(letter)), QString()) << letter;
}

TEST_F(DriveTableTest, ALetterStaysWithItsMountPointWhileMediaComeAndGo)
{
    const QString usb = mount("usb", "ext4", device("sdb1"));
    link("by-uuid", "0badcafe-0000-4000-8000-000000000001", path("dev/sdb1"));
    const QString stick = mount("stick", "vfat", device("sdc1"));
    EXPECT_EQ(letterOf(usb), QStringLiteral("d:"));

    unmount(usb);
    const QString disc = mount("cdrom", "iso9660", device("sr0", isoImage()));
    const std::optional<Drive> gone = table().find(QStringLiteral("d"));
    ASSERT_TRUE(gone);
    EXPECT_EQ(gone->listText() + gone->mountPoint, QStringLiteral("d: [usb]") + usb);
    EXPECT_EQ(gone->serial, 0);
    EXPECT_EQ(letterOf(stick), QStringLiteral("e:"));
    EXPECT_EQ(letterOf(disc), QStringLiteral("f:"));

    mount(usb, "ext4", path("dev/sdb1"));
    EXPECT_EQ(table().find(QStringLiteral("d:"))->serial, 0x0BADCAFE);
}

TEST_F(DriveTableTest, AVolumeWithoutSerialKeepsTheIdItWasGiven)
{
    const QString share = mount("netz", "cifs", "//server/musik");
    // A folder of a disk mounted on its own must not share the disk's id.
    const QString disk = device("sdb1");
    link("by-uuid", "1234-ABCD", disk);
    const QString part = mount("teil", "vfat", disk, "/bilder");
    const QStringList mounted = m_lines;
    for (const QString &point : { share, part }) {
        SCOPED_TRACE(point.toStdString());
        const QString letter = letterOf(point);
        const int32_t first = table().find(letter)->serial;
        EXPECT_NE(first, 0);
        EXPECT_NE(first, 0x1234ABCD);
        unmount(point);
        EXPECT_EQ(table().find(letter)->serial, 0);
        m_lines = mounted;
        EXPECT_EQ(table().find(letter)->serial, first);
    }
}

TEST_F(DriveTableTest, AnyFolderCanBeADriveWhileItExists)
{
    const QString usb = mount("usb", "ext4", device("sdb1"));
    const QString musik = folder("home/Musik");
    const AddDriveResult added = table().addFolder(QStringLiteral("M"), musik + u'/');
    ASSERT_TRUE(added.ok()) << added.error.toStdString();
    EXPECT_EQ(added.drive.mountPoint, musik);
    EXPECT_EQ(added.drive.listText(), QStringLiteral("m: [Musik]"));
    EXPECT_NE(added.drive.serial, 0);
    EXPECT_EQ(table().find(QStringLiteral("m"))->serial, added.drive.serial);

    const QString other = folder("home/Filme");
    const QString noLetter
        = QStringLiteral("„%1“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:.");
    const QString taken = QStringLiteral("Der Laufwerksbuchstabe %1 ist bereits vergeben (%2).");
    const std::tuple<QString, QString, QString> refused[] = {
        { QStringLiteral("1"), other, noLetter.arg(QStringLiteral("1")) },
        { QStringLiteral("gh"), other, noLetter.arg(QStringLiteral("gh")) },
        { QStringLiteral("ä:"), other, noLetter.arg(QStringLiteral("ä:")) },
        { QString(), other, noLetter.arg(QString()) },
        { QStringLiteral("c:"), other, taken.arg(QStringLiteral("c:"), QStringLiteral("/")) },
        { QStringLiteral("D"), other, taken.arg(QStringLiteral("d:"), usb) },
        { QStringLiteral("m:"), other, taken.arg(QStringLiteral("m:"), musik) },
        { QStringLiteral("x"), path("fehlt"),
            QStringLiteral("Der Ordner „%1“ existiert nicht.").arg(path("fehlt")) },
        { QStringLiteral("x"), musik + u'/',
            QStringLiteral("Der Ordner „%1/“ ist bereits das Laufwerk m:.").arg(musik) },
    };
    for (const auto &[letter, folder, error] : refused)
        EXPECT_EQ(table().addFolder(letter, folder).error, error);
    EXPECT_EQ(table().drives().size(), 3u);

    QDir(musik).removeRecursively();
    EXPECT_EQ(table().getSerial(added.drive), 0);
    EXPECT_EQ(table().volumeName(QStringLiteral("m")), QString());
}

TEST_F(DriveTableTest, DriveForFolderFindsOrAddsTheFolderWhileLettersLast)
{
    const QString usb = mount("usb", "ext4", device("sdb1"));
    const QString fotos = folder("home/Fotos");
    const std::pair<QString, const char *> cases[] = { { usb, "d:" }, { QStringLiteral("/"), "c:" },
        { fotos, "e:" }, { fotos + QStringLiteral("/../Fotos"), "e:" }, { path("fehlt"), "" } };
    for (const auto &[folder, letter] : cases)
        EXPECT_EQ(table().driveForFolder(folder).letter, QLatin1String(letter)) << folder.toStdString();
    // A new mount takes the next letter after the folder, up to z:.
    for (int i = 0; i < 22; ++i)
        mount(QStringLiteral("disk%1").arg(i), "ext4", device(QStringLiteral("sd%1").arg(i)));
    const std::vector<Drive> drives = table().drives();
    ASSERT_EQ(drives.size(), 24u);
    EXPECT_EQ(drives[3].mountPoint, path("media/disk0"));
    EXPECT_EQ(drives.back().letter + drives.back().mountPoint, QStringLiteral("z:") + path("media/disk20"));
    EXPECT_EQ(table().driveForFolder(folder("home")).letter, QString());
}

TEST(DriveLetter, NormalFormIsLowerCaseWithColon)
{
    const std::pair<const char *, const char *> cases[]
        = { { "d", "d:" }, { "D", "d:" }, { "Z:", "z:" }, { "a:", "a:" }, { "d:\\", "" }, { "d: [CD]", "" },
              { ":", "" }, { "dd", "" }, { "é", "" }, { "", "" } };
    for (const auto &[text, letter] : cases)
        EXPECT_EQ(DriveTable::normalLetter(QString::fromUtf8(text)), QLatin1String(letter)) << text;
}
