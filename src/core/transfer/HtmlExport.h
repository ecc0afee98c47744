#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// The archive as a chain of static HTML pages, 15 CDs a page: code page 1252, CR LF, links
// between the pages as absolute paths of the chosen file.
namespace htmlexport {

// One row: each cell a text, or nothing for a NULL field.
using Row = std::vector<std::optional<QString>>;

struct Result
{
    QStringList pages; // the page files written, first to last
    QString error; // the German reason the export stopped; pages written before stay
    bool ok() const { return error.isEmpty(); }
};

// Writes the pages of `rows` to `path` (page 1), base + "-2" + ext and so on.
Result writeHtmlPages(const std::vector<Row> &rows, const QString &path, const QString &title, int pageSize);

// The export of an archive: its number, title, image id and comment, in number order.
Result exportArchiveToHtml(const QString &mdbPath, const QString &path);

// Umlauts, sharp s and the double quote as entities; markup stays markup.
QString htmlEscape(QString text);

} // namespace htmlexport
