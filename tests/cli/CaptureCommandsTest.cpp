#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "TreeBuilder.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int64_t kTime = 981173106; // 03.02.2001 04:05:06

// A small volume: a text file, a picture in a folder, an empty folder.
class CaptureCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_tree.file(u"liesmich.txt"_s, 6, kTime);
        m_tree.file(u"Bilder/haus.jpg"_s, 2, kTime);
        m_tree.folder(u"Leer"_s);
    }

    QByteArray image(const QString &id) const
    {
        QFile file(m_cli.dataPath(u"lws/%1.dat"_s.arg(id)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }
    // The drive list's line of the volume's folder: letter, name, folder, image ID.
    QStringList driveOfVolume() const
    {
        for (const QString &line : m_cli.run({ u"drives"_s }).lines) {
            if (line.split(u'\t').value(2) == m_tree.root())
                return line.split(u'\t');
        }
        return {};
    }
    // The image of the volume, with or without the picture and the folders left empty.
    QByteArray expected(bool withPicture, bool withEmptyFolders) const
    {
        const QByteArray drive = driveOfVolume().value(0).toLatin1();
        QByteArray lines;
        for (const QString &name : m_tree.listingOrder()) {
            if (name == u"liesmich.txt"_s)
                lines += drive + "\\liesmich.txt|6|03.02.2001 04:05:06\r\n";
            else if (name == u"Bilder"_s && (withPicture || withEmptyFolders))
                lines += ">" + drive + "\\Bilder\r\n"
                    + (withPicture ? drive + "\\Bilder\\haus.jpg|2|03.02.2001 04:05:06\r\n" : QByteArray());
            else if (name == u"Leer"_s && withEmptyFolders)
                lines += ">" + drive + "\\Leer\r\n";
        }
        return ">" + drive + "\r\n" + lines + "\r\n";
    }

    CliRunner m_cli;
    QTemporaryDir m_volume;
    TreeBuilder m_tree { m_volume.path() };
};

TEST_F(CaptureCommandsTest, PrintsTheImageIdAloneAndWritesTheImage)
{
    const struct
    {
        QStringList options;
        bool withPicture, withEmptyFolders;
    } cases[] = { { {}, true, false }, { args({ "--keep-empty" }), true, true },
        { args({ "--filter", "*.txt" }), false, false } };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.options.join(u' ').toStdString());
        const CliRun run = m_cli.run(QStringList { u"capture"_s, m_tree.root() } + c.options);
        ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
        ASSERT_EQ(run.lines.size(), 1);
        bool numeric = false;
        run.lines.first().toInt(&numeric);
        EXPECT_TRUE(numeric) << run.lines.first().toStdString();
        EXPECT_EQ(image(run.lines.first()), expected(c.withPicture, c.withEmptyFolders));
    }
}

// The folder becomes a drive of its own; its letter then captures the same volume.
TEST_F(CaptureCommandsTest, FolderBecomesADriveAndACdGetsTheId)
{
    const CliRun byFolder = m_cli.run({ u"capture"_s, m_tree.root() });
    ASSERT_EQ(byFolder.exitCode, 0) << byFolder.error.toStdString();
    const QStringList drive = driveOfVolume();
    EXPECT_EQ(drive.mid(1),
        (QStringList { QFileInfo(m_tree.root()).fileName(), m_tree.root(), byFolder.lines.value(0) }));
    EXPECT_EQ(m_cli.run({ u"capture"_s, drive.value(0) }).lines, byFolder.lines);

    ArchiveBuilder archive(m_cli.dataFolder(), u"Musik"_s);
    archive.cd(3, u"Drei"_s).cd(4, u"Vier"_s);
    const CliRun run
        = m_cli.run({ u"capture"_s, m_tree.root(), u"--cd"_s, u"3"_s, u"--archive"_s, u"Musik"_s });
    ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
    EXPECT_EQ(archive.store().selectByNumber(3).value.imageId, run.lines.value(0).toInt());
    EXPECT_EQ(archive.store().selectByNumber(4).value.imageId, 0);
}

TEST_F(CaptureCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    ArchiveBuilder(m_cli.dataFolder(), u"Musik"_s).cd(3, u"Drei"_s);
    const QString root = m_tree.root(), nowhere = m_cli.scratch(u"nix"_s),
                  usage = u"Aufruf: silberbuch-cli capture"_s;
    m_cli.expectRefused({ { { u"capture"_s, root, u"--filter"_s, u"*.["_s }, 1,
                              u"Ungültiges Suchmuster: Eine eckige Klammer \"[\" wird nicht geschlossen."_s },
        { { u"capture"_s, nowhere }, 1, u"Der Ordner \"%1\" existiert nicht."_s.arg(nowhere) },
        { args({ "capture", "q:" }), 1, u"Das Laufwerk q: gibt es nicht."_s },
        { { u"capture"_s, root, u"--cd"_s, u"9"_s, u"--archive"_s, u"Musik"_s }, 1,
            u"Die CD (Nummer: 9) wurde im Archiv nicht gefunden."_s },
        { { u"capture"_s, root, u"--cd"_s, u"drei"_s, u"--archive"_s, u"Musik"_s }, 1,
            u"Die CD-Nummer muss eine ganze Zahl sein."_s },
        { { u"capture"_s, root, u"--leer"_s }, 2, usage } });
}

} // namespace
