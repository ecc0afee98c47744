#include "MainWindowRun.h"

using namespace Qt::StringLiterals;

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
