#include "MainWindowRun.h"
#include "QStringPrinting.h"

#include <QMenu>
#include <QTest>

TEST(CdList, AlphabeticalSortWidensTheGapAndNumericOrderRestoresIt)
{
    MainWindowRun m;
    m.archive->cd(5, QStringLiteral("apfel"));
    m.archive->cd(9, QStringLiteral("Birne"));
    Hauptfenster *main = m.show();
    EXPECT_EQ(m.entries(),
        (QStringList { QStringLiteral("3 birne"), QStringLiteral("5 apfel"), QStringLiteral("7 Abc"),
            QStringLiteral("9 Birne"), QStringLiteral("12 Zebra") }));
    main->sortListe_Click();
    // Binary order: capitals before small letters.
    EXPECT_EQ(m.entries(),
        (QStringList { QStringLiteral("7  Abc"), QStringLiteral("9  Birne"), QStringLiteral("12  Zebra"),
            QStringLiteral("5  apfel"), QStringLiteral("3  birne") }));
    EXPECT_TRUE(m.run.session().listSorted);
    main->sortListe_Click();
    EXPECT_EQ(m.entries().first(), QStringLiteral("7   Abc"));
    main->sortNummer_Click();
    EXPECT_EQ(m.entries().first(), QStringLiteral("3 birne"));
    EXPECT_FALSE(m.run.session().listSorted);
    EXPECT_EQ(m.text("Label9"), QStringLiteral("5"));
}

TEST(CdList, SortingAnEmptyListLeavesItNumeric)
{
    DesktopRun run;
    run.archive(QStringLiteral("Leer"));
    run.openArchive(QStringLiteral("Leer"));
    Hauptfenster *main = run.program().show<Hauptfenster>();
    main->sortListe_Click();
    EXPECT_FALSE(run.session().listSorted);
    EXPECT_EQ(main->findChild<QLabel *>(QStringLiteral("Label9"))->text(), QStringLiteral("0"));
    main->close();
    run.settle();
    EXPECT_EQ(run.settings().value(SettingKey::Sort), QStringLiteral("0"));
}

TEST(CdList, SortKeepsTheDisplayAndFindsTheSameCdAfterwards)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7);
    main->sortListe_Click();
    EXPECT_EQ(m.list()->currentRow(), -1) << "the selection is lost";
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Abc")) << "the display stays";
    m.select(12);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Zebra"));
    EXPECT_EQ(main->selectedCd(), 12);
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
        (QStringList { QStringLiteral("Wollen Sie die CD (Nummer: 7) wirklich löschen?"),
            QStringLiteral("CD wurde aus dem Archiv entfernt!") }));
    EXPECT_EQ(m.run.prompts().shown()[1].icon, Prompts::Icon::Information);
    EXPECT_EQ(m.entries(), (QStringList { QStringLiteral("3 birne"), QStringLiteral("12 Zebra") }));
    EXPECT_EQ(m.text("Label9"), QStringLiteral("2"));
    EXPECT_EQ(m.list()->currentRow(), -1);
    EXPECT_TRUE(m.entries("List1").isEmpty());
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Abc")) << "the deleted CD stays on display";
    EXPECT_EQ(m.archive->store().selectByNumber(7).error.kind, ArchiveError::Kind::NotFound);
    EXPECT_TRUE(QFile::exists(m.run.home() + QStringLiteral("/lws/1001.dat"))) << "the image stays";
}

TEST(CdList, DeleteWithoutSelectionRefuses)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    main->Toolbar1_ButtonClick(QStringLiteral("m"));
    ASSERT_EQ(m.run.prompts().shown().size(), 1u);
    EXPECT_EQ(m.run.prompts().shown()[0].text, QStringLiteral("Keine CD ausgewählt!"));
    EXPECT_EQ(m.run.prompts().shown()[0].icon, Prompts::Icon::Critical);
    EXPECT_EQ(m.list()->count(), 3);
}

TEST(CdList, RowGoneMeanwhileIsReportedFromTheMenuOnly)
{
    for (const bool fromToolbar : { false, true }) {
        MainWindowRun m;
        Hauptfenster *main = m.show();
        m.select(12);
        ASSERT_TRUE(m.archive->store().deleteRow(12).ok());
        m.run.prompts().answerMessage(Prompts::Answer::Yes);
        if (fromToolbar)
            main->Toolbar1_ButtonClick(QStringLiteral("m"));
        else
            main->mnudeleteCD_Click();
        EXPECT_EQ(m.run.prompts().shown().size(), fromToolbar ? 1u : 2u) << fromToolbar;
        EXPECT_EQ(m.list()->count(), 3) << "the list stays";
    }
}

TEST(CdList, RefreshSelectsTheSameRowAgain)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7); // row 1
    m.archive->cd(4, QStringLiteral("Neu"));
    main->refresh_cdlist();
    EXPECT_EQ(m.list()->currentRow(), 1);
    // The row, not the CD: row 1 now holds CD 4, and the display follows.
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Neu"));
    EXPECT_EQ(m.text("Label9"), QStringLiteral("4"));
}

TEST(CdList, RightClickSelectsTheRowUnderThePointerOnly)
{
    MainWindowRun m;
    m.show();
    auto *menu = m.control<QMenu>("mCD");
    QWidget *viewport = m.list()->viewport();
    const QRect second = m.list()->visualItemRect(m.list()->item(1));

    QTest::mousePress(viewport, Qt::RightButton, {}, QPoint(second.left() + 3, second.bottom() + 60));
    EXPECT_EQ(m.list()->currentRow(), -1);
    EXPECT_FALSE(menu->isVisible());

    QTest::mousePress(viewport, Qt::RightButton, {}, second.center());
    EXPECT_EQ(m.list()->currentRow(), 1);
    EXPECT_EQ(m.text("Text2"), QStringLiteral("Abc"));
    EXPECT_TRUE(menu->isVisible());
    menu->hide();
}
