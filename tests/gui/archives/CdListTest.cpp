#include "MainWindowRun.h"
#include "QStringPrinting.h"

#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

TEST(CdList, AlphabeticalSortWidensTheGapAndNumericOrderRestoresIt)
{
    MainWindowRun m;
    m.archive->cd(5, u"apfel"_s);
    Hauptfenster *main = m.show();
    m.select(7);
    main->sortListe_Click();
    // Binary order: capitals before small letters.
    EXPECT_EQ(m.entries(), (QStringList { u"7  Abc"_s, u"12  Zebra"_s, u"5  apfel"_s, u"3  birne"_s }));
    EXPECT_TRUE(m.run.session().listSorted);
    EXPECT_EQ(m.list()->currentRow(), -1) << "the selection is lost";
    EXPECT_EQ(m.text("Text2"), u"Abc"_s) << "the display stays";
    m.select(12);
    EXPECT_EQ(main->selectedCd(), 12) << "the number is found behind the wider gap";
    main->sortListe_Click();
    EXPECT_EQ(m.entries().first(), u"7   Abc"_s);
    main->sortNummer_Click();
    EXPECT_EQ(m.entries().first(), u"3 birne"_s);
    EXPECT_FALSE(m.run.session().listSorted);
}

TEST(CdList, DeleteAsksRemovesTheEntryAndKeepsTheDisplay)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7);
    m.run.prompts().answerMessage(Prompts::Answer::No);
    main->mnudeleteCD_Click();
    EXPECT_EQ(m.list()->count(), 3);

    m.run.prompts().clear();
    m.run.prompts().answerMessage(Prompts::Answer::Yes);
    main->mnudeleteCD_Click();
    EXPECT_EQ(m.run.prompts().messages(),
        (QStringList {
            u"Wollen Sie die CD (Nummer: 7) wirklich löschen?"_s, u"CD wurde aus dem Archiv entfernt!"_s }));
    EXPECT_EQ(m.entries(), (QStringList { u"3 birne"_s, u"12 Zebra"_s }));
    EXPECT_EQ(m.text("Label9"), u"2"_s);
    EXPECT_EQ(m.list()->currentRow(), -1);
    EXPECT_TRUE(m.entries("List1").isEmpty());
    EXPECT_EQ(m.text("Text2"), u"Abc"_s) << "the deleted CD stays on display";
    EXPECT_EQ(m.archive->store().selectByNumber(7).error.kind, ArchiveError::Kind::NotFound);
    EXPECT_TRUE(QFile::exists(datapaths::imageFile(m.run.home(), 1001))) << "the image stays";
}

TEST(CdList, RowGoneMeanwhileIsReportedFromTheMenuOnly)
{
    for (const bool fromToolbar : { false, true }) {
        SCOPED_TRACE(fromToolbar ? "toolbar" : "menu");
        MainWindowRun m;
        Hauptfenster *main = m.show();
        m.select(12);
        ASSERT_TRUE(m.archive->store().deleteRow(12).ok());
        m.run.prompts().answerMessage(Prompts::Answer::Yes);
        if (fromToolbar)
            main->Toolbar1_ButtonClick(u"m"_s);
        else
            main->mnudeleteCD_Click();
        EXPECT_EQ(m.run.prompts().shown().size(), fromToolbar ? 1u : 2u);
        EXPECT_EQ(m.list()->count(), 3) << "the list stays";
    }
}

TEST(CdList, RefreshSelectsTheSameRowAgain)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7); // row 1
    m.archive->cd(4, u"Neu"_s);
    main->refresh_cdlist();
    EXPECT_EQ(m.list()->currentRow(), 1);
    EXPECT_EQ(m.text("Text2"), u"Neu"_s) << "the row, not the CD, and the display follows";
    EXPECT_EQ(m.text("Label9"), u"4"_s);
}

TEST(CdList, RightClickSelectsTheRowUnderThePointerOnly)
{
    MainWindowRun m;
    m.show();
    auto *menu = m.control<QMenu>("mCD");
    const QRect second = m.list()->visualItemRect(m.list()->item(1));
    QTest::mousePress(m.list()->viewport(), Qt::RightButton, {}, second.bottomLeft() + QPoint(3, 60));
    EXPECT_EQ(m.list()->currentRow(), -1);
    EXPECT_FALSE(menu->isVisible());

    QTest::mousePress(m.list()->viewport(), Qt::RightButton, {}, second.center());
    EXPECT_EQ(m.list()->currentRow(), 1);
    EXPECT_EQ(m.text("Text2"), u"Abc"_s);
    EXPECT_TRUE(menu->isVisible());
    menu->hide();
}
