#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "TreeBuilder.h"

#include <gtest/gtest.h>

namespace {

constexpr int64_t kTime = 981173106; // 03.02.2001 04:05:06

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// A small volume: a text file, a picture in a folder, an empty folder.
class CaptureCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_tree.file(QStringLiteral("liesmich.txt"), 6, kTime);
        m_tree.file(QStringLiteral("Bilder/haus.jpg"), 2, kTime);
        m_tree.folder(QStringLiteral("Leer"));
    }

    CliRun capture(const QStringList &options = {})
    {
        return m_cli.run(QStringList { QStringLiteral("capture"), m_tree.root() } + options);
    }
    QByteArray image(const QString &id) const
    {
        return readAll(m_cli.dataPath(QStringLiteral("lws/%1.dat").arg(id)));
    }

    // The letter the volume's folder got, as the drive list shows it.
    QByteArray letter() const
    {
        for (const QString &line : m_cli.run({ QStringLiteral("drives") }).lines) {
            const QStringList fields = line.split(QLatin1Char('\t'));
            if (fields.size() == 4 && fields[2] == m_tree.root())
                return fields[0].toLatin1();
        }
        return "?:";
    }

    // The image of the volume, with or without the picture and the folders left empty.
    QByteArray expected(bool withPicture, bool withEmptyFolder) const
    {
        const QByteArray drive = letter();
        QByteArray lines;
        for (const QString &name : m_tree.listingOrder()) {
            if (name == QLatin1String("liesmich.txt"))
                lines += drive + "\\liesmich.txt|6|03.02.2001 04:05:06\r\n";
            else if (name == QLatin1String("Bilder") && withPicture)
                lines
                    += ">" + drive + "\\Bilder\r\n" + drive + "\\Bilder\\haus.jpg|2|03.02.2001 04:05:06\r\n";
            else if (name == QLatin1String("Bilder") && withEmptyFolder)
                lines += ">" + drive + "\\Bilder\r\n";
            else if (name == QLatin1String("Leer") && withEmptyFolder)
                lines += ">" + drive + "\\Leer\r\n";
        }
        return ">" + drive + "\r\n" + lines + "\r\n";
    }

    CliRunner m_cli;
    QTemporaryDir m_volume;
    TreeBuilder m_tree { m_volume.path() };
};

} // namespace

TEST_F(CaptureCommandsTest, PrintsTheImageIdAloneAndWritesTheImage)
{
    const struct
    {
        const char *name;
        QStringList options;
        bool withPicture;
        bool withEmptyFolder;
    } cases[] = {
        { "pruned by default", {}, true, false },
        { "keep empty", { QStringLiteral("--keep-empty") }, true, true },
        { "text filter", { QStringLiteral("--filter"), QStringLiteral("*.txt") }, false, false },
        { "text filter, keep empty",
            { QStringLiteral("--filter"), QStringLiteral("*.txt"), QStringLiteral("--keep-empty") }, false,
            true },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const CliRun run = capture(c.options);
        ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
        ASSERT_EQ(run.lines.size(), 1);
        bool numeric = false;
        run.lines.first().toInt(&numeric);
        EXPECT_TRUE(numeric) << run.lines.first().toStdString();
        EXPECT_EQ(image(run.lines.first()), expected(c.withPicture, c.withEmptyFolder));
    }
}

TEST_F(CaptureCommandsTest, AFolderBecomesADriveAndItsLetterCapturesTheSameVolume)
{
    const CliRun byFolder = capture();
    ASSERT_EQ(byFolder.exitCode, 0) << byFolder.error.toStdString();
    const QString drive = QString::fromLatin1(letter());
    const CliRun drives = m_cli.run({ QStringLiteral("drives") });
    EXPECT_TRUE(drives.lines.contains(
        QStringLiteral("%1\t%2\t%3\t%4")
            .arg(drive, QFileInfo(m_tree.root()).fileName(), m_tree.root(), byFolder.lines.first())))
        << drives.lines.join(QLatin1Char('\n')).toStdString();
    const CliRun byLetter = m_cli.run({ QStringLiteral("capture"), drive });
    ASSERT_EQ(byLetter.exitCode, 0) << byLetter.error.toStdString();
    EXPECT_EQ(byLetter.lines, byFolder.lines);
}

TEST_F(CaptureCommandsTest, WithACdTheIdGoesIntoItsRow)
{
    ArchiveBuilder archive(m_cli.dataFolder(), QStringLiteral("Musik"));
    archive.cd(3, QStringLiteral("Drei")).cd(4, QStringLiteral("Vier"));
    const CliRun run = capture({ QStringLiteral("--cd"), QStringLiteral("3"), QStringLiteral("--archive"),
        QStringLiteral("Musik") });
    ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
    EXPECT_EQ(archive.store().selectByNumber(3).value.imageId, run.lines.first().toInt());
    EXPECT_EQ(archive.store().selectByNumber(4).value.imageId, 0);
}

TEST_F(CaptureCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    ArchiveBuilder(m_cli.dataFolder(), QStringLiteral("Musik")).cd(3, QStringLiteral("Drei"));
    const struct
    {
        const char *name;
        QStringList arguments;
        QString message;
        int exitCode;
    } cases[] = {
        { "bad filter",
            { QStringLiteral("capture"), m_tree.root(), QStringLiteral("--filter"), QStringLiteral("*.[") },
            QStringLiteral("Ungültiges Suchmuster: Eine eckige Klammer \"[\" wird nicht geschlossen."), 1 },
        { "missing folder", { QStringLiteral("capture"), m_cli.scratch(QStringLiteral("nix")) },
            QStringLiteral("Der Ordner \"%1\" existiert nicht.").arg(m_cli.scratch(QStringLiteral("nix"))),
            1 },
        { "unknown letter", { QStringLiteral("capture"), QStringLiteral("q:") },
            QStringLiteral("Das Laufwerk q: gibt es nicht."), 1 },
        { "missing cd",
            { QStringLiteral("capture"), m_tree.root(), QStringLiteral("--cd"), QStringLiteral("9"),
                QStringLiteral("--archive"), QStringLiteral("Musik") },
            QString(), 1 },
        { "cd not a number",
            { QStringLiteral("capture"), m_tree.root(), QStringLiteral("--cd"), QStringLiteral("drei"),
                QStringLiteral("--archive"), QStringLiteral("Musik") },
            QStringLiteral("Die CD-Nummer muss eine ganze Zahl sein."), 1 },
        { "no drive", { QStringLiteral("capture") }, QString(), 2 },
        { "unknown option", { QStringLiteral("capture"), m_tree.root(), QStringLiteral("--leer") }, QString(),
            2 },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const auto before = m_cli.snapshot();
        const CliRun run = m_cli.run(c.arguments);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_TRUE(run.lines.isEmpty());
        if (!c.message.isEmpty()) {
            EXPECT_EQ(run.error, c.message);
        }
        EXPECT_FALSE(run.error.isEmpty());
        EXPECT_TRUE(m_cli.snapshot() == before);
    }
}
