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

    CliRunner m_cli;
    QTemporaryDir m_volume;
    TreeBuilder m_tree { m_volume.path() };
};

// The image bytes are tested in the core; here the options reach the capture.
TEST_F(CaptureCommandsTest, PrintsTheImageIdAloneAndWritesTheImage)
{
    const std::tuple<QStringList, const char *, const char *> cases[] = { // options, in, not in the image
        { {}, "\\Bilder\\haus.jpg|2|03.02.2001 04:05:06\r\n", "\\Leer" },
        { args({ "--keep-empty" }), "\\Leer\r\n", "<none>" },
        { args({ "--filter", "*.txt" }), "", "haus.jpg" }
    };
    for (const auto &[options, in, notIn] : cases) {
        SCOPED_TRACE(options.join(u' ').toStdString());
        const CliRun run = m_cli.run(QStringList { u"capture"_s, m_tree.root() } + options);
        ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
        ASSERT_EQ(run.lines.size(), 1);
        const QByteArray written = image(run.lines.first());
        EXPECT_TRUE(written.startsWith(">" + driveOfVolume().value(0).toLatin1() + "\r\n")) << written.data();
        EXPECT_TRUE(written.contains(in) && !written.contains(notIn)) << written.data();
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
    m_cli.expectRefused(
        { { { u"capture"_s, nowhere }, 1, u"Der Ordner \"%1\" existiert nicht."_s.arg(nowhere) },
            { args({ "capture", "q:" }), 1, u"Das Laufwerk q: gibt es nicht."_s },
            { { u"capture"_s, root, u"--cd"_s, u"9"_s, u"--archive"_s, u"Musik"_s }, 1,
                u"Die CD (Nummer: 9) wurde im Archiv nicht gefunden."_s },
            { { u"capture"_s, root, u"--cd"_s, u"drei"_s, u"--archive"_s, u"Musik"_s }, 1,
                u"Die CD-Nummer muss eine ganze Zahl sein."_s },
            { { u"capture"_s, root, u"--leer"_s }, 2, usage } });
}

} // namespace
