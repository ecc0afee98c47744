#include "Screenshot.h"
#include "SearchFixture.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTest>
#include <QTreeView>

namespace {

class frmResultsTest : public SearchFixture
{
protected:
    // The list of a file search over all CDs.
    frmResults *searchAll(const QString &word)
    {
        EXPECT_TRUE(search(word, AllCds, Files));
        frmResults *window = this->window<frmResults>();
        if (window)
            window->resize(700, 400);
        return window;
    }

    static QAbstractItemModel *model(frmResults *window)
    {
        return control<QTreeView>(window, "ListView1")->model();
    }

    // The texts of a row, joined by "|"; row -1 is the header.
    static QString row(frmResults *window, int row)
    {
        QStringList out;
        for (int c = 0; c < model(window)->columnCount(); ++c)
            out << (row < 0 ? model(window)->headerData(c, Qt::Horizontal)
                            : model(window)->index(row, c).data())
                       .toString();
        return out.join(u'|');
    }

    static void clickHeader(frmResults *window, int section)
    {
        QHeaderView *header = control<QTreeView>(window, "ListView1")->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
            QPoint(header->sectionViewportPosition(section) + 5, header->height() / 2));
    }

    // Clicks "Ergebnisliste in Datei speichern" with `chosen` answered in the file dialog.
    void save(frmResults *window, const std::optional<QString> &chosen)
    {
        m_run.prompts().answerFile(chosen ? std::optional(Prompts::FileAnswer { *chosen, 0 }) : std::nullopt);
        control<QPushButton>(window, "Command1")->click();
    }

    // A path in a folder of the test's own, outside the data folder.
    QString scratch(const QString &name) const
    {
        const QString folder = QDir::cleanPath(m_run.home() + QStringLiteral("/../ablage"));
        QDir().mkpath(folder);
        return folder + QLatin1Char('/') + name;
    }
};

TEST_F(frmResultsTest, FileAndFolderHitsFillTheirColumns)
{
    frmResults *window = searchAll(QStringLiteral("e:"));
    ASSERT_NE(window, nullptr);
    QAbstractItemModelTester tester(model(window), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(control<QLabel>(window, "Label1")->text(), QStringLiteral("Ergebnis der Suche nach e:"));
    const QStringList expected {
        QStringLiteral("CD-Name|Dateien|Größe|Datum"),
        QStringLiteral("2-Fotos|>e:||"),
        QStringLiteral("2-Fotos|>e:\\Bilder||"),
        QStringLiteral("2-Fotos|e:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44"),
        QStringLiteral("2-Fotos|>e:\\Bilder\\alt.zip||"),
        QStringLiteral("2-Fotos|e:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001"),
        QStringLiteral("2-Fotos|e:\\Bilder\\alt.zip\\||"),
        QStringLiteral("2-Fotos|e:\\wörter\\word.doc|10|05.05.2005"),
    };
    ASSERT_EQ(model(window)->rowCount() + 1, expected.size());
    for (int r = -1; r + 1 < expected.size(); ++r)
        EXPECT_EQ(row(window, r), expected[r + 1]);
    clickHeader(window, 0); // the tester watches the sort, too
}

// The file holds the hits in the order of the search, whatever the list's order; a name
// without extension gets ".txt"; a cancel writes nothing; a file that cannot be written is
// reported.
TEST_F(frmResultsTest, SavedFileHoldsTheHitsInSearchOrder)
{
    frmResults *window = searchAll(QStringLiteral("word"));
    ASSERT_NE(window, nullptr);
    clickHeader(window, 2);
    save(window, scratch(QStringLiteral("treffer")));
    QFile file(scratch(QStringLiteral("treffer.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    ASSERT_EQ(lines.size(), 6); // head, rule, three hits, nothing behind the last CR LF
    EXPECT_TRUE(lines[0].startsWith("Suchergebnisse f\xFCr die Suche nach word Stand: "))
        << lines[0].toStdString();
    EXPECT_EQ(lines[1], "======================\r");
    EXPECT_EQ(lines[2], "1-Backup 2003 d:\\Setup\\Word.exe * 9 Byte * Date:01.02.2003\r");
    EXPECT_EQ(lines[3], "2-Fotos e:\\w\xF6rter\\word.doc * 10 Byte * Date:05.05.2005\r");
    EXPECT_EQ(lines[4], "4-Spiele f:\\Spiele\\Word7.exe * 2048 Byte * Date:03.03.2003 03:03:03\r");
    EXPECT_EQ(lines[5], "");

    save(window, std::nullopt);
    save(window, scratch(QStringLiteral("fehlt/treffer.txt")));
    ASSERT_EQ(shown().size(), 4u);
    EXPECT_EQ(shown()[3].icon, Icon::Critical);
    EXPECT_TRUE(shown()[3].text.startsWith(QStringLiteral("Laufzeitfehler")))
        << shown()[3].text.toStdString();
    EXPECT_EQ(QDir(scratch({})).entryList(QDir::Files), QStringList { QStringLiteral("treffer.txt") });
}

// A picture of the list of a search over all CDs, for a person to look at: written to
// $SILBERBUCH_SCREENSHOTS/frmResults.png when that variable is set.
TEST_F(frmResultsTest, Screenshot)
{
    if (qEnvironmentVariableIsEmpty("SILBERBUCH_SCREENSHOTS"))
        GTEST_SKIP() << "SILBERBUCH_SCREENSHOTS not set";
    frmResults *window = searchAll(QStringLiteral("e"));
    ASSERT_NE(window, nullptr);
    window->resize(720, 420);
    window->getResults(session().lastResults, QStringLiteral("e")); // columns fitted to the new width
    QTest::qWait(50);
    screenshot(window, QStringLiteral("frmResults"));
}

} // namespace
