#include "CliRunner.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

// An image as a capture writes it, with a ZIP and the nameless line of an unreadable folder.
const char *const kImage = ">d:\r\n"
                           "d:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n"
                           ">d:\\Bilder\r\n"
                           "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n"
                           ">d:\\Bilder\\alt.zip\r\n"
                           "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\n"
                           "d:\\Bilder\\alt.zip\\||\r\n"
                           ">d:\\Bilder\\Gr\xFC\xDF"
                           "e\r\n"
                           "d:\\Bilder\\Gr\xFC\xDF"
                           "e\\\xC4rger.txt|3|01.02.2003\r\n"
                           ">d:\\System Volume Information\r\n"
                           "d:\\System Volume Information\\|0|01.01.1601\r\n"
                           "d:\\Bilder\\garten.jpg|501772|28.07.2002 18:02:50\r\n"
                           "\r\n";

class ImageCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir().mkpath(m_cli.dataPath(QStringLiteral("lws")));
        QFile file(m_cli.dataPath(QStringLiteral("lws/-1408263712.dat")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(kImage);
    }
    CliRun show(const QStringList &more) const
    {
        return m_cli.run(QStringList { QStringLiteral("image"), QStringLiteral("show") } + more);
    }

    CliRunner m_cli;
};

} // namespace

TEST_F(ImageCommandsTest, ShowsTheFolderTreeIndented)
{
    const CliRun run = show({ QStringLiteral("-1408263712") });
    ASSERT_EQ(run.exitCode, 0) << run.error.toStdString();
    EXPECT_EQ(run.lines,
        (QStringList { QStringLiteral("d:"), QStringLiteral("  Bilder"), QStringLiteral("    alt.zip"),
            QStringLiteral("    Grüße"), QStringLiteral("  System Volume Information") }));
}

TEST_F(ImageCommandsTest, ShowsTheFilesOfOneFolderTabSeparated)
{
    const struct
    {
        const char *folder;
        QStringList lines;
    } cases[] = {
        { "d:", { QStringLiteral("liesmich.txt\t1834\t12.03.2003 09:41:07") } },
        { "d:\\Bilder",
            { QStringLiteral("haus.jpg\t482113\t28.07.2002 18:02:44"),
                QStringLiteral("garten.jpg\t501772\t28.07.2002 18:02:50") } },
        { "d:/Bilder/Grüße", { QStringLiteral("Ärger.txt\t3\t01.02.2003") } },
        { "d:\\Bilder\\alt.zip",
            { QStringLiteral("2001/haus.jpg\t120455\t04.11.2001"), QStringLiteral("\t\t") } },
        { "d:\\System Volume Information", { QStringLiteral("\t0\t01.01.1601") } },
    };
    for (const auto &c : cases) {
        const CliRun run = show(
            { QStringLiteral("-1408263712"), QStringLiteral("--folder"), QString::fromUtf8(c.folder) });
        EXPECT_EQ(run.exitCode, 0) << c.folder << run.error.toStdString();
        EXPECT_EQ(run.lines, c.lines) << c.folder;
    }
}

TEST_F(ImageCommandsTest, RefusedCallsSayWhy)
{
    const struct
    {
        QStringList arguments;
        QString message;
        int exitCode;
    } cases[] = {
        { { QStringLiteral("image"), QStringLiteral("show"), QStringLiteral("17") },
            QStringLiteral("Das Laufwerksabbild 17 existiert nicht."), 1 },
        { { QStringLiteral("image"), QStringLiteral("show"), QStringLiteral("x1") },
            QStringLiteral("Die Abbild-ID muss eine ganze Zahl von -2147483648 bis 2147483647 sein."), 1 },
        { { QStringLiteral("image"), QStringLiteral("show"), QStringLiteral("-1408263712"),
              QStringLiteral("--folder"), QStringLiteral("d:\\Musik") },
            QStringLiteral("Der Ordner \"d:\\Musik\" ist im Abbild -1408263712 nicht enthalten."), 1 },
        { { QStringLiteral("image"), QStringLiteral("zeige"), QStringLiteral("1") }, QString(), 2 },
    };
    for (const auto &c : cases) {
        const CliRun run = m_cli.run(c.arguments);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(run.lines.isEmpty());
        if (!c.message.isEmpty()) {
            EXPECT_EQ(run.error, c.message);
        }
    }
}
