#pragma once

#include "Control.h"
#include "DesktopRun.h"

#include "app/MainWindow.h"
#include "search/CommentHitNavigator.h"
#include "search/ResultsWindow.h"
#include "search/SearchDialog.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

// The desktop program over an archive of six CDs: four with images (one of them under a title
// with markup), one without, and one whose image file is gone. Every prompt is answered by the script and recorded.
class SearchFixture : public ::testing::Test
{
protected:
    using Icon = Prompts::Icon;
    enum Where { OneCd, AllCds };
    enum What { Files, Comments };

    SearchFixture()
    {
        m_run.archive(QStringLiteral("Sammlung"))
            ->cd(1, QStringLiteral("Backup 2003"), QStringLiteral("Sta1|Steuer 2003|Word|End1"), 1001)
            .cd(2, QStringLiteral("Fotos"), QStringLiteral("Sta1|Urlaub Ägypten|End1"), 1002)
            .cd(3, QStringLiteral("Ohne Abbild"), QStringLiteral("Sta1|word Handbuch|End1"), 0)
            .cd(4, QStringLiteral("Spiele"), QStringLiteral("Sta1|Spiele|End1"), -1408263712)
            .cd(5, QStringLiteral("Verloren"), QStringLiteral("Sta1|End1"), 1005)
            .cd(6, QStringLiteral("Treiber & Software <b>fett</b>"), QStringLiteral("Sta1|End1"), 1006);
        m_run.image(1001,
            ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Setup\r\n"
            "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\nd:\\Setup\\Word.exe|9|01.02.2003\r\n\r\n");
        m_run.image(1002,
            ">e:\r\n>e:\\Bilder\r\ne:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n"
            ">e:\\Bilder\\alt.zip\r\ne:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\n"
            "e:\\Bilder\\alt.zip\\||\r\ne:\\w\xF6rter\\word.doc|10|05.05.2005\r\n\r\n");
        m_run.image(
            -1408263712, ">f:\r\n>f:\\Spiele\r\nf:\\Spiele\\Word7.exe|2048|03.03.2003 03:03:03\r\n\r\n");
        m_run.image(1006, ">g:\r\ng:\\Treiber|alt\\setup.inf|77|06.06.2006\r\n\r\n");
        m_run.openArchive(QStringLiteral("Sammlung"));
        m_main = m_run.program().show<MainWindow>();
        settle();
        m_list = control<QListWidget>(m_main, "cdList");
    }

    // Opens the dialog from the menu, sets the options, types the word and presses "Suchen";
    // true once the search has ended or was refused before it began.
    bool search(const QString &word, Where where, What what, bool explicitMatch = false)
    {
        control<QAction>(m_main, "searchAction")->trigger();
        SearchDialog *dialog = window<SearchDialog>();
        control<QRadioButton>(dialog, where == OneCd ? "currentCdOption" : "allCdsOption")->setChecked(true);
        control<QRadioButton>(dialog, what == Files ? "filesOption" : "commentsOption")->setChecked(true);
        control<QCheckBox>(dialog, "explicitCheck")->setChecked(explicitMatch);
        control<QLineEdit>(dialog, "wordEdit")->setText(word);
        QSignalSpy finished(dialog, &SearchDialog::searchFinished);
        auto *searchButton = control<QPushButton>(dialog, "searchButton");
        searchButton->click();
        // A search that runs keeps the button disabled until it ends.
        const bool ended = !finished.isEmpty() || searchButton->isEnabled() || finished.wait(20000);
        settle();
        return ended;
    }

    // The one message shown so far, with its icon.
    void expectOneMessage(const QString &text, Icon icon)
    {
        ASSERT_EQ(shown().size(), 1u) << text.toStdString();
        EXPECT_EQ(std::pair(shown()[0].text, shown()[0].icon), std::pair(text, icon));
    }

    template <typename W> W *window() const { return m_run.form<W>(); }
    QString mainLabel(const char *name) const { return control<QLabel>(m_main, name)->text(); }
    const std::vector<PromptScript::Shown> &shown() { return m_run.prompts().shown(); }
    Session &session() { return m_run.session(); }
    void settle() { m_run.settle(); }

    DesktopRun m_run;
    MainWindow *m_main = nullptr;
    QListWidget *m_list = nullptr;
};
