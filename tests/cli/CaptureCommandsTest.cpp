#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "TreeBuilder.h"

#include <sys/resource.h>

namespace {

using namespace Qt::StringLiterals;

// A small volume: a text file, a picture in a folder, an empty folder.
class CaptureCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_tree.file(u"liesmich.txt"_s, 6, 981173106); // 03.02.2001 04:05:06
        m_tree.file(u"Bilder/haus.jpg"_s, 2, 981173106);
        m_tree.folder(u"Leer"_s);
    }

    CliRun capture(const QStringList &options) const
    {
        const CliRun run = m_cli.run(QStringList { u"capture"_s, m_tree.root() } + options);
        EXPECT_EQ(run.exitCode, 0) << run.error.toStdString();
        return run;
    }

    CliRunner m_cli;
    QTemporaryDir m_volume;
    TreeBuilder m_tree { m_volume.path() };
};

// The image bytes are tested in the core; here the options reach the capture, the folder
// becomes a drive of its own whose letter captures the same volume, and --cd stores the id.
TEST_F(CaptureCommandsTest, OptionsReachTheCaptureAndACdGetsTheId)
{
    const std::tuple<QStringList, const char *, const char *> cases[] = { // options, in, not in the image
        { {}, "\\Bilder\\haus.jpg|2|03.02.2001 04:05:06\r\n", "\\Leer" },
        { args({ "--keep-empty" }), "\\Leer\r\n", "<none>" },
        { args({ "--filter", "*.txt" }), "", "haus.jpg" }
    };
    QByteArray written;
    for (const auto &[options, in, notIn] : cases) {
        written = fileBytes(m_cli.dataPath(u"lws/%1.dat"_s.arg(capture(options).lines.value(0))));
        EXPECT_TRUE(written.contains(in) && !written.contains(notIn)) << written.data();
    }

    ArchiveBuilder archive(m_cli.dataFolder(), u"Musik"_s);
    archive.cd(3, u"Drei"_s).cd(4, u"Vier"_s);
    const CliRun run = capture({ u"--cd"_s, u"3"_s, u"--archive"_s, u"Musik"_s });
    QStringList drive;
    for (const QString &line : m_cli.run({ u"drives"_s }).lines)
        if (line.split(u'\t').value(2) == m_tree.root())
            drive = line.split(u'\t');
    EXPECT_EQ(drive.mid(1),
        (QStringList { QFileInfo(m_tree.root()).fileName(), m_tree.root(), run.lines.value(0) }));
    EXPECT_TRUE(written.startsWith(">" + drive.value(0).toLatin1() + "\r\n")) << written.data();
    EXPECT_EQ(m_cli.run({ u"capture"_s, drive.value(0) }).lines, run.lines);
    EXPECT_EQ(archive.store().selectByNumber(3).value.imageId, run.lines.value(0).toInt());
    EXPECT_EQ(archive.store().selectByNumber(4).value.imageId, 0);
}

TEST_F(CaptureCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    ArchiveBuilder(m_cli.dataFolder(), u"Musik"_s).cd(3, u"Drei"_s);
    const QString root = m_tree.root(), nowhere = m_cli.scratch(u"nix"_s);
    m_cli.expectRefused(
        { { { u"capture"_s, nowhere }, 1, u"Der Ordner \"%1\" existiert nicht."_s.arg(nowhere) },
            { args({ "capture", "q:" }), 1, u"Das Laufwerk q: gibt es nicht."_s },
            { { u"capture"_s, root, u"--cd"_s, u"drei"_s, u"--archive"_s, u"Musik"_s }, 1,
                u"Die CD-Nummer muss eine ganze Zahl sein."_s },
            { { u"capture"_s, root, u"--leer"_s }, 2, u"Aufruf: silberbuch-cli capture"_s } });
}

// At the usual limits of a desktop session a 3000-level tree is captured whole: the walk
// holds no folder open per level.
TEST(CaptureCommands, ADeepTreeUnderAFileHandleLimitIsCapturedWhole)
{
    const CliRunner cli;
    QTemporaryDir volume;
    TreeBuilder tree(volume.path());
    tree.deepFolders("d", 3000, "unten.txt");
    const CliRun run = cli.run({ u"capture"_s, volume.path() }, true, [] {
        const rlimit limit { 256, 256 };
        ::setrlimit(RLIMIT_NOFILE, &limit);
    });
    TreeBuilder::removeDeep(tree.path(u"d"_s));
    ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
    const QByteArray bytes = fileBytes(cli.dataPath(u"lws/%1.dat"_s.arg(run.lines.value(0))));
    EXPECT_EQ(bytes.count("\r\n>"), 3000);
    EXPECT_TRUE(bytes.contains(QByteArray("\\d").repeated(3000) + "\\unten.txt|0|"));
}

} // namespace
