#include "images/DriveTable.h"

#include "QStringPrinting.h"
#include "TestPaths.h"
#include "TreeBuilder.h"
#include "app/Settings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A machine of its own under a temporary folder: a mount table with the root file system,
// device files, the udev folders by-uuid and by-label with their links, and mount points.
class DriveTableTest : public ::testing::Test
{
protected:
    // Writes the mount table as it stands now and reads it afresh.
    DriveTable table()
    {
        const QString mountInfo = write(u"mountinfo"_s, m_lines.join(u'\n').toUtf8() + '\n');
        return DriveTable(m_settings, { mountInfo, m_tree.path(u"by-uuid"_s), m_tree.path(u"by-label"_s) });
    }
    QString write(const QString &relative, const QByteArray &content = QByteArray(64, '\0'))
    {
        return writeFile(m_tree.path(relative), content);
    }
    QString media(const QString &name)
    {
        m_tree.folder(u"media/"_s + name);
        return m_tree.path(u"media/"_s + name);
    }
    // Blanks in a field of the mount table are written as "\040".
    void mount(const QString &point, const char *type, const QString &source)
    {
        const auto escaped = [](QString field) { return field.replace(u' ', u"\\040"_s); };
        m_lines.append(u"%1 1 8:%1 / %2 rw,relatime shared:1 - %3 %4 rw"_s.arg(
            QString::number(m_lines.size() + 20), escaped(point), QLatin1String(type), escaped(source)));
    }

    QTemporaryDir m_dir;
    TreeBuilder m_tree { m_dir.path() };
    Settings m_settings { m_dir.filePath(u"silberbuch.ini"_s) };
    QStringList m_lines { u"20 1 8:20 / / rw,relatime shared:1 - ext4 /dev/vda1 rw"_s };
};

} // namespace

// c: is the root; the user's file systems get letters in the order of the mount table and
// keep them while their medium is out. The serial is the image id: NTFS gives the low half of
// its 64-bit serial, a readable disc the checksum of its descriptor, an unreadable one its uuid.
TEST_F(DriveTableTest, LettersSerialsAndLabelsFollowTheMountTable)
{
    // The descriptor names the volume "MEINE_CD"; its last four bytes make each byte-wide sum overflow.
    QByteArray iso(17 * 2048, '\0');
    iso.replace(16 * 2048, 7, "\1CD001\1")
        .replace(16 * 2048 + 40, 32, QByteArray("MEINE_CD").leftJustified(32));
    iso.replace(17 * 2048 - 4, 4, "\xFF\xFF\xFF\xFF");
    // name of mount point and device, type, by-uuid link, by-label link
    const char *const volumes[][4] = {
        { "Mein Stick", "vfat", "1234-ABCD", "MEIN\\x20STICK" },
        { "ntfs", "ntfs3", "0123456789ABCDEF", nullptr },
        { "cd", "iso9660", "2011-02-03-04-05-06-00", nullptr },
        { "kaputt", "iso9660", "2012-03-04-05-06-07-00", nullptr },
    };
    // No letter for a system file system, a file mounted over a file or a missing mount point.
    m_tree.folder(u"dev"_s);
    mount(media(u"tmp"_s), "tmpfs", u"tmpfs"_s);
    mount(write(u"hosts"_s), "ext4", write(u"dev/sdx"_s));
    mount(m_tree.path(u"weg"_s), "ext4", u"/dev/sdy"_s);
    for (const auto &[name, type, uuid, label] : volumes) {
        const QString dev = write(
            u"dev/"_s + QLatin1String(name), QByteArrayView(name) == "cd" ? iso : QByteArray(64, '\0'));
        m_tree.symlink(dev, u"by-uuid/"_s + QLatin1String(uuid), 0);
        if (label)
            m_tree.symlink(dev, u"by-label/"_s + QLatin1String(label), 0);
        mount(media(QLatin1String(name)), type, dev);
    }
    mount(media(u"netz"_s), "nfs4", u"server:/export"_s);
    DriveTable drives = table();
    const std::vector<Drive> all = drives.drives();
    QStringList lines;
    for (const Drive &drive : all)
        lines << u"%1 %2 %3"_s.arg(drive.listText(), drive.mountPoint.mid(m_dir.path().size()),
            QString::number(static_cast<uint32_t>(drive.serial), 16));
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines.mid(1, 4),
        (QStringList { u"d: [MEIN STICK] /media/Mein Stick 1234abcd"_s, u"e: [ntfs] /media/ntfs 89abcdef"_s,
            u"f: [MEINE_CD] /media/cd 82d79081"_s, u"g: [kaputt] /media/kaputt 20120304"_s }));
    EXPECT_EQ(all.front().letter + all.front().mountPoint + all.back().listText(), u"c:/h: [netz]"_s);
    EXPECT_EQ(drives.getSerial(all[3]), all[3].serial);
    EXPECT_EQ(drives.volumeName(u"F:"_s), u"MEINE_CD"_s);

    // The disc taken out keeps f:; a new medium gets the next free letter.
    m_lines.removeIf([&](const QString &line) { return line.split(u' ')[4] == media(u"cd"_s); });
    mount(media(u"usb"_s), "ext4", write(u"dev/sdb1"_s));
    const std::optional<Drive> out = table().find(u"f"_s);
    ASSERT_TRUE(out);
    EXPECT_EQ(out->listText() + QString::number(out->serial) + table().volumeName(u"f"_s), u"f: [cd]0"_s);
    EXPECT_EQ(table().find(u"i:"_s)->mountPoint, media(u"usb"_s));
    mount(media(u"cd"_s), "iso9660", m_tree.path(u"dev/cd"_s));
    EXPECT_EQ(table().find(u"F"_s)->serial, all[3].serial);

    // Any folder can be a drive while it exists; its id is drawn once and kept.
    const QString musik = media(u"Musik"_s);
    const AddDriveResult added = table().addFolder(u"M"_s, musik + u'/');
    ASSERT_TRUE(added.ok()) << added.error.toStdString();
    EXPECT_EQ(added.drive.mountPoint + added.drive.listText(), musik + u"m: [Musik]"_s);
    EXPECT_TRUE(added.drive.serial != 0 && table().find(u"m"_s)->serial == added.drive.serial);
    EXPECT_EQ(table().addFolder(u"x"_s, musik + u'/').error,
        u"Der Ordner „%1/“ ist bereits das Laufwerk m:."_s.arg(musik));
    QDir(musik).removeRecursively();
    EXPECT_EQ(table().getSerial(added.drive), 0);
    EXPECT_EQ(table().volumeName(u"m"_s), QString());
}
