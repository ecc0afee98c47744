#include "DesktopRun.h"

#include "app/Hauptfenster.h"
#include "search/Form1.h"
#include "search/frmResults.h"
#include "search/frmsearch.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

namespace {

// The search as the desktop program runs it: the main window with its CD list and detail view
// over an archive of three CDs, two of them with an image.
class MainWindowSearchTest : public ::testing::Test
{
protected:
    MainWindowSearchTest()
    {
        auto archive = m_run.archive(QStringLiteral("Test"));
        archive->cd(7, QStringLiteral("Abc"), QStringLiteral("Sta1|eins|Handbuch|End1"), 1001);
        archive->cd(3, QStringLiteral("birne"), QStringLiteral("Sta1|handbuch birne|End1"), 1003);
        archive->cd(12, QStringLiteral("Zebra"), QStringLiteral("Sta1|Handbuch|End1"));
        m_run.image(1001, ">d:\r\n>d:\\Setup\r\nd:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\n\r\n");
        m_run.image(1003, ">e:\r\ne:\\start.bat|12|01.01.2003\r\n\r\n");
        m_run.openArchive(QStringLiteral("Test"));
        m_main = m_run.program().show<Hauptfenster>();
        m_run.settle();
        m_list = m_main->findChild<QListWidget *>(QStringLiteral("List2"));
    }

    void select(const QString &entry)
    {
        const QList<QListWidgetItem *> items = m_list->findItems(entry, Qt::MatchExactly);
        ASSERT_EQ(items.size(), 1) << entry.toStdString();
        m_list->setCurrentItem(items.first());
    }

    frmsearch *searchFromMenu()
    {
        m_main->findChild<QAction *>(QStringLiteral("mnusearch2"))->trigger();
        return m_run.form<frmsearch>();
    }

    void search(frmsearch *dialog, const QString &word, const char *where, const char *what)
    {
        dialog->findChild<QRadioButton *>(QLatin1String(where))->setChecked(true);
        dialog->findChild<QRadioButton *>(QLatin1String(what))->setChecked(true);
        dialog->findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(word);
        QSignalSpy finished(dialog, &frmsearch::searchFinished);
        dialog->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
        ASSERT_TRUE(finished.wait(20000));
        m_run.settle();
    }

    QString label8() const { return m_main->findChild<QLabel *>(QStringLiteral("Label8"))->text(); }

    DesktopRun m_run;
    Hauptfenster *m_main = nullptr;
    QListWidget *m_list = nullptr;
};

TEST_F(MainWindowSearchTest, MenuEntryTakesTheSelectedCdAsCurrent)
{
    select(QStringLiteral("7 Abc"));
    frmsearch *dialog = searchFromMenu();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(m_run.session().currentCd, 7);
    EXPECT_TRUE(dialog->findChild<QRadioButton *>(QStringLiteral("Option1"))->isEnabled());
}

TEST_F(MainWindowSearchTest, ToolbarKeyWithoutSelectionLeavesOnlyAllCds)
{
    m_main->Toolbar1_ButtonClick(QStringLiteral("d"));
    frmsearch *dialog = m_run.form<frmsearch>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(m_run.session().currentCd, -1);
    EXPECT_FALSE(dialog->findChild<QRadioButton *>(QStringLiteral("Option1"))->isEnabled());
    EXPECT_TRUE(dialog->findChild<QRadioButton *>(QStringLiteral("Option2"))->isChecked());
}

TEST_F(MainWindowSearchTest, FileSearchReadsTheCdOnDisplayOrTheWholeArchive)
{
    select(QStringLiteral("7 Abc"));
    frmsearch *dialog = searchFromMenu();
    search(dialog, QStringLiteral("start"), "Option1", "Option3");
    EXPECT_EQ(m_run.session().lastResults,
              std::vector<QString>{QStringLiteral("7-Abc<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31")});
    ASSERT_NE(m_run.form<frmResults>(), nullptr); // known to the program like every loaded window

    search(dialog, QStringLiteral("start"), "Option2", "Option3");
    EXPECT_EQ(m_run.session().lastResults,
              (std::vector<QString>{QStringLiteral("3-birne<e:\\start.bat|12|01.01.2003"),
                                    QStringLiteral("7-Abc<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31")}));
    EXPECT_TRUE(m_run.prompts().shown().empty());
}

TEST_F(MainWindowSearchTest, NavigatorShowsEachFoundCdInTheDetailView)
{
    frmsearch *dialog = searchFromMenu();
    search(dialog, QStringLiteral("HANDBUCH"), "Option2", "Option4");
    Form1 *navigator = m_run.form<Form1>();
    ASSERT_NE(navigator, nullptr);
    EXPECT_EQ(m_run.form<frmsearch>(), nullptr);
    EXPECT_EQ(label8(), QStringLiteral("3"));
    QPushButton *next = navigator->findChild<QPushButton *>(QStringLiteral("Command2"));
    next->click();
    EXPECT_EQ(label8(), QStringLiteral("7"));
    next->click();
    EXPECT_EQ(label8(), QStringLiteral("12"));
    EXPECT_EQ(navigator->findChild<QLabel *>(QStringLiteral("Label6"))->text(), QStringLiteral("3 / 3"));
    EXPECT_FALSE(next->isEnabled());

    navigator->findChild<QPushButton *>(QStringLiteral("Command3"))->click();
    m_run.settle();
    EXPECT_EQ(m_run.form<Form1>(), nullptr);
    EXPECT_NE(m_run.form<frmsearch>(), nullptr);
}

} // namespace
