#include "transfer/HtmlExport.h"

#include "services/ServiceRequest.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

std::vector<htmlexport::Row> cds(int count)
{
    std::vector<htmlexport::Row> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({ QString::number(i), u"CD %1"_s.arg(i), u"0"_s, u"Sta1|End1"_s });
    return rows;
}

const QByteArray kHead = "<HTML>\r\n<HEAD>\r\n<TITLE>Silberbuch Datenexport</TITLE>\r\n</HEAD>\r\n"
                         "<BODY TEXT=#000000 BGCOLOR=#FFFFFF>\r\n<FONT NAME=\"ARIAL\">\r\n<H3>Silberbuch 5.1</H3>\r\n"
                         "<font size=-1><a href=https://silberbuch.example.org/>https://silberbuch.example.org/</a></font>\r\n"
                         "<H3>Liste der CDs im Archiv</H3>\r\n"
                         "<TABLE WIDTH=100% CELLPADDING=0 CELLSPACING=2 BORDER=0>\r\n<TR BGCOLOR=#D7D7D7>\r\n"
                         "  <TH>Nr.\r\n</TH>\r\n  <TH>Name\r\n</TH>\r\n  <TH>Seriennummer\r\n</TH>\r\n  <TH>Inhalt\r\n</TH>\r\n</TR>\r\n";

// One page written by hand from the rules: umlauts and quotes as entities, "&" and markup as
// they are, a NULL cell, an empty one, a title that starts like a comment.
TEST(HtmlExport, OnePageByteForByte)
{
    ASSERT_EQ(service::vendorWebAddress(), u"https://silberbuch.example.org/"_s);
    QTemporaryDir dir;
    const QString path = dir.filePath(u"cds.html"_s);
    const std::vector<htmlexport::Row> rows = {
        { u"1"_s, u"Grüße & \"Öl\" <b>"_s, u"4711"_s, u"Sta1|Musik|Jazz|End1"_s },
        { u"2"_s, std::nullopt, u"0"_s, u""_s },
        { u"3"_s, u"Sta1|Titel|End1"_s, u"0"_s, u"Sta1|End1"_s },
    };
    const htmlexport::Result result = htmlexport::writeHtmlPages(rows, path, u"Silberbuch Datenexport"_s, 15);
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(result.pages, QStringList { path });
    const QByteArray expected = kHead
        + "<TR>  <TD valign=_top>1</TD>\r\n  <TD valign=_top>Gr&uuml;&szlig;e & &quot;&Ouml;l&quot; <b></TD>\r\n"
          "  <TD valign=_top>4711</TD>\r\n  <TD valign=_top>Musik<BR>\r\nJazz<BR>\r\n<BR>\r\n</TD>\r\n</TR>"
          "<TR>  <TD valign=_top>2</TD>\r\n  <TD valign=_top>&nbsp;</TD>\r\n  <TD valign=_top>0</TD>\r\n"
          "  <TD valign=_top></TD>\r\n</TR>"
          "<TR>  <TD valign=_top>3</TD>\r\n  <TD valign=_top>Titel<BR>\r\n<BR>\r\n</TD>\r\n  <TD valign=_top>0</TD>\r\n"
          "  <TD valign=_top><BR>\r\n<BR>\r\n</TD>\r\n</TR>"
          "</TABLE>\r\n<P><B>Anzahl der CDs: 3</B></P>\r\n</BODY>\r\n</HTML>\r\n";
    EXPECT_EQ(bytesOf(path), expected);
}

// Page breaks every 15 CDs, the running count, the links as absolute paths, the separator
// behind "Zurück" on the last page; no empty last page, no "Seite" line.
TEST(HtmlExport, PagesAndTheirFooters)
{
    struct Case
    {
        int cds;
        int pages;
        const char *lastFooter; // {base} stands for the chosen path without ".html"
    };
    const Case cases[] = {
        { 0, 1, "</TABLE>\r\n<P><B>Anzahl der CDs: 0</B></P>\r\n</BODY>" },
        { 1, 1, "</TABLE>\r\n<P><B>Anzahl der CDs: 1</B></P>\r\n</BODY>" },
        { 15, 1, "</TABLE>\r\n<P><B>Anzahl der CDs: 15</B></P>\r\n</BODY>" },
        { 16, 2, "</TABLE>\r\n<P><B>Anzahl der CDs: 16</B></P>\r\n<HR SIZE=1>\r\n<P><A HREF=\"{base}.html\">Zurück</A>  |  </P>\r\n</BODY>" },
        { 31, 3, "</TABLE>\r\n<P><B>Anzahl der CDs: 31</B></P>\r\n<HR SIZE=1>\r\n<P><A HREF=\"{base}-2.html\">Zurück</A>  |  </P>\r\n</BODY>" },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.cds);
        QTemporaryDir dir;
        const QString base = dir.filePath(u"cds"_s);
        const htmlexport::Result result = htmlexport::writeHtmlPages(cds(c.cds), base + u".html"_s, u"Silberbuch Datenexport"_s, 15);
        ASSERT_TRUE(result.ok());
        ASSERT_EQ(result.pages.size(), c.pages);
        const QByteArray last = bytesOf(result.pages.last());
        EXPECT_TRUE(last.contains(QString::fromUtf8(c.lastFooter).replace(u"{base}"_s, base).toLatin1())) << last.right(300).data();
        EXPECT_FALSE(last.contains("Seite"));
        if (c.cds == 31) {
            EXPECT_EQ(result.pages, QStringList({ base + u".html"_s, base + u"-2.html"_s, base + u"-3.html"_s }));
            EXPECT_TRUE(bytesOf(result.pages[0]).contains("Anzahl der CDs: 15</B></P>\r\n<HR SIZE=1>\r\n<P><A HREF=\"" + base.toLatin1() + "-2.html\">Weiter</A></P>"));
            EXPECT_TRUE(bytesOf(result.pages[1]).contains("Anzahl der CDs: 30</B></P>\r\n<HR SIZE=1>\r\n<P><A HREF=\"" + base.toLatin1()
                + ".html\">Zur\xFC" "ck</A>  |  <A HREF=\"" + base.toLatin1() + "-3.html\">Weiter</A></P>"));
        }
    }
}

TEST(HtmlExport, NamesWithoutADotOrFolderAreRefused)
{
    QTemporaryDir dir;
    EXPECT_FALSE(htmlexport::writeHtmlPages(cds(1), dir.filePath(u"ohnepunkt"_s), u"t"_s, 15).ok());
    const htmlexport::Result missing = htmlexport::writeHtmlPages(cds(1), dir.filePath(u"fehlt/cds.html"_s), u"t"_s, 15);
    EXPECT_FALSE(missing.ok());
    EXPECT_TRUE(missing.pages.isEmpty());
}

} // namespace
