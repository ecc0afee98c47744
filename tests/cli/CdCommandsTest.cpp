#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "app/Settings.h"

#include <QImage>

namespace {

using namespace Qt::StringLiterals;

// An archive "Musik" that is the default, in the runner's data folder.
class CdCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override { Settings(m_cli.settingsFile()).setValue(SettingKey::Standard, u"Musik"_s); }

    CliRun cd(const QStringList &words) const { return m_cli.run(QStringList { u"cd"_s } + words); }
    CdRow row(int32_t number) const { return m_archive.store().selectByNumber(number).value; }
    QString picture(const QString &name, QSize size) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkBlue);
        EXPECT_TRUE(image.save(m_cli.scratch(name)));
        return m_cli.scratch(name);
    }

    CliRunner m_cli;
    ArchiveBuilder m_archive { m_cli.dataFolder(), u"Musik"_s };
};

TEST_F(CdCommandsTest, ListShowsTheArchiveInNumberOrderOrByTitle)
{
    m_archive.cd(12, u"apfel"_s).cd(3, u"Birne"_s).cd(7, u"Äpfel"_s);
    EXPECT_EQ(cd(args({ "list", "--alpha" })).lines, args({ "3  Birne", "12  apfel", "7  Äpfel" }));
    m_archive.cd(40000, u"Zu groß"_s);
    const CliRun listed = cd(args({ "list" }));
    EXPECT_EQ(listed.exitCode, 1);
    EXPECT_EQ(listed.lines, args({ "3 Birne", "7 Äpfel", "12 apfel" }));
    EXPECT_EQ(listed.error,
        u"Folgende CD-Nummern liegen außerhalb des Bereichs von -32768 bis 32767 und können in der Liste "
        u"nicht angezeigt werden: 40000"_s);
}

TEST_F(CdCommandsTest, AddStoresTheRowAsTheNewCdDialogDoes)
{
    const QStringList add = args({ "add", "--number", "007", "--title", "Urlaub 2003", "--comment", "Fotos",
        "--comment", "Videos", "--image", "-1234", "--cover" });
    EXPECT_EQ(cd(add + QStringList { picture(u"cover.png"_s, { 100, 50 }) }).lines,
        args({ "CD erfolgreich gespeichert!" }));
    const CdRow stored = row(7);
    EXPECT_EQ(
        stored, (CdRow { 7, u"Urlaub 2003"_s, -1234, u"Sta1|Fotos|Videos|End1"_s, false, stored.cover }));
    EXPECT_EQ(QImage(m_cli.dataPath(u"Covers/%1.bmp"_s.arg(stored.cover)), "BMP").size(), QSize(300, 150));
}

// The editor's rules are tested in the core; here what is not given stays and a renumbered CD moves.
TEST_F(CdCommandsTest, EditShowAndDelete)
{
    m_archive.row({ 4, u"Alt"_s, 99, u"Sta1|eins|zwei|End1"_s, true, u"0"_s });
    ASSERT_EQ(cd(args({ "edit", "4", "--title", "Neu" })).exitCode, 0);
    EXPECT_EQ(row(4), (CdRow { 4, u"Neu"_s, 99, u"Sta1|eins|zwei|End1"_s, false, u"0"_s }));
    ASSERT_EQ(cd(args({ "edit", "4", "--comment", "drei", "--number", "0010", "--image", "0" })).exitCode, 0);
    EXPECT_EQ(row(10), (CdRow { 10, u"Neu"_s, 0, u"Sta1|drei|End1"_s, false, u"0"_s }));
    EXPECT_FALSE(m_archive.store().selectByNumber(4).ok());

    m_archive.cd(3, u"Office"_s, u"Sta1|Word|Excel 2000|End1"_s, 777, u"15"_s);
    EXPECT_EQ(cd(args({ "show", "3" })).lines,
        args({ "Nummer: 3", "Titel: Office", "Abbild-ID: 777", "Kommentar: Word", "Kommentar: Excel 2000",
            "Cover: 15" }));
    EXPECT_EQ(cd(args({ "delete", "3" })).lines, args({ "CD wurde aus dem Archiv entfernt!" }));
    EXPECT_FALSE(m_archive.store().selectByNumber(3).ok());
}

TEST_F(CdCommandsTest, RefusedCallsSayWhyAndChangeNothing)
{
    // The number rules are the core's; here the refusals the command line makes itself.
    m_archive.cd(5, u"Fünf"_s).cd(6, u"Sechs"_s);
    // A later --title or --cover wins, so the good values come first.
    const QStringList add = args({ "cd", "add", "--title", "Neu", "--comment", "k", "--cover" })
        + QStringList { picture(u"gut.bmp"_s, { 20, 20 }) };
    m_cli.expectRefused(
        { { add + args({ "--number", "7", "--image", "12x" }), 1,
                u"Die Abbild-ID muss eine ganze Zahl von -2147483648 bis 2147483647 sein."_s },
            { add + args({ "--number", "7", "--cover", "/nirgends/bild.bmp" }), 1, u"Ungültiges Bild!"_s },
            { args({ "cd", "edit", "9", "--title", "x" }), 1,
                u"Die CD (Nummer: 9) wurde im Archiv nicht gefunden."_s },
            { args({ "cd", "delete", "-1" }), 1, u"Keine CD ausgewählt!"_s },
            { args({ "--archive", "Bücher", "cd", "list" }), 1,
                u"Archiv nicht gefunden! Bitte wählen Sie ein anderes aus."_s },
            { args({ "cd", "edit", "eins" }), 2, u"Aufruf: silberbuch-cli cd"_s } });

    Settings(m_cli.settingsFile()).setValue(SettingKey::Standard, QString());
    m_cli.expectRefused({ { args({ "cd", "list" }), 1,
        u"Es ist kein Standardarchiv festgelegt. Bitte geben Sie das Archiv mit --archive NAME an."_s } });
}

} // namespace
