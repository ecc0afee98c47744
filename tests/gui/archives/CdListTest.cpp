#include "MainWindowRun.h"

using namespace Qt::StringLiterals;

TEST(CdList, AlphabeticalSortWidensTheGapAndNumericOrderRestoresIt)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7);
    main->sortListe_Click();
    // Binary order: capitals before small letters.
    EXPECT_EQ(m.entries(), (QStringList { u"7  Abc"_s, u"12  Zebra"_s, u"3  birne"_s }));
    EXPECT_TRUE(m.run.session().listSorted);
    EXPECT_EQ(m.list()->currentRow(), -1) << "the selection is lost";
    EXPECT_EQ(m.text("Text2"), u"Abc"_s) << "the display stays";
    m.select(12);
    EXPECT_EQ(main->selectedCd(), 12) << "the number is found behind the wider gap";
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
    m.run.prompts().answerMessage(Prompts::Answer::Yes);
    main->mnudeleteCD_Click();
    EXPECT_EQ(m.list()->count(), 3) << "No keeps it";
    main->mnudeleteCD_Click();
    EXPECT_EQ(m.run.prompts().messages(),
        (QStringList { u"Wollen Sie die CD (Nummer: 7) wirklich löschen?"_s,
            u"Wollen Sie die CD (Nummer: 7) wirklich löschen?"_s, u"CD wurde aus dem Archiv entfernt!"_s }));
    EXPECT_EQ(m.entries(), (QStringList { u"3 birne"_s, u"12 Zebra"_s }));
    EXPECT_EQ(m.text("Label9"), u"2"_s);
    EXPECT_TRUE(m.entries("List1").isEmpty());
    EXPECT_EQ(m.text("Text2"), u"Abc"_s) << "the deleted CD stays on display";
    EXPECT_EQ(m.archive->store().selectByNumber(7).error.kind, ArchiveError::Kind::NotFound);
    EXPECT_TRUE(QFile::exists(datapaths::imageFile(m.run.home(), 1001))) << "the image stays";
}
