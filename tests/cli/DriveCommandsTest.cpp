#include "CliRunner.h"

namespace {

using namespace Qt::StringLiterals;

// Each line: letter, name, folder, image ID. The root is drive c:; an added folder is listed
// from then on, and its letter is taken.
TEST(DriveCommands, ListTheRootAndAddedFoldersAndRefuseBadOnes)
{
    const CliRunner cli;
    const QStringList root = cli.run({ u"drives"_s }).lines.value(0).split(u'\t');
    ASSERT_EQ(root.size(), 4);
    EXPECT_EQ(root[0] + root[2], u"c:/"_s);
    EXPECT_NE(root[3].toInt(), 0);

    const QString musik = cli.scratch(u"Musik"_s), missing = cli.scratch(u"fehlt"_s);
    QDir().mkpath(musik);
    const CliRun added = cli.run({ u"drives"_s, u"add"_s, u"Y"_s, musik });
    const QStringList fields = added.lines.value(0).split(u'\t');
    ASSERT_EQ(fields.size(), 4) << added.error.toStdString();
    EXPECT_EQ(fields.mid(0, 3), (QStringList { u"y:"_s, u"Musik"_s, musik }));
    EXPECT_NE(fields[3].toInt(), 0);
    EXPECT_TRUE(cli.run({ u"drives"_s }).lines.contains(added.lines.value(0)));

    cli.expectRefused({ { { u"drives"_s, u"add"_s, u"7"_s, musik }, 1,
                            u"„7“ ist kein gültiger Laufwerksbuchstabe. Erlaubt sind a: bis z:."_s },
        { { u"drives"_s, u"add"_s, u"y"_s, cli.dataFolder() }, 1,
            u"Der Laufwerksbuchstabe y: ist bereits vergeben (%1)."_s.arg(musik) },
        { { u"drives"_s, u"add"_s, u"x"_s, missing }, 1, u"Der Ordner „%1“ existiert nicht."_s.arg(missing) },
        { args({ "drives", "zeigen" }), 2, u"Aufruf: silberbuch-cli drives"_s },
        { args({ "drives", "remove", "c" }), 1,
            u"Das Laufwerk c: ist kein hinzugefügter Ordner und kann nicht entfernt werden."_s } });

    // An added folder goes again, and with it its letter.
    const CliRun removed = cli.run(args({ "drives", "remove", "Y" }));
    EXPECT_EQ(std::pair(removed.exitCode, removed.error), std::pair(0, QString()));
    EXPECT_FALSE(cli.run({ u"drives"_s }).lines.contains(added.lines.value(0)));
}

} // namespace
