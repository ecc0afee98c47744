#include "CliRunner.h"

namespace {

using namespace Qt::StringLiterals;

// An image as a capture writes it, with a ZIP and the nameless line of an unreadable folder.
class ImageCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir().mkpath(m_cli.dataPath(u"lws"_s));
        QFile file(m_cli.dataPath(u"lws/-1408263712.dat"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(">d:\r\n"
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
                   "\r\n");
    }

    CliRunner m_cli;
};

TEST_F(ImageCommandsTest, ShowsTheFolderTreeOrTheFilesOfOneFolder)
{
    const CliRun tree = m_cli.run(args({ "image", "show", "-1408263712" }));
    ASSERT_EQ(tree.exitCode, 0) << tree.error.toStdString();
    EXPECT_EQ(
        tree.lines, args({ "d:", "  Bilder", "    alt.zip", "    Grüße", "  System Volume Information" }));

    const std::pair<const char *, QStringList> cases[] = {
        { "d:", args({ "liesmich.txt\t1834\t12.03.2003 09:41:07" }) },
        { "d:\\Bilder",
            args({ "haus.jpg\t482113\t28.07.2002 18:02:44", "garten.jpg\t501772\t28.07.2002 18:02:50" }) },
        { "d:/Bilder/Grüße", args({ "Ärger.txt\t3\t01.02.2003" }) },
        { "d:\\Bilder\\alt.zip", args({ "2001/haus.jpg\t120455\t04.11.2001", "\t\t" }) },
        { "d:\\System Volume Information", args({ "\t0\t01.01.1601" }) }
    };
    for (const auto &[folder, lines] : cases) {
        const CliRun run = m_cli.run(args({ "image", "show", "-1408263712", "--folder", folder }));
        EXPECT_EQ(run.exitCode, 0) << folder << run.error.toStdString();
        EXPECT_EQ(run.lines, lines) << folder;
    }
}

TEST_F(ImageCommandsTest, RefusedCallsSayWhy)
{
    m_cli.expectRefused(
        { { args({ "image", "show", "17" }), 1, u"Das Laufwerksabbild 17 existiert nicht."_s },
            { args({ "image", "show", "x1" }), 1,
                u"Die Abbild-ID muss eine ganze Zahl von -2147483648 bis 2147483647 sein."_s },
            { args({ "image", "show", "-1408263712", "--folder", "d:\\Musik" }), 1,
                u"Der Ordner \"d:\\Musik\" ist im Abbild -1408263712 nicht enthalten."_s },
            { args({ "image", "zeige", "1" }), 2, u"Aufruf: silberbuch-cli image"_s } });
}

} // namespace
