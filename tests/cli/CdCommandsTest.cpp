#include "CliRunner.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "app/Settings.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {

// An archive "Musik" that is the default, in the runner's data folder.
class CdCommandsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_archive = std::make_unique<ArchiveBuilder>(m_cli.dataFolder(), QStringLiteral("Musik"));
        Settings(m_cli.settingsFile()).setValue(SettingKey::Standard, QStringLiteral("Musik"));
    }

    CliRun cd(const QStringList &words) const
    {
        return m_cli.run(QStringList { QStringLiteral("cd") } + words);
    }
    CdRow row(int32_t number) const { return m_archive->store().selectByNumber(number).value; }
    std::vector<CdRow> rows() const { return m_archive->store().selectAll().value; }
    QString picture(const QString &name, QSize size) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkBlue);
        const QString path = m_cli.scratch(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QStringList coverFiles() const
    {
        return QDir(m_cli.dataPath(QStringLiteral("Covers"))).entryList(QDir::Files, QDir::Name);
    }

    CliRunner m_cli;
    std::unique_ptr<ArchiveBuilder> m_archive;
};

TEST_F(CdCommandsTest, ListPrintsTheEntriesInNumberOrderOrByTitle)
{
    m_archive->cd(12, QStringLiteral("apfel")).cd(3, QStringLiteral("Birne")).cd(7, QStringLiteral("Äpfel"));
    EXPECT_EQ(cd(args({ "list" })).lines, args({ "3 Birne", "7 Äpfel", "12 apfel" }));
    const CliRun sorted = cd(args({ "list", "--alpha" }));
    EXPECT_EQ(sorted.exitCode, 0);
    EXPECT_EQ(sorted.lines, args({ "3  Birne", "12  apfel", "7  Äpfel" }));
}

TEST_F(CdCommandsTest, ArchiveOptionOverridesTheDefault)
{
    ArchiveBuilder(m_cli.dataFolder(), QStringLiteral("Filme")).cd(1, QStringLiteral("Film"));
    m_archive->cd(2, QStringLiteral("Lied"));
    EXPECT_EQ(m_cli.run(args({ "--archive", "Filme", "cd", "list" })).lines, args({ "1 Film" }));
    EXPECT_EQ(m_cli.run(args({ "cd", "list", "--archive", "Filme" })).lines, args({ "1 Film" }));
    EXPECT_EQ(cd(args({ "list" })).lines, args({ "2 Lied" }));
}

TEST_F(CdCommandsTest, NoArchiveToWorkOnIsRefused)
{
    const CliRun unknown = m_cli.run(args({ "--archive", "Bücher", "cd", "list" }));
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_EQ(unknown.error, QStringLiteral("Archiv nicht gefunden! Bitte wählen Sie ein anderes aus."));

    Settings(m_cli.settingsFile()).setValue(SettingKey::Standard, QString());
    const CliRun none = cd(args({ "list" }));
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_EQ(none.error,
        QStringLiteral("Es ist kein Standardarchiv festgelegt. Bitte geben Sie das Archiv mit "
                       "--archive NAME an."));
}

TEST_F(CdCommandsTest, ListNamesRowsItCannotShow)
{
    m_archive->cd(1, QStringLiteral("Eins")).cd(40000, QStringLiteral("Zu groß"));
    const CliRun listed = cd(args({ "list" }));
    EXPECT_EQ(listed.exitCode, 1);
    EXPECT_EQ(listed.lines, args({ "1 Eins" }));
    EXPECT_EQ(listed.error,
        QStringLiteral("Folgende CD-Nummern liegen außerhalb des Bereichs von -32768 bis 32767 und "
                       "können in der Liste nicht angezeigt werden: 40000"));
}

TEST_F(CdCommandsTest, AddStoresTheRowAsTheNewCdDialogDoes)
{
    const CliRun added = cd(args({ "add", "--number", "007", "--title", "Urlaub 2003", "--comment", "Fotos",
        "--comment", "Videos", "--image", "-1234" }));
    EXPECT_EQ(added.exitCode, 0) << added.error.toStdString();
    EXPECT_EQ(added.lines, args({ "CD erfolgreich gespeichert!" }));
    EXPECT_EQ(row(7),
        (CdRow { 7, QStringLiteral("Urlaub 2003"), -1234, QStringLiteral("Sta1|Fotos|Videos|End1"), false,
            QStringLiteral("0") }));

    ASSERT_EQ(cd(args({ "add", "--number", "8", "--title", "" })).exitCode, 0);
    EXPECT_EQ(row(8).comments, QStringLiteral("Sta1|End1"));
}

TEST_F(CdCommandsTest, AddWithCoverStoresTheFittedBitmap)
{
    const QString file = picture(QStringLiteral("cover.png"), { 100, 50 });
    const CliRun added
        = cd(args({ "add", "--number", "1", "--title", "Mit Bild", "--cover" }) + QStringList { file });
    ASSERT_EQ(added.exitCode, 0) << added.error.toStdString();
    const QString cover = row(1).cover;
    EXPECT_EQ(coverFiles(), QStringList { cover + QStringLiteral(".bmp") });
    const QImage stored(m_cli.dataPath(QStringLiteral("Covers/") + cover + QStringLiteral(".bmp")), "BMP");
    EXPECT_EQ(stored.size(), QSize(300, 150));
}

TEST_F(CdCommandsTest, RefusedAddsSayWhyAndChangeNothing)
{
    m_archive->cd(5, QStringLiteral("Fünf"));
    const QString text = m_cli.scratch(QStringLiteral("brief.jpg"));
    QFile letter(text);
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write("Kein Bild");
    letter.close();
    const QString taken
        = QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie eine "
                         "andere CD Nummer ein, da jede Nummer nur einmal vergeben werden darf!");
    struct Case
    {
        const char *name;
        QStringList extra;
        QString message;
    };
    const Case cases[] = {
        { "taken", args({ "--number", "5" }), taken },
        { "takenWithZeros", args({ "--number", "0005" }), taken },
        { "zero", args({ "--number", "0" }), taken },
        { "overLimit", args({ "--number", "32001" }),
            QStringLiteral(
                "Fehler: Es können maximal 32000 CDs archiviert werden. Bitte verwenden Sie eine CD Nummer "
                "die in diesem Bereich liegt.") },
        { "notANumber", args({ "--number", "zehn" }),
            QStringLiteral("Die CD Nummer darf nur die Ziffern 0 bis 9 enthalten.") },
        { "titleTooLong",
            args({ "--number", "6", "--title", "123456789012345678901234567890123456789012345678901" }),
            QStringLiteral("Der Titel ist zu lang: Er darf höchstens 50 Zeichen haben.") },
        { "badImage", args({ "--number", "6", "--image", "12x" }),
            QStringLiteral("Die Abbild-ID muss eine ganze Zahl von -2147483648 bis 2147483647 sein.") },
        { "noPicture", args({ "--number", "6", "--cover" }) + QStringList { text },
            QStringLiteral("Ungültiges Bild!") },
        { "missingPicture", args({ "--number", "6", "--cover", "/nirgends/bild.bmp" }),
            QStringLiteral("Ungültiges Bild!") },
    };
    const QString cover = picture(QStringLiteral("gut.bmp"), { 20, 20 });
    for (const Case &c : cases) {
        const auto before = m_cli.snapshot();
        // A later --title or --cover wins, so the good values come first.
        const CliRun refused = cd(
            args({ "add", "--title", "Neu", "--comment", "k", "--cover" }) + QStringList { cover } + c.extra);
        EXPECT_EQ(refused.exitCode, 1) << c.name;
        EXPECT_EQ(refused.error, c.message) << c.name;
        EXPECT_EQ(m_cli.snapshot(), before) << c.name;
    }
    EXPECT_TRUE(coverFiles().isEmpty());
}

TEST_F(CdCommandsTest, EditKeepsWhatIsNotGiven)
{
    m_archive->row(CdRow {
        4, QStringLiteral("Alt"), 99, QStringLiteral("Sta1|eins|zwei|End1"), true, QStringLiteral("0") });
    ASSERT_EQ(cd(args({ "edit", "4", "--title", "Neu" })).exitCode, 0);
    EXPECT_EQ(row(4),
        (CdRow { 4, QStringLiteral("Neu"), 99, QStringLiteral("Sta1|eins|zwei|End1"), false,
            QStringLiteral("0") }));

    ASSERT_EQ(cd(args({ "edit", "4", "--comment", "drei", "--number", "0010", "--image", "0" })).exitCode, 0);
    EXPECT_EQ(rows(),
        (std::vector<CdRow> { { 10, QStringLiteral("Neu"), 0, QStringLiteral("Sta1|drei|End1"), false,
            QStringLiteral("0") } }));
}

TEST_F(CdCommandsTest, EditWritesTheEditorsEncodingForNoComments)
{
    m_archive->cd(1, QStringLiteral("Leer"), QStringLiteral("Sta1|End1"));
    ASSERT_EQ(cd(args({ "edit", "1" })).exitCode, 0);
    EXPECT_EQ(row(1).comments, QStringLiteral("Sta1||End1"));
    EXPECT_EQ(cd(args({ "show", "1" })).lines,
        args({ "Nummer: 1", "Titel: Leer", "Abbild-ID: 0", "Kommentar: ", "Cover: 0" }));
}

TEST_F(CdCommandsTest, EditSavesTheCoverAnewEachTime)
{
    const QString file = picture(QStringLiteral("cover.png"), { 600, 300 });
    ASSERT_EQ(
        cd(args({ "add", "--number", "1", "--title", "x", "--cover" }) + QStringList { file }).exitCode, 0);
    const QString first = row(1).cover;
    ASSERT_EQ(cd(args({ "edit", "1", "--title", "y" })).exitCode, 0);
    const QString second = row(1).cover;
    EXPECT_NE(second, first);
    EXPECT_EQ(coverFiles().size(), 2);
    EXPECT_EQ(QImage(m_cli.dataPath(QStringLiteral("Covers/") + second + QStringLiteral(".bmp"))).size(),
        QSize(300, 150));
}

TEST_F(CdCommandsTest, EditKeepsTheNumberOfALostCover)
{
    m_archive->cd(1, QStringLiteral("x"), QStringLiteral("Sta1|End1"), 0, QStringLiteral("4711"));
    ASSERT_EQ(cd(args({ "edit", "1", "--title", "y" })).exitCode, 0);
    EXPECT_EQ(row(1).cover, QStringLiteral("4711"));
    EXPECT_TRUE(coverFiles().isEmpty());
}

TEST_F(CdCommandsTest, RefusedEditsSayWhyAndChangeNothing)
{
    m_archive->cd(1, QStringLiteral("Eins")).cd(2, QStringLiteral("Zwei"));
    struct Case
    {
        const char *name;
        QStringList arguments;
        QString message;
    };
    const Case cases[] = {
        { "takenNumber", args({ "edit", "1", "--number", "2" }),
            QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie eine "
                           "andere CD Nummer "
                           "ein, da jede Nummer nur einmal vergeben werden darf!") },
        { "missingRow", args({ "edit", "9", "--title", "x" }),
            QStringLiteral("Die CD (Nummer: 9) wurde im Archiv nicht gefunden.") },
        { "overLimit", args({ "edit", "1", "--number", "99999" }),
            QStringLiteral(
                "Fehler: Es können maximal 32000 CDs archiviert werden. Bitte verwenden Sie eine CD Nummer "
                "die in diesem Bereich liegt.") },
        { "noPicture", args({ "edit", "1", "--cover", "/nirgends.gif" }),
            QStringLiteral("Ungültiges Bild!") },
    };
    for (const Case &c : cases) {
        const auto before = m_cli.snapshot();
        const CliRun refused = cd(c.arguments);
        EXPECT_EQ(refused.exitCode, 1) << c.name;
        EXPECT_EQ(refused.error, c.message) << c.name;
        EXPECT_EQ(m_cli.snapshot(), before) << c.name;
    }
}

TEST_F(CdCommandsTest, ShowPrintsOneFieldALine)
{
    m_archive->cd(
        3, QStringLiteral("Office"), QStringLiteral("Sta1|Word|Excel 2000|End1"), 777, QStringLiteral("15"));
    const CliRun shown = cd(args({ "show", "3" }));
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_EQ(shown.lines,
        args({ "Nummer: 3", "Titel: Office", "Abbild-ID: 777", "Kommentar: Word", "Kommentar: Excel 2000",
            "Cover: 15" }));
    const CliRun missing = cd(args({ "show", "4" }));
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.error, QStringLiteral("Die CD (Nummer: 4) wurde im Archiv nicht gefunden."));
}

TEST_F(CdCommandsTest, DeleteRemovesTheRowAndReports)
{
    m_archive->cd(1, QStringLiteral("Eins")).cd(2, QStringLiteral("Zwei"));
    const CliRun deleted = cd(args({ "delete", "1" }));
    EXPECT_EQ(deleted.exitCode, 0);
    EXPECT_EQ(deleted.lines, args({ "CD wurde aus dem Archiv entfernt!" }));
    EXPECT_EQ(cd(args({ "list" })).lines, args({ "2 Zwei" }));

    for (const auto &[number, message] :
        { std::pair { "1", QStringLiteral("Die CD (Nummer: 1) wurde im Archiv nicht gefunden.") },
            std::pair { "-1", QStringLiteral("Keine CD ausgewählt!") } }) {
        const auto before = m_cli.snapshot();
        const CliRun refused = cd(args({ "delete", number }));
        EXPECT_EQ(refused.exitCode, 1) << number;
        EXPECT_EQ(refused.error, message) << number;
        EXPECT_EQ(m_cli.snapshot(), before) << number;
    }
}

TEST_F(CdCommandsTest, WrongWordsAreAUsageError)
{
    const QStringList calls[] = {
        args({}),
        args({ "brennen" }),
        args({ "list", "--beta" }),
        args({ "add", "--title", "x" }),
        args({ "add", "--number", "1" }),
        args({ "add", "--number", "1", "--title", "x", "--farbe", "rot" }),
        args({ "add", "--number", "1", "--title" }),
        args({ "add", "--number", "1", "--title", "x", "übrig" }),
        args({ "edit" }),
        args({ "edit", "eins" }),
        args({ "show" }),
        args({ "show", "1", "2" }),
        args({ "delete", "x" }),
    };
    for (const QStringList &words : calls) {
        const auto before = m_cli.snapshot();
        const CliRun wrong = cd(words);
        EXPECT_EQ(wrong.exitCode, 2) << words.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(wrong.error.startsWith(QStringLiteral("Aufruf: silberbuch-cli cd")));
        EXPECT_EQ(m_cli.snapshot(), before);
    }
}

} // namespace
