#include "MainWindowRun.h"
#include "QStringPrinting.h"

#include <QImage>
#include <QPixmap>

using namespace Qt::StringLiterals;

TEST(CdDetailView, ShowsTheHeadCommentsAndCounts)
{
    MainWindowRun m;
    m.archive->cd(30, u"Verloren"_s, u"Sta1|End1"_s, 4242);
    m.archive->cd(0, u"Null"_s);
    m.show();
    m.select(7);
    EXPECT_EQ(m.text("Text2"), u"Abc"_s);
    EXPECT_EQ(m.text("Label8"), u"7"_s);
    EXPECT_EQ(m.text("lblsn"), u"1001"_s);
    EXPECT_EQ(m.entries("List1"), (QStringList { u"eins"_s, u"zwei"_s }));
    // Nine file lines, the ZIP's closing row among them; five folder lines less the root.
    EXPECT_EQ(m.text("lblDateien"), u"9"_s);
    EXPECT_EQ(m.text("lblOrdner"), u"4"_s);

    // A missing image file acts as no image and leaves the counts of the CD before.
    m.select(30);
    EXPECT_EQ(m.text("Text2"), u"Verloren"_s);
    EXPECT_EQ(m.text("lblsn"), u"0"_s);
    EXPECT_EQ(m.text("lblDateien"), u"9"_s);
    m.showTab(2);
    EXPECT_EQ(m.run.prompts().messages(), QStringList { u"Kein CD Abbild vorhanden!"_s });
    EXPECT_EQ(m.paneShown(), u"fr_1"_s);

    m.select(3);
    EXPECT_EQ(m.text("lblDateien"), u"Nicht Verfügbar!"_s);
    EXPECT_EQ(m.text("lblOrdner"), u"Nicht Verfügbar!"_s);

    m.select(7);
    m.select(0);
    EXPECT_EQ(m.text("Text2"), u"Abc"_s) << "number 0 changes nothing but the emptied comments";
    EXPECT_TRUE(m.entries("List1").isEmpty());
}

TEST(CdDetailView, CoverOrPlaceholderOrThePictureBefore)
{
    MainWindowRun m;
    m.archive->cd(40, u"mit Cover"_s, u"Sta1|End1"_s, 0, u"5"_s);
    m.archive->cd(41, u"Cover fehlt"_s, u"Sta1|End1"_s, 0, u"6"_s);
    m.archive->cd(50, u"kaputt"_s, u"Sta1|End1"_s, 0, u"abc"_s);
    const auto writeCover = [&m](const QString &name, const QColor &colour) {
        QDir().mkpath(m.run.home() + u"/Covers"_s);
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(colour);
        ASSERT_TRUE(picture.save(m.run.home() + u"/Covers/"_s + name, "BMP"));
    };
    const auto cover = [&m] {
        const QPixmap shown = m.control<QLabel>("Picture2")->pixmap();
        return shown.isNull() ? 0u : shown.toImage().pixel(1, 1);
    };
    writeCover(u"5.bmp"_s, Qt::blue);
    m.show();

    m.select(40);
    EXPECT_EQ(cover(), qRgb(0, 0, 255));
    m.select(41);
    EXPECT_EQ(cover(), qRgb(0, 0, 255)) << "no file and no placeholder: the picture before stays";
    m.select(3);
    EXPECT_EQ(cover(), 0u) << "no cover and no placeholder: empty";

    writeCover(u"nopic.bmp"_s, Qt::green);
    m.select(41);
    EXPECT_EQ(cover(), qRgb(0, 255, 0));
    m.select(40);
    m.select(12);
    EXPECT_EQ(cover(), qRgb(0, 255, 0)) << "no cover: the placeholder";

    m.select(50);
    ASSERT_EQ(m.run.prompts().shown().size(), 1u) << "a cover that is no number";
    EXPECT_EQ(m.run.prompts().shown()[0].icon, Prompts::Icon::Critical);
    EXPECT_EQ(m.text("Text2"), u"kaputt"_s);
}
