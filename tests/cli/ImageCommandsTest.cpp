#include "CliRunner.h"

namespace {

using namespace Qt::StringLiterals;

// An image as a capture writes it (code page 1252), with a ZIP and its closing row.
TEST(ImageCommands, ShowsTheFolderTreeOrTheFilesOfOneFolder)
{
    const CliRunner cli;
    cli.write(u"lws/-1408263712.dat"_s,
        ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Bilder\r\n>d:\\Bilder\\alt.zip\r\n"
        "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\nd:\\Bilder\\alt.zip\\||\r\n"
        ">d:\\Bilder\\Gr\xFC\xDF"
        "e\r\nd:\\Bilder\\Gr\xFC\xDF"
        "e\\\xC4rger.txt|3|01.02.2003\r\nd:\\Bilder\\garten.jpg|501772|28.07.2002 18:02:50\r\n\r\n");
    EXPECT_EQ(cli.run(args({ "image", "show", "-1408263712" })).lines,
        args({ "d:", "  Bilder", "    alt.zip", "    Grüße" }));
    const std::pair<const char *, QStringList> cases[] = {
        { "d:\\Bilder", args({ "garten.jpg\t501772\t28.07.2002 18:02:50" }) },
        { "d:/Bilder/Grüße", args({ "Ärger.txt\t3\t01.02.2003" }) },
        { "d:\\Bilder\\alt.zip", args({ "2001/haus.jpg\t120455\t04.11.2001", "\t\t" }) },
    };
    for (const auto &[folder, lines] : cases)
        EXPECT_EQ(cli.run(args({ "image", "show", "-1408263712", "--folder", folder })).lines, lines)
            << folder;

    cli.expectRefused({ { args({ "image", "show", "17" }), 1, u"Das Laufwerksabbild 17 existiert nicht."_s },
        { args({ "image", "show", "-1408263712", "--folder", "d:\\Musik" }), 1,
            u"Der Ordner \"d:\\Musik\" ist im Abbild -1408263712 nicht enthalten."_s },
        { args({ "image", "zeige", "1" }), 2, u"Aufruf: silberbuch-cli image"_s } });
}

} // namespace
