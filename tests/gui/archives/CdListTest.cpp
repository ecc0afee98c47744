#include "MainWindowRun.h"

using namespace Qt::StringLiterals;

TEST(CdList, AlphabeticalSortWidensTheGapAndNumericOrderRestoresIt)
{
    MainWindowRun m;
    Hauptfenster *main = m.show();
    m.select(7);
    main->sortListe_Click();
    // Binary order, capitals before small letters; the selection is lost, the display stays.
    EXPECT_EQ(std::tuple(m.entries().join(u'|'), m.run.session().listSorted, m.list()->currentRow(),
                  m.text("Text2")),
        std::tuple(u"7  Abc|12  Zebra|3  birne"_s, true, -1, u"Abc"_s));
    m.select(12);
    EXPECT_EQ(main->selectedCd(), 12) << "the number is found behind the wider gap";
    main->sortNummer_Click();
    EXPECT_EQ(std::pair(m.entries().first(), m.run.session().listSorted), std::pair(u"3 birne"_s, false));
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
    // List and count lose the CD; its title stays on display, without its comments.
    EXPECT_EQ(m.entries().join(u'|') + u'/' + m.text("Label9") + u'/' + m.entries("List1").join(u'|') + u'/'
            + m.text("Text2"),
        u"3 birne|12 Zebra/2//Abc"_s);
    EXPECT_EQ(m.archive->store().selectByNumber(7).error.kind, ArchiveError::Kind::NotFound);
    EXPECT_TRUE(QFile::exists(datapaths::imageFile(m.run.home(), 1001))) << "the image stays";
}

TEST(CdDetailView, ShowsTheHeadCommentsAndCounts)
{
    MainWindowRun m;
    m.archive->cd(30, u"Verloren"_s, u"Sta1|End1"_s, 4242);
    m.show();
    m.select(7);
    EXPECT_EQ(m.text("Text2") + u'|' + m.text("Label8") + u'|' + m.text("lblsn"), u"Abc|7|1001"_s);
    EXPECT_EQ(m.entries("List1"), (QStringList { u"eins"_s, u"zwei"_s }));
    // Nine file lines, the ZIP's closing row among them; five folder lines less the root.
    EXPECT_EQ(m.text("lblDateien") + u'|' + m.text("lblOrdner"), u"9|4"_s);

    // A missing image file acts as no image and leaves the counts of the CD before.
    m.select(30);
    EXPECT_EQ(m.text("Text2") + u'|' + m.text("lblsn") + u'|' + m.text("lblDateien"), u"Verloren|0|9"_s);
    m.showTab(2);
    EXPECT_EQ(m.run.prompts().messages(), QStringList { u"Kein CD Abbild vorhanden!"_s });
    EXPECT_EQ(m.paneShown(), u"fr_1"_s);

    m.select(3);
    EXPECT_EQ(m.text("lblDateien") + u'|' + m.text("lblOrdner"), u"Nicht Verfügbar!|Nicht Verfügbar!"_s);
}
