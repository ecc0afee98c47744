#include "transfer/HtmlExport.h"

#include "TestPaths.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

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

// One table row: number, title, serial number, the comment items each with its break.
QByteArray row(const QByteArray &number, const QByteArray &title, const QByteArray &serial, const QByteArray &content)
{
    const QByteArray cell = "  <TD valign=_top>";
    return "<TR>" + cell + number + "</TD>\r\n" + cell + title + "</TD>\r\n" + cell + serial + "</TD>\r\n" + cell
        + content + "</TD>\r\n</TR>";
}

// One page written by hand from the rules: umlauts and quotes as entities, "&" and markup as
// they are, a NULL cell, an empty one, a title that starts like a comment.
TEST(HtmlExport, OnePageByteForByte)
{
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
        + row("1", "Gr&uuml;&szlig;e & &quot;&Ouml;l&quot; <b>", "4711", "Musik<BR>\r\nJazz<BR>\r\n<BR>\r\n")
        + row("2", "&nbsp;", "0", "") + row("3", "Titel<BR>\r\n<BR>\r\n", "0", "<BR>\r\n<BR>\r\n")
        + "</TABLE>\r\n<P><B>Anzahl der CDs: 3</B></P>\r\n</BODY>\r\n</HTML>\r\n";
    EXPECT_EQ(fileBytes(path), expected);
}

// Every page of 0, 1, 15, 16 and 31 CDs byte for byte: 15 CDs a page, the running count, the
// links as absolute paths, the separator behind "Zurück" on the last page; no empty last page.
TEST(HtmlExport, PagesByteForByte)
{
    for (const int count : { 0, 1, 15, 16, 31 }) {
        SCOPED_TRACE(count);
        QTemporaryDir dir;
        const QString base = dir.filePath(u"cds"_s);
        const htmlexport::Result result
            = htmlexport::writeHtmlPages(cds(count), base + u".html"_s, u"Silberbuch Datenexport"_s, 15);
        ASSERT_TRUE(result.ok());
        const int pages = count == 0 ? 1 : (count + 14) / 15;
        ASSERT_EQ(result.pages.size(), pages);
        const auto pageFile = [&](int page) {
            return (page == 1 ? base + u".html"_s : base + u"-%1.html"_s.arg(page)).toLatin1();
        };
        for (int page = 1; page <= pages; ++page) {
            SCOPED_TRACE(page);
            EXPECT_EQ(result.pages[page - 1], QString::fromLatin1(pageFile(page)));
            QByteArray expected = kHead;
            const int last = std::min(count, page * 15);
            for (int i = (page - 1) * 15 + 1; i <= last; ++i)
                expected += row(QByteArray::number(i), "CD " + QByteArray::number(i), "0", "<BR>\r\n<BR>\r\n");
            expected += "</TABLE>\r\n<P><B>Anzahl der CDs: " + QByteArray::number(last) + "</B></P>\r\n";
            if (pages > 1) {
                expected += "<HR SIZE=1>\r\n<P>";
                if (page > 1)
                    expected += "<A HREF=\"" + pageFile(page - 1) + "\">Zur\xFC" "ck</A>  |  ";
                if (page < pages)
                    expected += "<A HREF=\"" + pageFile(page + 1) + "\">Weiter</A>";
                expected += "</P>\r\n";
            }
            expected += "</BODY>\r\n</HTML>\r\n";
            EXPECT_EQ(fileBytes(result.pages[page - 1]), expected);
        }
    }
}

TEST(HtmlExport, NamesWithoutADotOrFolderAreRefused)
{
    QTemporaryDir dir;
    for (const QString &name : { u"ohnepunkt"_s, u"fehlt/cds.html"_s }) {
        const htmlexport::Result result = htmlexport::writeHtmlPages(cds(1), dir.filePath(name), u"t"_s, 15);
        EXPECT_EQ(std::tuple(result.ok(), result.pages, QDir(dir.path()).isEmpty()), std::tuple(false, QStringList(), true));
    }
}

} // namespace
