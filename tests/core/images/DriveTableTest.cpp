#include "images/DriveTable.h"

#include "app/Settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// An ISO 9660 image whose primary volume descriptor names the volume "MEINE_CD"; the last
// four bytes make each byte-wide sum overflow.
QByteArray isoImage()
{
    QByteArray image(17 * 2048, '\0');
    image.replace(16 * 2048, 7,
        "\x01"
        "CD001\x01");
    image.replace(16 * 2048 + 40, 32, QByteArray("MEINE_CD").leftJustified(32, ' '));
    image.replace(17 * 2048 - 4, 4, "\xFF\xFF\xFF\xFF");
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
    QString device(QAnyStringView name, const QByteArray &content = QByteArray(64, '\0'))
    {
        QFile file(path(u"dev/"_s + name.toString()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    // udev's links are relative: by-uuid/1234-ABCD -> ../dev/sdb1
    void link(const char *folder, const char *name, const QString &device)
    {
        ASSERT_TRUE(QFile::link(u"../dev/"_s + QFileInfo(device).fileName(),
            path(QLatin1String(folder) + u'/' + QLatin1String(name))));
    }
    // Blanks in a field of the mount table are written as "\040".
    static QString escaped(QString field) { return field.replace(u' ', u"\\040"_s); }
    // Mounts `source` on `name` when it is a path, else on media/<name>, made here.
    QString mount(QAnyStringView name, const char *type, QAnyStringView source)
    {
        const QString given = name.toString();
        const QString point = given.startsWith(u'/') ? given : path(u"media/"_s + given);
        if (!given.startsWith(u'/'))
            QDir().mkpath(point);
        m_lines.append(u"%1 1 8:%1 / %2 rw,relatime shared:1 - %3 %4 rw"_s.arg(
            QString::number(++m_mountId), escaped(point), QLatin1String(type), escaped(source.toString())));
        return point;
    }
    void unmount(const QString &point)
    {
        m_lines.removeIf([&](const QString &line) { return line.split(u' ')[4] == escaped(point); });
    }

    QTemporaryDir m_dir;
    Settings m_settings { m_dir.filePath(QStringLiteral("silberbuch.ini")) };
    QStringList m_lines;
    int m_mountId = 20;
};

} // namespace

// Letters go to the user's file systems in the order of the mount table and stay with their
// mount point while media come and go.
TEST_F(DriveTableTest, LettersFollowTheMountTableAndStayWithTheirMountPoint)
{
    const QString usb = mount("usb", "ext4", device("sdb1"));
    link("by-uuid", "0badcafe-0000-4000-8000-000000000001", path("dev/sdb1"));
    // Neither system file systems, nor a file mounted over a file, nor a missing mount point.
    QFile(path("hosts")).open(QIODevice::WriteOnly);
    const std::tuple<QString, const char *, QString> others[]
        = { { u"tmp"_s, "tmpfs", u"tmpfs"_s }, { u"snapcore"_s, "squashfs", device("loop3") },
              { path("hosts"), "ext4", device("sdb1") }, { path("weg"), "ext4", device("sdd1") } };
    for (const auto &[name, type, source] : others)
        mount(name, type, source);
    const QString stick = mount("stick", "vfat", device("sdc1"));
    const QString share = mount("netz", "nfs4", "server:/export");
    QStringList letters;
    for (const Drive &drive : table().drives())
        letters << drive.letter + u'=' + drive.mountPoint;
    EXPECT_EQ(letters, (QStringList { u"c:=/"_s, u"d:="_s + usb, u"e:="_s + stick, u"f:="_s + share }));
    EXPECT_EQ(m_settings.groupValue(QStringLiteral("Drives"), QStringLiteral("e")), stick);

    unmount(usb);
    const QString disc = mount("cdrom", "iso9660", device("sr0", isoImage()));
    const std::optional<Drive> gone = table().find(QStringLiteral("d"));
    ASSERT_TRUE(gone);
    EXPECT_EQ(
        gone->listText() + gone->mountPoint + QString::number(gone->serial), u"d: [usb]"_s + usb + u'0');
    EXPECT_EQ(table().find(u"g"_s)->mountPoint, disc);
    mount(usb, "ext4", path("dev/sdb1"));
    EXPECT_EQ(table().find(QStringLiteral("d:"))->serial, 0x0BADCAFE);
}

TEST_F(DriveTableTest, SerialsAndLabels)
{
    // name: of the mount point and the device; label: the by-label link. NTFS gives the low
    // half of its 64-bit serial; a readable disc the checksum of its descriptor and its label.
    const std::tuple<const char *, const char *, QByteArray, const char *, const char *, uint32_t,
        const char *>
        cases[] = {
            { "Mein Stick", "vfat", {}, "1234-ABCD", nullptr, 0x1234ABCDu, "d: [Mein Stick]" },
            { "ntfs", "ntfs3", {}, "0123456789ABCDEF", nullptr, 0x89ABCDEFu, "e: [ntfs]" },
            { "platte", "ext4", {}, "deadbeef-1234-5678-9abc-def012345678", "MEINE\\x20PLATTE", 0xDEADBEEFu,
                "f: [MEINE PLATTE]" },
            { "cd", "iso9660", isoImage(), "2011-02-03-04-05-06-00", nullptr, 0x82D79081u, "g: [MEINE_CD]" },
            { "kaputt", "iso9660", {}, "2012-03-04-05-06-07-00", nullptr, 0x20120304u, "h: [kaputt]" },
        };
    for (const auto &[name, type, content, uuid, label, serial, listText] : cases) {
        const QString dev = device(name, content.isEmpty() ? QByteArray(64, '\0') : content);
        link("by-uuid", uuid, dev);
        if (label)
            link("by-label", label, dev);
        mount(name, type, dev);
    }
    for (const auto &[name, type, content, uuid, label, serial, listText] : cases) {
        SCOPED_TRACE(name);
        DriveTable drives = table();
        const std::optional<Drive> drive = drives.find(QLatin1String(listText).left(2));
        ASSERT_TRUE(drive);
        EXPECT_EQ(drive->mountPoint + drive->listText(),
            path(u"media/"_s + QLatin1String(name)) + QLatin1String(listText));
        EXPECT_EQ(std::make_pair(drive->serial, drives.getSerial(*drive)),
            std::make_pair(static_cast<int32_t>(serial), static_cast<int32_t>(serial)));
    }
    EXPECT_EQ(table().volumeName(QStringLiteral("G:")), QStringLiteral("MEINE_CD"));
    unmount(path("media/cd"));
    EXPECT_EQ(table().volumeName(QStringLiteral("g")), QString());
}

TEST_F(DriveTableTest, AnyFolderCanBeADriveWhileItExists)
{
    const QString usb = mount("usb", "ext4", device("sdb1"));
    const QString musik = path("home/Musik"), other = path("home/Filme");
    QDir().mkpath(musik);
    QDir().mkpath(other);
    const AddDriveResult added = table().addFolder(QStringLiteral("M"), musik + u'/');
    ASSERT_TRUE(added.ok()) << added.error.toStdString();
    EXPECT_EQ(added.drive.mountPoint + added.drive.listText(), musik + u"m: [Musik]"_s);
    EXPECT_NE(added.drive.serial, 0);
    EXPECT_EQ(table().find(QStringLiteral("m"))->serial, added.drive.serial);

    const std::tuple<QString, QString, QString> refused[] = {
        { u"ä:"_s, other, u"„ä:“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:."_s },
        { u"D"_s, other, u"Der Laufwerksbuchstabe d: ist bereits vergeben (%1)."_s.arg(usb) },
        { u"x"_s, path("fehlt"), u"Der Ordner „%1“ existiert nicht."_s.arg(path("fehlt")) },
        { u"x"_s, musik + u'/', u"Der Ordner „%1/“ ist bereits das Laufwerk m:."_s.arg(musik) },
    };
    for (const auto &[letter, folder, error] : refused)
        EXPECT_EQ(table().addFolder(letter, folder).error, error);
    EXPECT_EQ(table().drives().size(), 3u);
    QDir(musik).removeRecursively();
    EXPECT_EQ(table().getSerial(added.drive), 0);
    EXPECT_EQ(table().volumeName(QStringLiteral("m")), QString());
}
