#include "SearchFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>

SearchFixture::SearchFixture()
{
    m_run.archive(QStringLiteral("Sammlung"))
        ->cd(1, QStringLiteral("Backup 2003"), QStringLiteral("Sta1|Steuer 2003|Word|End1"), 1001)
        .cd(2, QStringLiteral("Fotos"), QStringLiteral("Sta1|Urlaub Ägypten|End1"), 1002)
        .cd(3, QStringLiteral("Ohne Abbild"), QStringLiteral("Sta1|word Handbuch|End1"), 0)
        .cd(4, QStringLiteral("Spiele"), QStringLiteral("Sta1|Spiele|End1"), -1408263712)
        .cd(5, QStringLiteral("Verloren"), QStringLiteral("Sta1|End1"), 1005);
    m_run.image(1001,
        ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Setup\r\n"
        "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\nd:\\Setup\\Word.exe|9|01.02.2003\r\n\r\n");
    m_run.image(1002,
        ">e:\r\n>e:\\Bilder\r\ne:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n>e:\\Bilder\\alt.zip\r\n"
        "e:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\ne:\\Bilder\\alt.zip\\||\r\n"
        "e:\\w\xF6rter\\word.doc|10|05.05.2005\r\n\r\n");
    m_run.image(-1408263712, ">f:\r\n>f:\\Spiele\r\nf:\\Spiele\\Word7.exe|2048|03.03.2003 03:03:03\r\n\r\n");
    m_run.openArchive(QStringLiteral("Sammlung"));
    m_main = m_run.program().show<Hauptfenster>();
    settle();
    m_list = control<QListWidget>(m_main, "List2");
}

void SearchFixture::selectCd(int number)
{
    const QList<QListWidgetItem *> found
        = m_list->findItems(QString::number(number) + QLatin1Char(' '), Qt::MatchStartsWith);
    ASSERT_EQ(found.size(), 1) << "CD " << number;
    m_list->setCurrentItem(found.first());
}

bool SearchFixture::search(const QString &word, Where where, What what, bool explicitMatch)
{
    control<QAction>(m_main, "mnusearch2")->trigger();
    frmsearch *dialog = window<frmsearch>();
    control<QRadioButton>(dialog, where == OneCd ? "Option1" : "Option2")->setChecked(true);
    control<QRadioButton>(dialog, what == Files ? "Option3" : "Option4")->setChecked(true);
    control<QCheckBox>(dialog, "Check1")->setChecked(explicitMatch);
    control<QLineEdit>(dialog, "Text1")->setText(word);
    QSignalSpy finished(dialog, &frmsearch::searchFinished);
    auto *command1 = control<QPushButton>(dialog, "Command1");
    command1->click();
    // A search that runs keeps the button disabled until it ends.
    const bool ended = !finished.isEmpty() || command1->isEnabled() || finished.wait(20000);
    settle();
    return ended;
}

void SearchFixture::expectOneMessage(const QString &text, Icon icon)
{
    ASSERT_EQ(shown().size(), 1u) << text.toStdString();
    EXPECT_EQ(shown()[0].text, text);
    EXPECT_EQ(shown()[0].icon, icon);
}
