#include "HtmlExport.h"

#include "archives/ArchiveConnection.h"
#include "common/Cp1252.h"
#include "common/Temporaries.h"
#include "services/ServiceRequest.h"

#include <QDir>

#include <sqlite3.h>

namespace htmlexport {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

QString pageName(const QString &base, const QString &ext, int page)
{
    return page == 1 ? base + ext : base + QLatin1Char('-') + QString::number(page) + ext;
}

void openPage(QString &page, const QString &title, int pageNumber, int totalPages)
{
    const QString vendor = service::vendorWebAddress();
    page = QStringLiteral("<HTML>\r\n<HEAD>\r\n<TITLE>") + title + QStringLiteral("</TITLE>\r\n</HEAD>\r\n")
        + QStringLiteral("<BODY TEXT=#000000 BGCOLOR=#FFFFFF>\r\n<FONT NAME=\"ARIAL\">\r\n<H3>Silberbuch 5.1</H3>\r\n")
        + QStringLiteral("<font size=-1><a href=") + vendor + QLatin1Char('>') + vendor
        + QStringLiteral("</a></font>\r\n<H3>Liste der CDs im Archiv</H3>\r\n");
    if (totalPages > 1)
        page += QStringLiteral("<P><B>Seite ") + QString::number(pageNumber) + QStringLiteral(" von ")
            + QString::number(totalPages) + QStringLiteral("</B></P>\r\n");
}

void tableHead(QString &page)
{
    page += QStringLiteral("<TABLE WIDTH=100% CELLPADDING=0 CELLSPACING=2 BORDER=0>\r\n<TR BGCOLOR=#D7D7D7>\r\n");
    for (const char *heading : { "Nr.", "Name", "Seriennummer", "Inhalt" })
        page += QStringLiteral("  <TH>") + QString::fromLatin1(heading) + kCrLf + QStringLiteral("</TH>\r\n");
    page += QStringLiteral("</TR>\r\n");
}

void footer(QString &page, const QString &base, const QString &ext, int rowsDone, int pageNumber, int nextPage)
{
    page += QStringLiteral("</TABLE>\r\n<P><B>Anzahl der CDs: ") + QString::number(rowsDone) + QStringLiteral("</B></P>\r\n");
    if (pageNumber <= 1 && nextPage == 0)
        return;
    page += QStringLiteral("<HR SIZE=1>\r\n<P>");
    if (pageNumber > 1)
        page += QStringLiteral("<A HREF=\"") + pageName(base, ext, pageNumber - 1) + QStringLiteral("\">Zurück</A>  |  ");
    if (nextPage != 0)
        page += QStringLiteral("<A HREF=\"") + pageName(base, ext, nextPage) + QStringLiteral("\">Weiter</A>");
    page += QStringLiteral("</P>\r\n");
}

void row(QString &page, const Row &cells)
{
    page += QStringLiteral("<TR>");
    for (const std::optional<QString> &cell : cells) {
        page += QStringLiteral("  <TD valign=_top>");
        if (!cell) {
            page += QStringLiteral("&nbsp;");
        } else if (!cell->startsWith(QLatin1String("Sta1|"))) {
            page += htmlEscape(*cell);
        } else {
            // The comment without "Sta1|" and "End1": a "|" stays at its end.
            QString lines = cell->mid(5, cell->size() - 9);
            if (lines.isEmpty())
                lines = QStringLiteral("|");
            for (const QString &line : lines.split(QLatin1Char('|')))
                page += htmlEscape(line + QStringLiteral("<BR>")) + kCrLf;
        }
        page += QStringLiteral("</TD>\r\n");
    }
    page += QStringLiteral("</TR>");
}

} // namespace

QString htmlEscape(QString text)
{
    const std::pair<const char16_t *, const char *> entities[] = { { u"ä", "&auml;" }, { u"Ä", "&Auml;" },
        { u"ö", "&ouml;" }, { u"Ö", "&Ouml;" }, { u"ü", "&uuml;" }, { u"Ü", "&Uuml;" }, { u"ß", "&szlig;" },
        { u"\"", "&quot;" } };
    for (const auto &[character, entity] : entities)
        text.replace(QString::fromUtf16(character), QString::fromLatin1(entity));
    return text;
}

Result writeHtmlPages(const std::vector<Row> &rows, const QString &path, const QString &title, int pageSize)
{
    Result result;
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot < 0) {
        result.error = QStringLiteral("Der Dateiname \"") + QDir::toNativeSeparators(path)
            + QStringLiteral("\" hat keine Endung (wie .html): Die Seiten können nicht benannt werden.");
        return result;
    }
    const QString base = path.left(dot);
    const QString ext = path.mid(dot);
    // The page count the old engine reported before any move: 1 with rows, 0 without.
    const int totalPages = pageSize > 0 && !rows.empty() ? 1 : 0;
    int pageNumber = 1;
    int rowOnPage = 0;
    int rowsDone = 0;
    QString page;
    const auto writePage = [&]() {
        page += QStringLiteral("</BODY>\r\n</HTML>\r\n");
        const QString name = pageName(base, ext, pageNumber);
        const std::string bytes = cp1252::fromQString(page);
        if (!temporaries::replaceFile(name, QByteArray::fromStdString(bytes))) {
            result.error = QStringLiteral("Die Seite \"") + QDir::toNativeSeparators(name)
                + QStringLiteral("\" kann nicht geschrieben werden (Ordner fehlt, schreibgeschützt oder Datenträger voll).");
            return false;
        }
        result.pages << name;
        return true;
    };
    openPage(page, title, pageNumber, totalPages);
    tableHead(page);
    for (const Row &cells : rows) {
        ++rowOnPage;
        if (rowOnPage > pageSize && pageSize >= 1) {
            footer(page, base, ext, rowsDone, pageNumber, pageNumber + 1);
            if (!writePage())
                return result;
            rowOnPage = 1;
            ++pageNumber;
            openPage(page, title, pageNumber, totalPages);
            tableHead(page);
        }
        ++rowsDone;
        row(page, cells);
    }
    footer(page, base, ext, rowsDone, pageNumber, 0);
    writePage();
    return result;
}

Result exportArchiveToHtml(const QString &mdbPath, const QString &path)
{
    std::vector<Row> rows;
    ArchiveConnection connection(mdbPath, ArchiveConnection::Mode::Existing);
    const ArchiveError error = connection.run(
        QStringLiteral("SELECT cd_nummer, cd_name, cd_seriennummer, cd_inhalt FROM cds ORDER BY cd_nummer"), {},
        [&rows](sqlite3_stmt *statement) {
            Row cells;
            for (int column = 0; column < 4; ++column) {
                if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
                    cells.emplace_back();
                    continue;
                }
                const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
                cells.emplace_back(QString::fromUtf8(text, sqlite3_column_bytes(statement, column)));
            }
            rows.push_back(std::move(cells));
        });
    if (!error.ok())
        return { {}, error.message };
    return writeHtmlPages(rows, path, QStringLiteral("Silberbuch Datenexport"), 15);
}

} // namespace htmlexport
