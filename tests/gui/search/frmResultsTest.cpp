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

    // The header and the rows, one line each, cells joined by "|".
    static QString rows(frmResults *window)
    {
        QString out;
        for (int r = -1; r < model(window)->rowCount(); ++r)
            for (int c = 0; c < model(window)->columnCount(); ++c)
                out += (r < 0 ? model(window)->headerData(c, Qt::Horizontal)
                              : model(window)->index(r, c).data())
                           .toString()
                    + (c + 1 < model(window)->columnCount() ? u'|' : u'\n');
        return out;
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
    EXPECT_EQ(rows(window),
        QStringLiteral(
            "CD-Name|Dateien|Größe|Datum\n2-Fotos|>e:||\n2-Fotos|>e:\\Bilder||\n"
            "2-Fotos|e:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\n2-Fotos|>e:\\Bilder\\alt.zip||\n"
            "2-Fotos|e:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\n"
            "2-Fotos|e:\\Bilder\\alt.zip\\||\n2-Fotos|e:\\wörter\\word.doc|10|05.05.2005\n"));
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
    // The bytes of the file are tested in the core; here the order of the hits.
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.endsWith("\r\n1-Backup 2003 d:\\Setup\\Word.exe * 9 Byte * Date:01.02.2003\r\n"
                               "2-Fotos e:\\w\xF6rter\\word.doc * 10 Byte * Date:05.05.2005\r\n"
                               "4-Spiele f:\\Spiele\\Word7.exe * 2048 Byte * Date:03.03.2003 03:03:03\r\n"))
        << bytes.data();

    save(window, std::nullopt);
    save(window, scratch(QStringLiteral("fehlt/treffer.txt")));
    ASSERT_EQ(shown().size(), 4u);
    EXPECT_TRUE(shown()[3].icon == Icon::Critical && shown()[3].text.startsWith(u"Laufzeitfehler"))
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
